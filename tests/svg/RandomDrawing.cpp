#include "tests/svg/RandomDrawing.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <random>
#include <string>

namespace quorin::test {
namespace {

class DrawingMaker {
public:
    explicit DrawingMaker(std::uint64_t seed) : random(seed) {}

    Drawing drawing() {
        Drawing result;
        if (!chance(5))
            result.viewBox = {point(), {size(), size()}};
        if (!chance(5))
            result.size = {size(), size()};
        for (std::size_t i = below(6); i-- > 0;)
            result.shapes.push_back(shape());
        return result;
    }

private:
    std::size_t below(std::size_t end) { return random() % end; }
    bool chance(std::size_t oneIn) { return below(oneIn) == 0; }

    /// Sometimes any double at all below 1e100, mostly what people draw with.
    CGFloat number() {
        if (chance(4))
            return static_cast<CGFloat>(below(21)) - 10;
        if (chance(3))
            return static_cast<CGFloat>(below(200'001)) / 1000 - 100;
        for (;;) {
            const auto any = std::bit_cast<CGFloat>(random());
            if (std::abs(any) < 1e100)
                return any;
        }
    }
    CGFloat size() { return std::abs(number()) + 0.5; }
    CGFloat fraction() { return static_cast<CGFloat>(random() >> 11) * 0x1p-53; }
    CGPoint point() {
        const CGFloat x = number();
        return {x, number()};
    }
    CGPoint handle() { return chance(2) ? CGPoint::zero : point(); }

    PathSegment segment() {
        if (chance(6) && hasLast)
            return {last, handle(), handle(), PointBehavior::disconnected};
        last = point();
        hasLast = true;
        return {last, handle(), handle(), PointBehavior::disconnected};
    }

    std::shared_ptr<Path> contour() {
        std::shared_ptr<Path> path = Path::create();
        for (std::size_t i = below(6); i-- > 0;)
            path->segments().append(segment());
        // Now and then the last anchor lies on the first, as a pen leaves it.
        if (path->segments().count() > 1 && chance(3))
            path->segments().append(
                {path->segments()[0].point(), handle(), handle(), PointBehavior::disconnected});
        path->setIsClosed(chance(2));
        return path;
    }

    DrawingColor color() {
        return {static_cast<CGFloat>(below(256)) / 255, static_cast<CGFloat>(below(256)) / 255,
                static_cast<CGFloat>(below(256)) / 255, chance(3) ? fraction() : 1};
    }

    template <typename Gradient>
    Gradient colors(Gradient gradient) {
        if (chance(2))
            gradient.transform = {size(), 0, number(), size(), number(), number()};
        gradient.spread = static_cast<DrawingGradientSpread>(below(3));
        std::vector<CGFloat> offsets(1 + below(4));
        std::generate(offsets.begin(), offsets.end(), [&] { return fraction(); });
        std::sort(offsets.begin(), offsets.end());
        for (const CGFloat offset : offsets)
            gradient.stops.push_back({offset, color()});
        return gradient;
    }

    DrawingBrush brush() {
        switch (below(4)) {
            case 0:
                return {};
            case 1:
                return color();
            case 2: {
                DrawingLinearGradient gradient;
                gradient.start = point();
                gradient.end = {gradient.start.x + 1 + std::abs(gradient.start.x),
                                gradient.start.y};
                return colors(gradient);
            }
            default: {
                DrawingRadialGradient gradient;
                gradient.center = gradient.focus = point();
                gradient.radius = size();
                gradient.focusRadius = chance(2) ? 0 : size();
                return colors(gradient);
            }
        }
    }

    DrawingPaint paint() {
        DrawingPaint result;
        result.fill = brush();
        result.fillOpacity = chance(2) ? 1 : fraction();
        result.fillRule = static_cast<CGPathFillRule>(below(2));
        result.stroke = brush();
        result.strokeOpacity = chance(2) ? 1 : fraction();
        result.strokeWidth = chance(2) ? 1 : size();
        result.lineCap = static_cast<DrawingLineCap>(below(3));
        result.lineJoin = static_cast<DrawingLineJoin>(below(3));
        result.miterLimit = 1 + size();
        for (std::size_t i = 2 * below(3); i-- > 0;)
            result.dashes.push_back(size());
        result.dashOffset = chance(2) ? 0 : number();
        result.isStrokeFirst = chance(2);
        result.opacity = chance(2) ? 1 : fraction();
        return result;
    }

    DrawingShape shape() {
        constexpr std::string_view characters = "ab<>&\"'\t\n;é";
        DrawingShape result;
        if (!chance(3))
            result.id = std::string(characters.substr(0, below(10))) + std::to_string(random());
        result.outline = outline();
        result.paint = paint();
        while (chance(3))
            result.clips.push_back({static_cast<CGPathFillRule>(below(2)), clipOutline()});
        return result;
    }

    std::shared_ptr<CompoundPath> outline() {
        std::vector<std::shared_ptr<Path>> contours(below(4));
        std::generate(contours.begin(), contours.end(), [&] { return contour(); });
        return CompoundPath::create(std::move(contours));
    }

    /// One that draws something: a shape that is clipped to nothing would not come back.
    std::shared_ptr<CompoundPath> clipOutline() {
        std::shared_ptr<Path> path = contour();
        path->segments().append(segment());
        path->setIsClosed(true);
        return CompoundPath::create({path, contour()});
    }

    std::mt19937_64 random;
    CGPoint last;
    bool hasLast = false;
};

}  // namespace

Drawing randomDrawing(std::uint64_t seed) { return DrawingMaker(seed).drawing(); }

}  // namespace quorin::test
