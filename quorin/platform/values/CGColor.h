#pragma once

namespace quorin {

/// An sRGB colour, every component from 0 to 1, alpha not multiplied in. A component beyond that
/// range is drawn as the nearest one within.
struct CGColor {
    double red = 0, green = 0, blue = 0, alpha = 1;

    friend constexpr bool operator==(const CGColor&, const CGColor&) = default;
};

}  // namespace quorin
