#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "quorin/platform/drawing/CGImage.h"

namespace quorin {

/// A picture of the user interface. Of a template image only the alpha counts: whoever shows it
/// chooses the colour.
class NSImage {
public:
    explicit NSImage(std::shared_ptr<const CGImage> image, bool asTemplate = false)
        : _cgImage(std::move(image)), _isTemplate(asTemplate) {}

    /// The PNG image of this name in `folder`, with or without ".png" behind the name, as a
    /// template if the name ends in "Template". Null when there is none that can be read; a name
    /// with a slash in it never leads out of the folder, for it is no name.
    static std::shared_ptr<const NSImage> named(std::string_view name,
                                                const std::string& folder = defaultFolder());
    /// `$XDG_DATA_HOME/quorin/images`, or `~/.local/share/quorin/images`.
    static std::string defaultFolder();

    const std::shared_ptr<const CGImage>& cgImage() const { return _cgImage; }
    bool isTemplate() const { return _isTemplate; }

private:
    std::shared_ptr<const CGImage> _cgImage;
    bool _isTemplate;
};

}  // namespace quorin
