#pragma once

#include <optional>
#include <variant>

#include "quorin/platform/values/CGColor.h"

namespace quorin {

/// A colour in the space in which it was made. Spaces of red, green and blue share the primaries
/// and the curve of sRGB; a shade of gray is the colour of three such components; a pattern is no
/// colour in any space.
class NSColor {
public:
    // Implicit: components are a colour.
    NSColor(const CGColor& color) : content(color) {}
    static NSColor white(double white, double alpha = 1) { return NSColor(Gray{white, alpha}); }
    /// Paint by an image.
    static NSColor pattern() { return NSColor(Pattern{}); }

    /// The components in the generic space of red, green and blue, not brought between 0 and 1.
    /// Nothing for a pattern.
    std::optional<CGColor> usingGenericRGB() const {
        if (const auto* gray = std::get_if<Gray>(&content))
            return CGColor{gray->white, gray->white, gray->white, gray->alpha};
        if (const auto* color = std::get_if<CGColor>(&content))
            return *color;
        return std::nullopt;
    }

    friend bool operator==(const NSColor&, const NSColor&) = default;

private:
    struct Gray {
        double white, alpha;
        friend bool operator==(const Gray&, const Gray&) = default;
    };
    struct Pattern {
        friend bool operator==(const Pattern&, const Pattern&) = default;
    };

    explicit NSColor(Gray gray) : content(gray) {}
    explicit NSColor(Pattern pattern) : content(pattern) {}

    std::variant<CGColor, Gray, Pattern> content;
};

}  // namespace quorin
