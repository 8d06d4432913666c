#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "quorin/platform/foundation/URL.h"

namespace quorin {

/// A folder of resources: files that belong to a program or a library, not to its users.
class Bundle {
public:
    /// The resources of this library: `share/QuorinGraphics` in the tree in which the library is
    /// installed, wherever that was moved. The archive that was linked into a program belongs to
    /// the tree of the program. Code that stands in no such tree has no resources, so whoever
    /// reads one has to know what to do without it.
    static const Bundle& library();

    /// No folder at all, an empty text, has no resources.
    explicit Bundle(std::string folder) : _folder(std::move(folder)) {}

    const std::string& folder() const { return _folder; }

    /// The file NAME.EXTENSION in the folder; nothing when there is none.
    std::optional<URL> resourceURL(std::string_view name, std::string_view extension) const;

private:
    std::string _folder;
};

}  // namespace quorin
