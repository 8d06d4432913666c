#include "apps/quorin/AnchorMarks.h"

namespace quorin::app {

namespace {

constexpr CGColor markColor{0.05, 0.4, 0.95, 1};
constexpr CGColor edgeColor{1, 1, 1, 0.7};
constexpr CGColor anchorColor{1, 1, 1, 1};

CGRect squareAround(CGPoint middle, CGFloat side) {
    return CGRectMake(middle.x - side / 2, middle.y - side / 2, side, side);
}

}  // namespace

void AnchorMarks::add(const Path& path) {
    outlines.addPath(*path.cg(), transform);
    for (std::size_t i = 0; i < path.segments().count(); ++i) {
        const PathSegment segment = path.segments()[i];
        const CGPoint point = CGPointApplyAffineTransform(segment.point(), transform);
        anchors.push_back(point);
        for (const CGPoint control : {segment.controlPointIn(), segment.controlPointOut()})
            if (control != segment.point())
                addHandle(point, CGPointApplyAffineTransform(control, transform));
    }
}

void AnchorMarks::addHandle(CGPoint anchor, CGPoint controlPoint) {
    handles.moveTo(anchor);
    handles.addLineTo(controlPoint);
    handleEnds.addEllipseInRect(squareAround(controlPoint, 3 * unit));
}

void AnchorMarks::paint(CGContext& context) const {
    context.saveGState();
    context.setLineCap(CGLineCap::round);
    context.setLineJoin(CGLineJoin::round);
    strokeWithEdge(context, outlines);
    strokeWithEdge(context, handles);

    context.setFillColor(markColor);
    context.addPath(*handleEnds.copy());
    context.fillPath();

    for (const CGPoint anchor : anchors)
        paintAnchor(context, anchor);
    context.restoreGState();
}

// One after the other, so that neighbours cover each other instead of growing together.
void AnchorMarks::paintAnchor(CGContext& context, CGPoint anchor) const {
    context.setFillColor(edgeColor);
    context.fillRect(squareAround(anchor, 5.5 * unit));
    context.setFillColor(markColor);
    context.fillRect(squareAround(anchor, 4.5 * unit));
    context.setFillColor(anchorColor);
    context.fillRect(squareAround(anchor, 2.5 * unit));
}

void AnchorMarks::strokeWithEdge(CGContext& context, const CGMutablePath& lines) const {
    const std::shared_ptr<const CGPath> path = lines.copy();
    const auto stroke = [&](const CGColor& color, CGFloat width) {
        context.setStrokeColor(color);
        context.setLineWidth(width);
        context.addPath(*path);
        context.strokePath();
    };
    stroke(edgeColor, 2.5 * unit);
    stroke(markColor, unit);
}

}  // namespace quorin::app
