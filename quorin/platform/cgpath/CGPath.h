#pragma once

#include <cstdint>
#include <memory>
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

/// An immutable platform path of any number of subpaths, shared by pointer. Built by
/// `CGMutablePath`. May be read from several threads at once.
class CGPath {
public:
    ~CGPath();
    CGPath(const CGPath&) = delete;
    CGPath& operator=(const CGPath&) = delete;

    bool isEmpty() const { return types.empty(); }
    std::size_t elementCount() const { return types.size(); }
    /// Calls `body` with every element in order.
    void apply(FunctionRef<void(const CGPathElement&)> body) const;

    /// Whether the filled path holds `point`. Open subpaths count as closed; a point within
    /// `scalar::windingEpsilon` of the outline is inside. `transform` is applied to the point.
    bool contains(CGPoint point, CGPathFillRule rule = CGPathFillRule::winding,
                  const CGAffineTransform& transform = CGAffineTransform::identity) const;

    /// The tight box of the drawn curves; null for an empty path, for moves alone the box of
    /// their points.
    CGRect pathBoundingBox() const;
    /// The box of all points, controls included; null for an empty path.
    CGRect boundingBox() const;

    /// Same elements with exactly equal points.
    friend bool operator==(const CGPath& a, const CGPath& b);

private:
    friend class CGMutablePath;
    CGPath(std::vector<CGPathElementType> types, std::vector<CGPoint> points);

    struct Lazy;
    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;
    std::unique_ptr<Lazy> lazy;
};

/// Collects elements, then hands them over as a `CGPath`.
class CGMutablePath {
public:
    void reserve(std::size_t elements, std::size_t points);

    void moveTo(CGPoint point);
    void addLineTo(CGPoint point);
    void addQuadCurveTo(CGPoint point, CGPoint control);
    void addCurveTo(CGPoint point, CGPoint control1, CGPoint control2);
    void closeSubpath();
    void addPath(const CGPath& path,
                 const CGAffineTransform& transform = CGAffineTransform::identity);

    bool isEmpty() const { return types.empty(); }
    /// The path drawn so far; this builder keeps it and may go on.
    std::shared_ptr<const CGPath> copy() const;
    /// The path drawn so far; this builder is empty afterwards.
    std::shared_ptr<const CGPath> take();

private:
    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;
};

}  // namespace quorin
