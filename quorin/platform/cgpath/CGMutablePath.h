#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <vector>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// Collects elements, then hands them over as a `CGPath`.
///
/// Lines, curves and arcs go on from the current point; adding one before any move is a
/// programming error. After a close the current point is the start of the closed subpath.
class CGMutablePath {
public:
    void reserve(std::size_t elements, std::size_t points);

    void moveTo(CGPoint point);
    void addLineTo(CGPoint point);
    void addQuadCurveTo(CGPoint point, CGPoint control);
    void addCurveTo(CGPoint point, CGPoint control1, CGPoint control2);
    /// Does nothing while the path is empty.
    void closeSubpath();

    /// A circle arc of the given radius that touches the line from the current point to
    /// `tangent1` and the line from there to `tangent2`, led up to by a line from the current
    /// point. A plain line to `tangent1` where there is no such arc: for a radius of 0, and when
    /// two of the three points coincide or all are in line.
    void addArcToPoint(CGPoint tangent1, CGPoint tangent2, CGFloat radius);
    /// A closed subpath from the corner at the origin along the x axis.
    void addRect(const CGRect& rect);
    /// A closed subpath of four cubics from the middle of the right edge, towards larger y.
    void addEllipseInRect(const CGRect& rect);
    /// Appends the elements of `path` with `transform` applied to their points.
    void addPath(const CGPath& path,
                 const CGAffineTransform& transform = CGAffineTransform::identity);

    bool isEmpty() const { return types.empty(); }
    /// Where the next line would start. A programming error while the path is empty.
    CGPoint currentPoint() const;

    /// The path drawn so far; this builder keeps it and may go on.
    std::shared_ptr<const CGPath> copy() const;
    /// The path drawn so far; this builder is empty afterwards.
    std::shared_ptr<const CGPath> take();

private:
    void append(CGPathElementType type, std::initializer_list<CGPoint> added);
    void requireCurrentPoint() const;

    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;
    CGPoint subpathStart, current;
    bool isOrdinary = true;
};

}  // namespace quorin
