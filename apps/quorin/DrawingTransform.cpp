#include "apps/quorin/DrawingTransform.h"

#include <cmath>
#include <memory>
#include <unordered_map>
#include <variant>
#include <vector>

namespace quorin::app {

namespace {

/// Of outlines, each made once: many shapes may share a clip.
class OutlineTransform {
public:
    explicit OutlineTransform(const CGAffineTransform& by) : transform(by), growth(growthOf(by)) {}

    std::shared_ptr<CompoundPath> operator()(const std::shared_ptr<CompoundPath>& outline) {
        std::shared_ptr<CompoundPath>& result = results[outline.get()];
        if (!result) {
            std::vector<std::shared_ptr<Path>> contours;
            for (const std::shared_ptr<Path>& contour : outline->children())
                contours.push_back(transformed(*contour));
            result = CompoundPath::create(std::move(contours));
        }
        return result;
    }

private:
    std::shared_ptr<Path> transformed(const Path& contour) const {
        std::shared_ptr<Path> result = Path::create(contour);
        result->segments().transform([this](PathSegment& segment) {
            segment.setPoint(CGPointApplyAffineTransform(segment.point(), transform));
            segment.setHandleIn(turned(segment.handleIn()));
            segment.setHandleOut(turned(segment.handleOut()));
            segment.setRadius(segment.radius() * growth);
        });
        return result;
    }

    /// A handle is a direction, which a move does not change.
    CGPoint turned(CGPoint handle) const {
        return {transform.a * handle.x + transform.c * handle.y,
                transform.b * handle.x + transform.d * handle.y};
    }

    CGAffineTransform transform;
    CGFloat growth;
    std::unordered_map<const CompoundPath*, std::shared_ptr<CompoundPath>> results;
};

void transformBrush(DrawingBrush& brush, const CGAffineTransform& by) {
    const auto place = [&](CGAffineTransform& own) { own = CGAffineTransformConcat(own, by); };
    if (auto* const linear = std::get_if<DrawingLinearGradient>(&brush))
        place(linear->transform);
    else if (auto* const radial = std::get_if<DrawingRadialGradient>(&brush))
        place(radial->transform);
}

void transformPaint(DrawingPaint& paint, const CGAffineTransform& by) {
    transformBrush(paint.fill, by);
    transformBrush(paint.stroke, by);
    const CGFloat growth = growthOf(by);
    paint.strokeWidth *= growth;
    paint.dashOffset *= growth;
    for (CGFloat& dash : paint.dashes)
        dash *= growth;
}

CGFloat pixelsAUnit(CGFloat pixels, CGFloat units) { return units > 0 ? pixels / units : 1; }

}  // namespace

CGFloat growthOf(const CGAffineTransform& t) { return std::sqrt(std::abs(t.a * t.d - t.b * t.c)); }

void transformShapes(Drawing& drawing, const CGAffineTransform& by) {
    OutlineTransform transformed(by);
    for (DrawingShape& shape : drawing.shapes) {
        shape.outline = transformed(shape.outline);
        for (DrawingClip& clip : shape.clips)
            clip.outline = transformed(clip.outline);
        transformPaint(shape.paint, by);
    }
}

void transformPage(Drawing& drawing, const CGAffineTransform& by) {
    drawing.viewBox = CGRectApplyAffineTransform(drawing.viewBox, by);
    drawing.size.width *= std::abs(by.a);
    drawing.size.height *= std::abs(by.d);
}

void fitPage(Drawing& drawing, const CGRect& box) {
    const CGSize before = drawing.viewBox.size;
    drawing.size.width = box.size.width * pixelsAUnit(drawing.size.width, before.width);
    drawing.size.height = box.size.height * pixelsAUnit(drawing.size.height, before.height);
    drawing.viewBox = box;
}

}  // namespace quorin::app
