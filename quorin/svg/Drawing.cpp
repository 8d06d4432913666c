#include "quorin/svg/Drawing.h"

#include "quorin/svg/DrawnElements.h"

namespace quorin {
namespace {

struct DrawnOutline {
    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;

    friend bool operator==(const DrawnOutline&, const DrawnOutline&) = default;
};

void append(const CompoundPath& outline, DrawnOutline& drawn) {
    for (const std::shared_ptr<Path>& contour : outline.children())
        forEachDrawnElement(*contour, [&](const CGPathElement& element) {
            drawn.types.push_back(element.type);
            drawn.points.insert(drawn.points.end(), element.points.begin(), element.points.end());
        });
}

/// What a shape and its clips draw; empty when any of them draws nothing, so that nothing is seen.
DrawnOutline drawnOutline(const DrawingShape& shape) {
    DrawnOutline drawn;
    std::size_t before = 0;
    append(*shape.outline, drawn);
    for (const DrawingClip& clip : shape.clips) {
        if (drawn.types.size() == before)
            return {};
        before = drawn.types.size();
        append(*clip.outline, drawn);
    }
    return drawn.types.size() == before ? DrawnOutline() : drawn;
}

/// That of the next shape from `index` on which draws anything; empty when there is none.
DrawnOutline nextDrawn(const Drawing& drawing, std::size_t& index) {
    while (index < drawing.shapes.size()) {
        DrawnOutline drawn = drawnOutline(drawing.shapes[index++]);
        if (!drawn.types.empty())
            return drawn;
    }
    return {};
}

}  // namespace

bool hasSameGeometry(const Drawing& a, const Drawing& b) {
    std::size_t indexA = 0, indexB = 0;
    for (;;) {
        const DrawnOutline drawnA = nextDrawn(a, indexA);
        if (drawnA != nextDrawn(b, indexB))
            return false;
        if (drawnA.types.empty())
            return true;
    }
}

}  // namespace quorin
