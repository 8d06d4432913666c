#pragma once

#include <string>
#include <vector>

#include "quorin/svg/Drawing.h"
#include "tests/TestSupport.h"

/// What the program wrote, to be looked into.
namespace quorin::test {

/// A drawing in SVG without anything to warn of.
Drawing writtenDrawing(const std::string& file);

/// The contours of all shapes, one behind the other.
std::vector<std::shared_ptr<Path>> writtenContours(const std::string& file);

/// The anchors of a contour.
std::vector<CGPoint> anchorPoints(const Path& contour);

MATCHER_P3(PointNear, x, y, tolerance, "") {
    return std::abs(arg.x - x) <= tolerance && std::abs(arg.y - y) <= tolerance;
}

}  // namespace quorin::test
