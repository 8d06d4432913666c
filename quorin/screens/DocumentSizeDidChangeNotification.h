#pragma once

#include <memory>
#include <optional>
#include <string>

#include "quorin/platform/foundation/NSNotification.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// Tells that a document has got another size; a `TypedNotification`, which nobody in particular
/// sends.
struct DocumentSizeDidChangeNotification {
    DocumentSizeDidChangeNotification(std::optional<std::string> templateName, CGSize documentSize,
                                      CGFloat density);
    /// Reads the user info. A "size" or "scale" that is missing or of another type stops the
    /// process; a "name" of another type is none.
    explicit DocumentSizeDidChangeNotification(const NSNotification& note);

    std::shared_ptr<Object> object() const { return nullptr; }
    /// "size", "scale" and, where there is one, "name".
    NSNotification::UserInfo userInfo() const;

    std::optional<std::string> name;  ///< of the template, nothing for a size of the user's own
    CGSize size;                      ///< in points, each side rounded to the nearest whole one
    CGFloat scale = 1;                ///< pixels to a point
};

}  // namespace quorin
