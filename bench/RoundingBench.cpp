/// Rounding corners. No other library rounds the corners of a path, so there is no peer: what
/// counts is the time of one corner.
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "bench/PeerReport.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/Path.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr std::size_t corners = 1'000;
constexpr CGFloat radius = 5;

/// An open zigzag of sides 50 long, whose controls lie `bulge` beside them.
std::shared_ptr<Path> zigzag(CGFloat bulge) {
    const auto path = Path::create();
    for (std::size_t i = 0; i < corners + 2; ++i) {
        const CGPoint place{40.0 * static_cast<CGFloat>(i), i % 2 == 0 ? 0.0 : 30.0};
        const CGFloat rise = i % 2 == 0 ? 30 : -30;
        const CGPoint in{-12, 0.3 * rise + bulge}, out{12, 0.3 * rise + bulge};
        PathSegment corner(place, in, out, PointBehavior::straight);
        if (bulge == 0)
            corner.clearHandles();
        corner.setRadius(radius);
        path->segments().append(corner);
    }
    return path;
}

void require(bool isTrue, const char* what) {
    if (isTrue)
        return;
    std::fprintf(stderr, "the answer is wrong: %s\n", what);
    std::exit(1);
}

/// Every corner has become an arc, and the first one is where geometry wants it.
void check(const Path& rounded, CGFloat tolerance) {
    require(rounded.segments().count() == 2 * corners + 2, "the number of anchors");
    // The angle at which the sides meet is twice that of the tangent 40 / 30.
    const CGPoint start = CGPoint{40, 30} - CGPoint{0.8, 0.6} * (radius * 30 / 40);
    require(distance(rounded.segments()[1].point(), start) < tolerance, "where the arc starts");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const auto straight = zigzag(0), bent = zigzag(1);
    check(*straight->roundedCornerPath(), 1e-9);
    check(*straight->smoothlyRoundedPath(), 1e-9);
    check(*bent->roundedCornerPath(), 1);
    check(*bent->smoothlyRoundedPath(), 1);
    compare("round one of 1,000 corners", ours, corners,
            [&] { benchmark::DoNotOptimize(straight->roundedCornerPath()); });
    compare("round it beside curved sides", ours, corners,
            [&] { benchmark::DoNotOptimize(bent->roundedCornerPath()); });
    compare("round it smoothly", ours, corners,
            [&] { benchmark::DoNotOptimize(straight->smoothlyRoundedPath()); });
    compare("round it smoothly beside curved sides", ours, corners,
            [&] { benchmark::DoNotOptimize(bent->smoothlyRoundedPath()); });
    return runComparison(argumentCount, arguments);
}
