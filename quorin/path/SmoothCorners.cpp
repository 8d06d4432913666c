#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/PointGeometry.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"
#include "quorin/path/TangentCircle.h"

namespace quorin {
namespace {

bool hasNoHandles(const CubicBezier& curve) {
    return isNearlyEqual(curve.h1, CGPoint::zero) && isNearlyEqual(curve.h2, CGPoint::zero);
}

/// A line with handles, so that it has a speed at its ends.
CubicBezier evenLine(CGPoint from, CGPoint to) {
    const CGPoint third = (to - from) / 3;
    return {from, third, -third, to};
}

/// The circle arc that goes on from one direction to another, in pieces of a quarter turn at most.
class ArcPieces {
public:
    ArcPieces(CGPoint start, CGPoint directionIn, CGPoint directionOut, CGFloat arcRadius)
        : from(start), direction(directionIn), radius(arcRadius) {
        const CGFloat sweep =
            std::atan2(cross(directionIn, directionOut), dot(directionIn, directionOut));
        _count = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / scalar::halfPi - 1e-9)));
        turn = sweep / _count;
        handle = radius * 4 / 3 * std::tan(std::abs(turn) / 4);
    }

    int count() const { return _count; }
    /// The vector along the arc, as long as a handle, between the pieces.
    CGPoint handleAt(int joint) const { return rotated(direction, turn * joint) * handle; }
    CGPoint placeAt(int joint) const {
        const CGFloat toCentre = turn > 0 ? radius : -radius;
        const CGPoint out{direction.y * toCentre, -direction.x * toCentre};
        return from - out + rotated(out, turn * joint);
    }

private:
    CGPoint from, direction;
    CGFloat radius, turn, handle;
    int _count;
};

CGPoint unitVector(CGPoint vector) { return vector / std::sqrt(dot(vector, vector)); }

class SmoothRounding {
public:
    explicit SmoothRounding(const Path& rounded)
        : path(rounded), anchors(rounded.segments().anchors()) {}

    std::shared_ptr<Path> result() {
        readSides();
        findCircles();
        auto rounded = Path::create();
        rounded->setIsClosed(path.isClosed());
        rounded->segments().reserve(3 * anchors.size());
        for (std::size_t i = 0; i < anchors.size(); ++i)
            if (circles[i])
                addArc(*rounded, i);
            else
                addAnchor(*rounded, i);
        return rounded;
    }

private:
    /// A side with what the corners at its ends leave of it.
    struct Side {
        CubicBezier curve;
        bool isPlain;  // drawn without handles
        CGFloat middle = 0;
        CGFloat start = 0, end = 1;

        CubicBezier kept() const {
            CubicBezier stretch = curve.partialCurve(start, end);
            if (isPlain)
                stretch.h1 = stretch.h2 = CGPoint::zero;
            return stretch;
        }
        CGPoint directionAtStart() const {
            const CubicBezier stretch = kept();
            return directionAlong(stretch.h1, stretch.c2() - stretch.p1);
        }
        CGPoint directionAtEnd() const {
            const CubicBezier stretch = kept();
            return directionAlong(-stretch.h2, stretch.p2 - stretch.c1());
        }
        /// Two arcs meet in the middle.
        bool isUsedUp() const {
            if (start == 0 || end == 1 || end <= start)
                return end <= start;
            const CubicBezier stretch = kept();
            const CGFloat shortest = 1e-11 * curve.length();
            return distance(stretch.p1, stretch.p2) < shortest && stretch.length() < shortest;
        }

    private:
        // A handle of what is kept tells more than the derivative, which is vague where it is
        // short. When nothing is kept, both arcs have to take the same direction.
        CGPoint directionAlong(CGPoint handle, CGPoint chord) const {
            if (isPlain || isUsedUp())
                return unitVector(*curve.weightedTangentAt(end));
            return unitVector(handle == CGPoint::zero ? chord : handle);
        }
    };

    void readSides() {
        sides.reserve(anchors.size());
        forEachCurve(path, [this](const CubicBezier& curve) {
            const bool isPlain = hasNoHandles(curve);
            Side side{isPlain ? evenLine(curve.p1, curve.p2) : curve, isPlain};
            side.middle = side.curve.timeAt(side.curve.length() / 2, std::nullopt).value_or(0.5);
            sides.push_back(side);
        });
    }

    void findCircles() {
        circles.resize(anchors.size());
        for (std::size_t i = 0; i < anchors.size(); ++i) {
            if (!isRoundable(i))
                continue;
            Side& before = sides[sideBefore(i)];
            Side& after = sides[i];
            circles[i] = largestTangentCircle(
                {before.curve, after.curve, before.middle, after.middle}, anchors[i].radius);
            if (!circles[i])
                continue;
            before.end = circles[i]->timeBefore;
            after.start = circles[i]->timeAfter;
        }
    }

    bool isRoundable(std::size_t i) const {
        const bool isInside = path.isClosed() || (i > 0 && i + 1 < anchors.size());
        return isInside && sides.size() > 1 && anchors[i].behavior == PointBehavior::straight &&
               anchors[i].radius > 0;
    }
    std::size_t sideBefore(std::size_t i) const { return i > 0 ? i - 1 : sides.size() - 1; }

    /// The handles of the curves that meet in an anchor which stays.
    void addAnchor(Path& rounded, std::size_t i) const {
        const PathAnchor& anchor = anchors[i];
        const bool hasSideBefore = path.isClosed() ? !sides.empty() : i > 0;
        const bool hasSideAfter = i < sides.size();
        const bool isCutBefore = hasSideBefore && sides[sideBefore(i)].start > 0;
        const bool isCutAfter = hasSideAfter && sides[i].end < 1;
        const CGPoint handleIn = isCutBefore ? sides[sideBefore(i)].kept().h2 : anchor.handleIn;
        const CGPoint handleOut = isCutAfter ? sides[i].kept().h1 : anchor.handleOut;
        const bool isMirroredNoLonger = anchor.behavior == PointBehavior::mirrored &&
                                        (isCutBefore || isCutAfter) && handleIn != -handleOut;
        rounded.segments().append(
            PathSegment(anchor.point, handleIn, handleOut,
                        isMirroredNoLonger ? PointBehavior::asymmetric : anchor.behavior));
    }

    ArcPieces arcAt(std::size_t i) const {
        const Side& before = sides[sideBefore(i)];
        return {before.kept().p2, before.directionAtEnd(), sides[i].directionAtStart(),
                circles[i]->radius};
    }

    void addArc(Path& rounded, std::size_t i) const {
        const Side& before = sides[sideBefore(i)];
        const Side& after = sides[i];
        const ArcPieces arc = arcAt(i);
        const auto add = [&rounded](CGPoint point, CGPoint handleIn, CGPoint handleOut,
                                    PointBehavior behavior) {
            rounded.segments().append(PathSegment(point, handleIn, handleOut, behavior));
        };

        CGPoint handleIn = before.kept().h2;
        if (before.isUsedUp()) {
            const ArcPieces previous = arcAt(sideBefore(i));
            handleIn = -previous.handleAt(previous.count());
        }
        add(before.kept().p2, handleIn, arc.handleAt(0), PointBehavior::asymmetric);
        for (int joint = 1; joint < arc.count(); ++joint)
            add(arc.placeAt(joint), -arc.handleAt(joint), arc.handleAt(joint),
                PointBehavior::mirrored);
        if (!after.isUsedUp())
            add(after.kept().p1, -arc.handleAt(arc.count()), after.kept().h1,
                PointBehavior::asymmetric);
    }

    const Path& path;
    std::span<const PathAnchor> anchors;
    std::vector<Side> sides;
    std::vector<std::optional<TangentCircle>> circles;
};

}  // namespace

std::shared_ptr<Path> Path::smoothlyRoundedPath() const {
    const bool hasNoRadius = std::ranges::all_of(
        _segments.anchors(), [](const PathAnchor& anchor) { return anchor.radius == 0; });
    return hasNoRadius ? create(*this) : SmoothRounding(*this).result();
}

}  // namespace quorin
