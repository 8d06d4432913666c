#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

enum class CGPathElementType : std::uint8_t {
    moveToPoint = 0,
    addLineToPoint = 1,
    addQuadCurveToPoint = 2,
    addCurveToPoint = 3,
    closeSubpath = 4,
};

/// One step of a path. `points` holds the controls and last the end point: one point for a move
/// or line, two for a quadratic, three for a cubic, none for a close.
struct CGPathElement {
    CGPathElementType type;
    std::span<const CGPoint> points;
};

enum class CGPathFillRule : std::uint8_t { winding, evenOdd };

class ContainmentIndex;
struct Winding;

/// An immutable platform path of any number of subpaths, shared by pointer. Built by
/// `CGMutablePath`. May be read from several threads at once.
class CGPath {
    struct Token {};  // keeps the constructor for the builder

public:
    /// `isOrdinary` says that all coordinates are (see OrdinaryPoints.h).
    CGPath(Token, std::vector<CGPathElementType> types, std::vector<CGPoint> points,
           bool isOrdinary);
    ~CGPath();
    CGPath(const CGPath&) = delete;
    CGPath& operator=(const CGPath&) = delete;

    bool isEmpty() const { return types.empty(); }
    std::size_t elementCount() const { return types.size(); }
    /// Calls `body` with every element in order.
    void apply(FunctionRef<void(const CGPathElement&)> body) const;

    /// Whether the filled path holds `point`. Open subpaths count as closed; a point within
    /// `scalar::windingEpsilon` of the outline is inside. `transform` is applied to the point.
    /// A point that is infinite or not a number is outside. Coordinates of the path beyond 2^500
    /// count as that, and one that is not a number as the one before it.
    ///
    /// A path that is asked often builds an index, once, and answers from then on without looking
    /// at the whole outline; the answers stay the same.
    bool contains(CGPoint point, CGPathFillRule rule = CGPathFillRule::winding,
                  const CGAffineTransform& transform = CGAffineTransform::identity) const;

    /// The tight box of the drawn lines and curves, which never leaves the control hull. Null for
    /// an empty path, for moves alone the box of their points; beside something drawn, moves that
    /// draw nothing do not count. Worked out once and kept.
    CGRect pathBoundingBox() const;
    /// The box of all points, controls and lone moves included; null for an empty path.
    CGRect boundingBox() const;

    /// Same elements with exactly equal points.
    friend bool operator==(const CGPath& a, const CGPath& b) {
        return a.types == b.types && a.points == b.points;
    }

private:
    friend class CGMutablePath;

    Winding windingAround(CGPoint point) const;

    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;
    bool isOrdinary;

    mutable std::once_flag _pathBoundingBoxOnce;
    mutable CGRect _pathBoundingBox;
    mutable std::atomic<std::uint32_t> _questionCount{0};
    mutable std::atomic<const ContainmentIndex*> _containmentIndex{nullptr};
};

}  // namespace quorin
