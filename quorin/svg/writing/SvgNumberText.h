#pragma once

#include <string>
#include <string_view>

#include "quorin/path/CompoundPath.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The shortest text that SVG reads back as the same number, ".5" and "1e20" included; zero has no
/// sign. The number is finite.
std::string svgNumberText(CGFloat number);

/// Puts numbers behind each other, with a space only where one would run into the next.
class SvgNumberList {
public:
    explicit SvgNumberList(std::string& destination) : text(destination) {}

    void append(CGFloat number);
    void append(CGPoint point) {
        append(point.x);
        append(point.y);
    }
    /// A command or other text that numbers may follow at once.
    void append(std::string_view other);

private:
    std::string& text;
    bool isAfterNumber = false;
    bool canPointFollow = false;  // since the last number has a point or exponent already
};

}  // namespace quorin
