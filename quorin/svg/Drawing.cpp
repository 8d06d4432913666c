#include "quorin/svg/Drawing.h"

#include "quorin/svg/DrawnElements.h"

namespace quorin {
namespace {

struct DrawnOutline {
    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;

    friend bool operator==(const DrawnOutline&, const DrawnOutline&) = default;
};

DrawnOutline drawnOutline(const CompoundPath& outline) {
    DrawnOutline drawn;
    for (const std::shared_ptr<Path>& contour : outline.children())
        forEachDrawnElement(*contour, [&](const CGPathElement& element) {
            drawn.types.push_back(element.type);
            drawn.points.insert(drawn.points.end(), element.points.begin(), element.points.end());
        });
    return drawn;
}

/// The outline of the next shape from `index` on that draws anything; empty when there is none.
DrawnOutline nextDrawn(const Drawing& drawing, std::size_t& index) {
    while (index < drawing.shapes.size()) {
        DrawnOutline drawn = drawnOutline(*drawing.shapes[index++].outline);
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
