#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/path/CornerArc.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"

namespace quorin {
namespace {

constexpr CGFloat angleSnap = 1e-5;  // radians

/// What becomes of a corner: the side before and the side after it, trimmed, and what joins them.
struct RoundedCorner {
    CubicBezier before, arc, after;
};

/// The angle of a side, from -π to 2π. What is nearly along +x is a full turn there, what is
/// exactly along it none.
CGFloat sideAngle(CGPoint direction) {
    const CGFloat angle = std::atan2(direction.y, direction.x);
    if (std::abs(angle) < angleSnap)
        return angle == 0 ? 0 : scalar::twoPi;
    return angle;
}

CGPoint unitVector(CGFloat angle) { return {std::cos(angle), std::sin(angle)}; }

/// Rounds the corner in which the one side ends and the other starts. `room` is the arc length that
/// both can spare.
std::optional<RoundedCorner> roundedCorner(const CubicBezier& before, const CubicBezier& after,
                                           const PathAnchor& anchor, CGFloat room) {
    const CGPoint corner = anchor.point;
    const CGFloat radius = std::floor(std::min(anchor.radius, room));
    if (!(radius > 0) || !(room > 0))
        return std::nullopt;

    const auto timeBefore = before.timeAt(-room, std::nullopt);
    const auto timeAfter = after.timeAt(room, std::nullopt);
    if (!timeBefore || !timeAfter)
        return std::nullopt;
    const CGPoint a = before.subdivide(*timeBefore).first.p2;
    const CGPoint b = after.subdivide(*timeAfter).second.p1;

    const CGFloat angleBefore = sideAngle(corner - a);
    const CGFloat angleAfter = sideAngle(corner - b);
    const CGFloat reach = std::min(distance(corner, a), distance(corner, b));
    const CGFloat slope = std::tan((angleAfter - angleBefore) * 0.5);
    if (!(std::abs(slope) > scalar::epsilon))  // a spike: both sides lie on one ray
        return std::nullopt;
    const CGFloat length = std::abs(std::min(std::abs(slope) * reach, radius) / slope);
    const CGPoint tangentBefore = corner - length * unitVector(angleBefore);
    const CGPoint tangentAfter = corner - length * unitVector(angleAfter);

    const CGPoint normalBefore = quarterTurned(tangentBefore - corner);
    const CGPoint normalAfter = quarterTurned(tangentAfter - corner);
    const CGFloat area = cross(normalBefore, normalAfter);
    if (std::abs(area) < scalar::epsilon)  // the sides are in line
        return std::nullopt;

    const auto lastTime = before.nearestTime(tangentBefore);
    const auto firstTime = after.nearestTime(tangentAfter);
    if (!lastTime || !firstTime)
        return std::nullopt;

    const CGFloat toCentre = cross(normalAfter, tangentBefore - tangentAfter) / area;
    const CGPoint centre = tangentBefore + normalBefore * toCentre;
    return RoundedCorner{before.subdivide(*lastTime).first,
                         circularArc(tangentBefore, tangentAfter, centre),
                         after.subdivide(*firstTime).second};
}

/// The sides of a path as they are, by the anchor they start from.
class Sides {
public:
    explicit Sides(const Path& path)
        : anchors(path.segments().anchors()), isClosed(path.isClosed()) {}

    std::size_t count() const { return isClosed ? anchors.size() : anchors.size() - 1; }
    const PathAnchor& corner(std::size_t i) const { return anchors[i]; }
    CubicBezier from(std::size_t i) const {
        return cubicBetween(anchors[i], anchors[i + 1 < anchors.size() ? i + 1 : 0]);
    }
    CubicBezier leadingTo(std::size_t i) const { return from(i > 0 ? i - 1 : count() - 1); }

    bool canBeRounded(std::size_t i) const {
        return corner(i).behavior == PointBehavior::straight && corner(i).radius > 0;
    }
    /// The arc length that both sides of a corner can spare, whatever their other ends need.
    CGFloat roomAt(std::size_t i) const {
        return std::min(PathCurve(leadingTo(i)).safeCornerRadius(false),
                        PathCurve(from(i)).safeCornerRadius(true));
    }

private:
    std::span<const PathAnchor> anchors;
    bool isClosed;
};

}  // namespace

std::shared_ptr<Path> Path::roundedCornerPath() const {
    const bool hasNoRadius = std::ranges::all_of(
        _segments.anchors(), [](const PathAnchor& anchor) { return anchor.radius == 0; });
    if (_segments.count() < 3 || hasNoRadius)
        return create(*this);

    const Sides sides(*this);
    std::vector<Curve> curves;
    curves.reserve(2 * sides.count());
    CubicBezier before = sides.from(0);
    // Lists what leads up to `after`, which may lose its start.
    const auto turn = [&](std::size_t i, CubicBezier& after) {
        const auto rounded = sides.canBeRounded(i)
                                 ? roundedCorner(before, after, sides.corner(i), sides.roomAt(i))
                                 : std::nullopt;
        curves.emplace_back(rounded ? rounded->before : before);
        if (!rounded)
            return;
        curves.emplace_back(rounded->arc);
        after = rounded->after;
    };
    for (std::size_t i = 1; i < sides.count(); ++i) {
        CubicBezier after = sides.from(i);
        turn(i, after);
        before = after;
    }
    if (_isClosed) {
        // The first curve of the list has lost its end already; here it loses its start.
        CubicBezier first = curves.front().cubic();
        turn(0, first);
        curves.front() = Curve(first);
    } else {
        curves.emplace_back(before);
    }
    return create(curves, _isClosed);
}

}  // namespace quorin
