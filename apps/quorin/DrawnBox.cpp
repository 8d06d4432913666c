#include "apps/quorin/DrawnBox.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>
#include <variant>
#include <vector>

#include "quorin/geometry/PointArithmetic.h"

namespace quorin::app {

namespace {

bool isPainted(const DrawingBrush& brush) { return !std::holds_alternative<std::monostate>(brush); }

bool drawsAnything(const Path& contour) {
    return contour.segments().count() > 1 || contour.isClosed();
}

CGRect outlineBox(const CompoundPath& outline) {
    CGRect box = CGRectNull;
    for (const auto& contour : outline.children())
        if (drawsAnything(*contour))
            box = CGRectUnion(box, contour->boundingBox());
    return box;
}

/// The point of the corner where a line coming along the unit vector `in` leaves along `out`;
/// nothing where it is cut off.
std::optional<CGPoint> miterTip(CGPoint corner, CGPoint in, CGPoint out,
                                const DrawingPaint& paint) {
    const CGPoint outward = in - out;
    const CGFloat sineOfHalfTurn = std::hypot(outward.x, outward.y) / 2;
    const CGFloat cosineOfHalfTurn = std::hypot(in.x + out.x, in.y + out.y) / 2;
    if (!(sineOfHalfTurn > 0) || !(cosineOfHalfTurn * paint.miterLimit >= 1))
        return std::nullopt;
    const CGFloat reach = paint.strokeWidth / 2 / cosineOfHalfTurn;
    return corner + outward * (reach / (2 * sineOfHalfTurn));
}

CGRect withMiters(CGRect box, const Path& contour, const DrawingPaint& paint) {
    const std::vector<PathCurve> curves = contour.curves();
    const std::size_t joints = curves.empty() ? 0 : curves.size() - (contour.isClosed() ? 0 : 1);
    for (std::size_t i = 0; i < joints; ++i) {
        const PathCurve& next = curves[(i + 1) % curves.size()];
        const auto in = curves[i].tangentAt(1);
        const auto out = next.tangentAt(0);
        if (!in || !out)
            continue;
        if (const auto tip = miterTip(next.p1(), *in, *out, paint))
            box = CGRectUnion(box, {*tip, {0, 0}});
    }
    return box;
}

CGRect strokeBox(const DrawingShape& shape) {
    const DrawingPaint& paint = shape.paint;
    // The corner of a square end reaches out by the diagonal.
    const CGFloat reach =
        paint.strokeWidth / 2 * (paint.lineCap == DrawingLineCap::square ? std::numbers::sqrt2 : 1);
    CGRect box = CGRectInset(outlineBox(*shape.outline), -reach, -reach);
    if (paint.lineJoin == DrawingLineJoin::miter)
        for (const auto& contour : shape.outline->children())
            box = withMiters(box, *contour, paint);
    return box;
}

}  // namespace

CGRect drawnBox(const DrawingShape& shape) {
    CGRect box = CGRectNull;
    if (isPainted(shape.paint.fill))
        box = outlineBox(*shape.outline);
    if (isPainted(shape.paint.stroke) && shape.paint.strokeWidth > 0)
        box = CGRectUnion(box, strokeBox(shape));
    for (const DrawingClip& clip : shape.clips)
        box = CGRectIntersection(box, outlineBox(*clip.outline));
    return box;
}

CGRect drawnBox(const Drawing& drawing) {
    CGRect box = CGRectNull;
    for (const DrawingShape& shape : drawing.shapes)
        box = CGRectUnion(box, drawnBox(shape));
    return box;
}

}  // namespace quorin::app
