#pragma once

#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <ostream>

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/drawing/CGContext.h"
#include "tests/TestSupport.h"

namespace quorin::test {

constexpr CGColor black{0, 0, 0, 1};
constexpr CGColor white{1, 1, 1, 1};
constexpr CGColor red{1, 0, 0, 1};
constexpr CGColor blue{0, 0, 1, 1};

/// How much of a pixel is covered, from 0 to 255.
inline int alphaAt(const CGContext& context, std::size_t x, std::size_t y) {
    return context.makeImage()->pixelAt(x, y)[3];
}

/// What all pixels together are covered by, in pixels.
inline double coveredArea(const CGContext& context) {
    const auto image = context.makeImage();
    double sum = 0;
    for (std::size_t i = 3; i < image->pixels().size(); i += 4)
        sum += image->pixels()[i];
    return sum / 255;
}

inline std::shared_ptr<const CGPath> polygon(std::initializer_list<CGPoint> corners) {
    CGMutablePath path;
    for (const CGPoint corner : corners)
        if (path.isEmpty())
            path.moveTo(corner);
        else
            path.addLineTo(corner);
    path.closeSubpath();
    return path.take();
}

inline std::shared_ptr<const CGPath> polyline(std::initializer_list<CGPoint> points) {
    CGMutablePath path;
    for (const CGPoint point : points)
        if (path.isEmpty())
            path.moveTo(point);
        else
            path.addLineTo(point);
    return path.take();
}

/// Every channel within `tolerance` of the expected pixel.
MATCHER_P2(PixelNear, expected, tolerance, "") {
    const CGImage::Pixel wanted = expected;
    *result_listener << "which is " << testing::PrintToString(arg);
    for (std::size_t i = 0; i < 4; ++i)
        if (std::abs(int{arg[i]} - int{wanted[i]}) > tolerance)
            return false;
    return true;
}

}  // namespace quorin::test
