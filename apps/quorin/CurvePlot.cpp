#include "apps/quorin/CurvePlot.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "apps/quorin/AxisTicks.h"
#include "apps/quorin/DrawingPicture.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/drawing/CGContext.h"

namespace quorin::app {

namespace {

constexpr DrawingColor rgb(unsigned code) {
    return {(code >> 16) / 255.0, (code >> 8 & 0xFF) / 255.0, (code & 0xFF) / 255.0, 1};
}

constexpr DrawingColor groundColor = rgb(0xFFFFFF), gridColor = rgb(0xE5E7EB),
                       axisColor = rgb(0x9CA3AF), restColor = rgb(0xF59E0B),
                       curveColor = rgb(0x2563EB), numberColor = rgb(0x4B5563),
                       titleColor = rgb(0x111827);
constexpr CGFloat numberSize = 13, titleSize = 15;

CGFloat lastTime(const TimeCurve& curve) {
    return std::max(curve.timeAt(curve.values.size() - 1), curve.step);
}

/// From the least to the greatest value, with 0 and 1 in it and some room beyond.
std::pair<CGFloat, CGFloat> valueRange(const TimeCurve& curve) {
    const auto [least, greatest] = std::minmax_element(curve.values.begin(), curve.values.end());
    const CGFloat low = std::min(0.0, *least), high = std::max(1.0, *greatest);
    const CGFloat room = (high - low) * 0.06;
    return {low < 0 ? low - room : 0, high + room};
}

/// Lines one pixel wide are sharp along the middles of pixels.
CGFloat sharp(CGFloat place) { return std::floor(place) + 0.5; }

CGRect frameOf(CGSize page, bool hasText) {
    if (!hasText)
        return CGRectInset({{0, 0}, page}, page.width / 16, page.height / 16);
    constexpr CGFloat left = 64, right = 28, top = 48, bottom = 56;
    return {{left, top}, {page.width - left - right, page.height - top - bottom}};
}

std::size_t tickCount(CGFloat length, CGFloat apart) {
    return static_cast<std::size_t>(std::max(1.0, length / apart));
}

/// Where times and values stand on the page.
struct PlotLayout {
    PlotLayout(const TimeCurve& curve, CGSize page, bool hasText)
        : size(page),
          frame(frameOf(page, hasText)),
          endTime(lastTime(curve)),
          values(valueRange(curve)),
          timeTicks(0, endTime, tickCount(frame.size.width, 90)),
          valueTicks(values.first, values.second, tickCount(frame.size.height, 50)) {}

    CGFloat x(CGFloat time) const { return frame.origin.x + time / endTime * frame.size.width; }
    CGFloat y(CGFloat value) const {
        const auto [low, high] = values;
        return CGRectGetMaxY(frame) - (value - low) / (high - low) * frame.size.height;
    }

    CGSize size;
    CGRect frame;
    CGFloat endTime;
    std::pair<CGFloat, CGFloat> values;
    AxisTicks timeTicks, valueTicks;
};

DrawingShape lines(CGMutablePath& path, const DrawingColor& color, CGFloat width) {
    DrawingShape shape;
    shape.outline = CompoundPath::create(*path.take());
    shape.paint.fill = std::monostate();
    shape.paint.stroke = color;
    shape.paint.strokeWidth = width;
    shape.paint.lineJoin = DrawingLineJoin::round;
    return shape;
}

void addLine(CGMutablePath& path, CGPoint from, CGPoint to) {
    path.moveTo(from);
    path.addLineTo(to);
}

DrawingShape ground(CGSize size) {
    CGMutablePath path;
    path.addRect({{0, 0}, size});
    DrawingShape shape;
    shape.outline = CompoundPath::create(*path.take());
    shape.paint.fill = groundColor;
    return shape;
}

DrawingShape grid(const PlotLayout& layout) {
    const CGRect& frame = layout.frame;
    CGMutablePath path;
    for (const CGFloat time : layout.timeTicks.places())
        addLine(path, {sharp(layout.x(time)), CGRectGetMinY(frame)},
                {sharp(layout.x(time)), CGRectGetMaxY(frame)});
    for (const CGFloat value : layout.valueTicks.places())
        addLine(path, {CGRectGetMinX(frame), sharp(layout.y(value))},
                {CGRectGetMaxX(frame), sharp(layout.y(value))});
    return lines(path, gridColor, 1);
}

DrawingShape axes(const PlotLayout& layout) {
    const CGFloat left = sharp(layout.x(0)), bottom = sharp(layout.y(0));
    CGMutablePath path;
    addLine(path, {left, CGRectGetMinY(layout.frame)}, {left, CGRectGetMaxY(layout.frame)});
    addLine(path, {left, bottom}, {CGRectGetMaxX(layout.frame), bottom});
    return lines(path, axisColor, 1);
}

DrawingShape restLine(const PlotLayout& layout) {
    CGMutablePath path;
    addLine(path, {CGRectGetMinX(layout.frame), sharp(layout.y(1))},
            {CGRectGetMaxX(layout.frame), sharp(layout.y(1))});
    DrawingShape shape = lines(path, restColor, 1);
    shape.paint.dashes = {6, 4};
    return shape;
}

/// The start at 0, which some curves leave out, and the values.
std::vector<CGPoint> samplePoints(const TimeCurve& curve, const PlotLayout& layout) {
    std::vector<CGPoint> points;
    if (curve.first > 0)
        points.push_back({layout.x(0), layout.y(0)});
    for (std::size_t i = 0; i < curve.values.size(); ++i)
        points.push_back({layout.x(curve.timeAt(i)), layout.y(curve.values[i])});
    return points;
}

/// At most four points for each pixel across: the first, the highest, the lowest and the last.
std::vector<CGPoint> thinned(const std::vector<CGPoint>& points) {
    const auto isAbove = [](CGPoint a, CGPoint b) { return a.y < b.y; };
    std::vector<CGPoint> result;
    for (auto begin = points.begin(); begin != points.end();) {
        const CGFloat pixel = std::floor(begin->x);
        const auto end =
            std::find_if(begin, points.end(), [&](CGPoint p) { return std::floor(p.x) != pixel; });
        const auto [highest, lowest] = std::minmax_element(begin, end, isAbove);
        for (const auto point :
             {begin, std::min(highest, lowest), std::max(highest, lowest), end - 1})
            if (result.empty() || *point != result.back())
                result.push_back(*point);
        begin = end;
    }
    return result;
}

/// The direction of a curve through points at equal steps, for each step: at every point that of
/// the parabola through it and its neighbours, of which there are two on one side at an end.
CGPoint directionAt(const std::vector<CGPoint>& points, std::size_t i) {
    const std::size_t last = points.size() - 1;
    if (last == 1)
        return points[1] - points[0];
    if (i == 0)
        return 2 * (points[1] - points[0]) - (points[2] - points[0]) / 2.0;
    if (i == last)
        return 2 * (points[i] - points[i - 1]) - (points[i] - points[i - 2]) / 2.0;
    return (points[i + 1] - points[i - 1]) / 2.0;
}

void addSmoothCurve(CGMutablePath& path, const std::vector<CGPoint>& points) {
    path.moveTo(points[0]);
    for (std::size_t i = 1; i < points.size(); ++i)
        path.addCurveTo(points[i], points[i - 1] + directionAt(points, i - 1) / 3.0,
                        points[i] - directionAt(points, i) / 3.0);
}

DrawingShape curveLine(const TimeCurve& curve, const PlotLayout& layout) {
    const std::vector<CGPoint> points = samplePoints(curve, layout);
    CGMutablePath path;
    if (points.size() < 2)
        addLine(path, points[0], points[0]);
    else if (static_cast<CGFloat>(points.size()) <= layout.frame.size.width)
        addSmoothCurve(path, points);
    else
        for (const CGPoint point : thinned(points))
            path.isEmpty() ? path.moveTo(point) : path.addLineTo(point);
    DrawingShape shape = lines(path, curveColor, 2);
    shape.id = "curve";
    shape.paint.lineCap = DrawingLineCap::round;
    return shape;
}

Drawing drawingOf(const TimeCurve& curve, const PlotLayout& layout) {
    return {{{0, 0}, layout.size},
            layout.size,
            {ground(layout.size), grid(layout), axes(layout), restLine(layout),
             curveLine(curve, layout)}};
}

/// `alignment` from 0 for a text that starts at the point to 1 for one that ends there.
void write(CGContext& context, std::string_view text, CGPoint at, CGFloat alignment) {
    context.showText(text, {at.x - alignment * context.widthOfText(text), at.y});
}

void writeNumbers(CGContext& context, const PlotLayout& layout) {
    const CGRect& frame = layout.frame;
    const CGFloat bottom = CGRectGetMaxY(frame);
    // Half the height of digits.
    constexpr CGFloat half = numberSize * 0.36;
    context.setFontSize(numberSize);
    context.setFillColor(platformColor(numberColor));
    for (const CGFloat time : layout.timeTicks.places())
        write(context, layout.timeTicks.text(time), {layout.x(time), bottom + 20}, 0.5);
    for (const CGFloat value : layout.valueTicks.places())
        write(context, layout.valueTicks.text(value),
              {CGRectGetMinX(frame) - 10, layout.y(value) + half}, 1);
    write(context, "seconds", {CGRectGetMidX(frame), bottom + 42}, 0.5);
}

void writeTitle(CGContext& context, const std::string& title, const PlotLayout& layout) {
    context.setFontSize(titleSize);
    // A long title is written smaller rather than cut.
    const CGFloat room = CGRectGetWidth(layout.frame);
    const CGFloat width = context.widthOfText(title);
    if (width > room)
        context.setFontSize(titleSize * room / width);
    context.setFillColor(platformColor(titleColor));
    context.showText(title, {layout.frame.origin.x, layout.frame.origin.y - 20});
}

}  // namespace

bool isPlottable(const TimeCurve& curve) {
    constexpr CGFloat longest = 1e12, shortest = 1e-12;
    const CGFloat end = lastTime(curve);
    const auto isMarkable = [&](CGFloat value) { return std::abs(value) <= longest; };
    return end >= shortest && end <= longest &&
           std::all_of(curve.values.begin(), curve.values.end(), isMarkable);
}

Drawing plotDrawing(const TimeCurve& curve, CGSize size) {
    return drawingOf(curve, PlotLayout(curve, size, false));
}

std::shared_ptr<const CGImage> plotPicture(const TimeCurve& curve, CGSize size) {
    const bool hasText = size.width >= 280 && size.height >= 200;
    const PlotLayout layout(curve, size, hasText);
    const auto context = CGContext::createBitmap(static_cast<std::size_t>(size.width),
                                                 static_cast<std::size_t>(size.height));
    paint(drawingOf(curve, layout), *context, {{0, 0}, size});
    if (hasText) {
        writeNumbers(*context, layout);
        writeTitle(*context, curve.title, layout);
    }
    return context->makeImage();
}

}  // namespace quorin::app
