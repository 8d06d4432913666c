#include "quorin/platform/drawing/CGContext.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <numeric>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "quorin/geometry/Scalar.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/drawing/cairo/CairoImage.h"
#include "quorin/platform/drawing/cairo/CairoShading.h"
#include "quorin/platform/drawing/cairo/CairoText.h"
#include "quorin/platform/drawing/cairo/LinearShape.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

/// Cairo counts in 1/256 of a pixel with 32 bits; what lies beyond this is never seen.
constexpr CGFloat farthestPixel = 4'000'000;

/// A shading with the transform of the moment it was chosen.
struct PlacedShading {
    CGShading shading;
    CGAffineTransform toDevice;
};
using Paint = std::variant<CGColor, PlacedShading>;

struct Line {
    CGFloat width = 1;
    CGLineCap cap = CGLineCap::butt;
    CGLineJoin join = CGLineJoin::miter;
    CGFloat miterLimit = 10;
    CGFloat dashPhase = 0;
    std::vector<CGFloat> dashes;
};

struct State {
    CGAffineTransform ctm;
    Paint fill = CGColor{}, stroke = CGColor{};
    CGFloat alpha = 1;
    Line line;
    CGFloat fontSize = 12;
    bool opensLayer = false;
    CGFloat layerAlpha = 1;
};

/// NaN becomes 0.
CGFloat unitAlpha(CGFloat alpha) { return alpha > 0 ? std::min(alpha, 1.0) : 0; }

CGPoint clampedToDevice(CGPoint point) {
    return {std::clamp(point.x, -farthestPixel, farthestPixel),
            std::clamp(point.y, -farthestPixel, farthestPixel)};
}

cairo_fill_rule_t cairoRule(CGPathFillRule rule) {
    return rule == CGPathFillRule::evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING;
}
cairo_line_cap_t cairoCap(CGLineCap cap) {
    return cap == CGLineCap::round    ? CAIRO_LINE_CAP_ROUND
           : cap == CGLineCap::square ? CAIRO_LINE_CAP_SQUARE
                                      : CAIRO_LINE_CAP_BUTT;
}
cairo_line_join_t cairoJoin(CGLineJoin join) {
    return join == CGLineJoin::round   ? CAIRO_LINE_JOIN_ROUND
           : join == CGLineJoin::bevel ? CAIRO_LINE_JOIN_BEVEL
                                       : CAIRO_LINE_JOIN_MITER;
}

}  // namespace

/// Cairo's own transform stays the identity: points are transformed here, so that one without
/// inverse cannot put the whole context out of order.
struct CGContext::Implementation {
    CairoSurface surface;
    CairoContext cairo;
    std::vector<State> states{State{}};
    /// Where the path goes on, in pixels, whenever cairo has such a point: cairo rounds its own.
    CGPoint pen, subpathStart;

    State& state() { return states.back(); }
    cairo_t* get() const { return cairo.get(); }

    void save() {
        states.push_back(states.back());
        states.back().opensLayer = false;
        cairo_save(get());
    }
    void restore() {
        states.pop_back();
        cairo_restore(get());
    }

    void addElement(const CGPathElement& element);
    void add(CGPathElementType type, std::initializer_list<CGPoint> points = {}) {
        addElement({type, {points.begin(), points.size()}});
    }
    /// Makes the paint what cairo paints with. Answers whether there is anything to paint.
    bool choose(const Paint& paint);
    PlacedShading placed(const CGShading& shading) const {
        const auto transform = std::visit([](const auto& kind) { return kind.transform; }, shading);
        return {shading, CGAffineTransformConcat(transform, states.back().ctm)};
    }
    void fill(CGPathFillRule rule);
    void paintClip(const CGShading& shading) {
        if (choose(placed(shading)))
            cairo_paint(get());
    }
    void stroke();
    void setPen(const LinearShape& shape);
};

void CGContext::Implementation::addElement(const CGPathElement& element) {
    std::array<CGPoint, 3> p;
    for (std::size_t i = 0; i < element.points.size(); ++i) {
        const CGPoint point = CGPointApplyAffineTransform(element.points[i], state().ctm);
        if (!std::isfinite(point.x) || !std::isfinite(point.y))
            return;
        p[i] = clampedToDevice(point);
    }
    const CGPoint from = pen;
    if (element.type == CGPathElementType::moveToPoint || !cairo_has_current_point(get()))
        subpathStart = p[0];
    pen = element.points.empty() ? subpathStart : p[element.points.size() - 1];
    switch (element.type) {
        case CGPathElementType::moveToPoint:
            return cairo_move_to(get(), p[0].x, p[0].y);
        case CGPathElementType::addLineToPoint:
            return cairo_line_to(get(), p[0].x, p[0].y);
        case CGPathElementType::addQuadCurveToPoint: {
            const CGPoint start = cairo_has_current_point(get()) ? from : p[0];
            const CGPoint q = p[0], end = p[1];
            return cairo_curve_to(get(), (start.x + 2 * q.x) / 3, (start.y + 2 * q.y) / 3,
                                  (end.x + 2 * q.x) / 3, (end.y + 2 * q.y) / 3, end.x, end.y);
        }
        case CGPathElementType::addCurveToPoint:
            return cairo_curve_to(get(), p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
        case CGPathElementType::closeSubpath:
            return cairo_close_path(get());
    }
}

bool CGContext::Implementation::choose(const Paint& paint) {
    CairoPattern pattern;
    if (const auto* color = std::get_if<CGColor>(&paint))
        pattern = makeCairoPattern(*color, state().alpha);
    else if (const auto* placed = std::get_if<PlacedShading>(&paint))
        pattern = makeCairoPattern(placed->shading, placed->toDevice, state().alpha);
    if (pattern)
        cairo_set_source(get(), pattern.get());
    return pattern != nullptr;
}

void CGContext::Implementation::fill(CGPathFillRule rule) {
    cairo_set_fill_rule(get(), cairoRule(rule));
    if (choose(state().fill))
        cairo_fill(get());
    cairo_new_path(get());
}

void CGContext::Implementation::setPen(const LinearShape& shape) {
    const Line& line = state().line;
    const cairo_matrix_t matrix = cairoMatrix(shape.linear);
    cairo_set_matrix(get(), &matrix);
    cairo_set_line_width(get(), std::min(line.width * shape.scale, farthestPixel / shape.stretch));
    cairo_set_line_cap(get(), cairoCap(line.cap));
    cairo_set_line_join(get(), cairoJoin(line.join));
    cairo_set_miter_limit(get(), line.miterLimit);

    std::vector<CGFloat> dashes = line.dashes;
    for (CGFloat& dash : dashes)
        dash *= shape.scale;
    // Dashes nobody can see apart would take for ever to be drawn one by one.
    constexpr CGFloat shortestPeriod = 0.25;
    const CGFloat period = std::accumulate(dashes.begin(), dashes.end(), 0.0);
    if (std::isfinite(period) && period >= shortestPeriod * shape.stretch)
        cairo_set_dash(get(), dashes.data(), static_cast<int>(dashes.size()),
                       line.dashPhase * shape.scale);
    else
        cairo_set_dash(get(), nullptr, 0, 0);
}

void CGContext::Implementation::stroke() {
    const std::optional<LinearShape> shape = linearShapeOf(state().ctm);
    if (shape && state().line.width > 0 && choose(state().stroke)) {
        setPen(*shape);
        cairo_stroke(get());
        cairo_identity_matrix(get());
    }
    cairo_new_path(get());
}

std::shared_ptr<CGContext> CGContext::createBitmap(std::size_t width, std::size_t height) {
    return std::make_shared<CGContext>(Token{}, width, height);
}

CGContext::CGContext(Token, std::size_t width, std::size_t height)
    : implementation(std::make_unique<Implementation>()) {
    implementation->surface = makeCairoSurface(width, height);
    implementation->cairo = CairoContext(cairo_create(implementation->surface.get()));
    requireSuccess(cairo_status(implementation->get()));
}

CGContext::~CGContext() = default;

std::size_t CGContext::width() const {
    return static_cast<std::size_t>(cairo_image_surface_get_width(implementation->surface.get()));
}
std::size_t CGContext::height() const {
    return static_cast<std::size_t>(cairo_image_surface_get_height(implementation->surface.get()));
}

void CGContext::saveGState() { implementation->save(); }

void CGContext::restoreGState() {
    if (implementation->states.size() == 1)
        fatalError("restoreGState without saveGState");
    if (implementation->state().opensLayer)
        fatalError("restoreGState of a state from before the open transparency layer");
    implementation->restore();
}

void CGContext::concatCTM(const CGAffineTransform& transform) {
    CGAffineTransform& ctm = implementation->state().ctm;
    ctm = CGAffineTransformConcat(transform, ctm);
}
void CGContext::translateBy(CGFloat x, CGFloat y) {
    concatCTM(CGAffineTransformMakeTranslation(x, y));
}
void CGContext::scaleBy(CGFloat x, CGFloat y) { concatCTM(CGAffineTransformMakeScale(x, y)); }
void CGContext::rotateBy(CGFloat radians) { concatCTM(CGAffineTransformMakeRotation(radians)); }
CGAffineTransform CGContext::ctm() const { return implementation->state().ctm; }

void CGContext::setFillColor(const CGColor& color) { implementation->state().fill = color; }
void CGContext::setFillShading(const CGShading& shading) {
    implementation->state().fill = implementation->placed(shading);
}
void CGContext::setStrokeColor(const CGColor& color) { implementation->state().stroke = color; }
void CGContext::setStrokeShading(const CGShading& shading) {
    implementation->state().stroke = implementation->placed(shading);
}
void CGContext::setAlpha(CGFloat alpha) { implementation->state().alpha = unitAlpha(alpha); }

void CGContext::setLineWidth(CGFloat width) { implementation->state().line.width = width; }
void CGContext::setLineCap(CGLineCap cap) { implementation->state().line.cap = cap; }
void CGContext::setLineJoin(CGLineJoin join) { implementation->state().line.join = join; }
void CGContext::setMiterLimit(CGFloat limit) {
    implementation->state().line.miterLimit = limit >= 1 ? limit : 1;
}
void CGContext::setLineDash(CGFloat phase, std::span<const CGFloat> lengths) {
    Line& line = implementation->state().line;
    const bool isUsable = std::isfinite(phase) && std::all_of(lengths.begin(), lengths.end(),
                                                              [](CGFloat l) { return l >= 0; });
    line.dashPhase = isUsable ? phase : 0;
    line.dashes.assign(lengths.begin(), isUsable ? lengths.end() : lengths.begin());
}

void CGContext::setFontSize(CGFloat size) { implementation->state().fontSize = size; }

void CGContext::beginPath() { cairo_new_path(implementation->get()); }

void CGContext::moveTo(CGPoint point) {
    implementation->add(CGPathElementType::moveToPoint, {point});
}
void CGContext::addLineTo(CGPoint point) {
    implementation->add(CGPathElementType::addLineToPoint, {point});
}
void CGContext::closePath() { implementation->add(CGPathElementType::closeSubpath); }

void CGContext::addArcToPoint(CGPoint tangent1, CGPoint tangent2, CGFloat radius) {
    if (!cairo_has_current_point(implementation->get()) || !linearShapeOf(ctm()))
        return addLineTo(tangent1);
    CGMutablePath path;
    path.moveTo(CGPointApplyAffineTransform(implementation->pen, CGAffineTransformInvert(ctm())));
    path.addArcToPoint(tangent1, tangent2, radius);
    path.take()->apply([this](const CGPathElement& element) {
        if (element.type != CGPathElementType::moveToPoint)
            implementation->addElement(element);
    });
}

void CGContext::addPath(const CGPath& path) {
    path.apply([this](const CGPathElement& element) { implementation->addElement(element); });
}

void CGContext::addRect(const CGRect& rect) {
    const CGRect r = CGRectStandardize(rect);
    const CGFloat right = r.origin.x + r.size.width, bottom = r.origin.y + r.size.height;
    implementation->add(CGPathElementType::moveToPoint, {r.origin});
    implementation->add(CGPathElementType::addLineToPoint, {{right, r.origin.y}});
    implementation->add(CGPathElementType::addLineToPoint, {{right, bottom}});
    implementation->add(CGPathElementType::addLineToPoint, {{r.origin.x, bottom}});
    implementation->add(CGPathElementType::closeSubpath);
}

void CGContext::addEllipse(const CGRect& in) {
    const CGPoint center{CGRectGetMidX(in), CGRectGetMidY(in)};
    const CGFloat rx = CGRectGetWidth(in) / 2, ry = CGRectGetHeight(in) / 2;
    const auto at = [&](CGFloat x, CGFloat y) {
        return CGPoint{center.x + x * rx, center.y + y * ry};
    };
    implementation->add(CGPathElementType::moveToPoint, {at(1, 0)});
    // Each quarter ends where (x, y) points, having started a quarter turn before, at (y, -x).
    constexpr CGFloat ends[4][2] = {{0, 1}, {-1, 0}, {0, -1}, {1, 0}};
    for (const auto& [x, y] : ends)
        implementation->add(CGPathElementType::addCurveToPoint,
                            {at(y + scalar::kappa * x, -x + scalar::kappa * y),
                             at(x + scalar::kappa * y, y - scalar::kappa * x), at(x, y)});
    implementation->add(CGPathElementType::closeSubpath);
}

void CGContext::fillPath(CGPathFillRule rule) { implementation->fill(rule); }
void CGContext::strokePath() { implementation->stroke(); }
void CGContext::clip(CGPathFillRule rule) {
    cairo_set_fill_rule(implementation->get(), cairoRule(rule));
    cairo_clip(implementation->get());
}

void CGContext::fillRect(const CGRect& rect) {
    beginPath();
    addRect(rect);
    fillPath();
}
void CGContext::strokeRect(const CGRect& rect) {
    beginPath();
    addRect(rect);
    strokePath();
}
void CGContext::fillEllipse(const CGRect& in) {
    beginPath();
    addEllipse(in);
    fillPath();
}
void CGContext::strokeEllipse(const CGRect& in) {
    beginPath();
    addEllipse(in);
    strokePath();
}
void CGContext::clipToRect(const CGRect& rect) {
    beginPath();
    addRect(rect);
    clip();
}
void CGContext::clearRect(const CGRect& rect) {
    beginPath();
    addRect(rect);
    cairo_set_operator(implementation->get(), CAIRO_OPERATOR_CLEAR);
    cairo_fill(implementation->get());
    cairo_set_operator(implementation->get(), CAIRO_OPERATOR_OVER);
}

void CGContext::drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end) {
    implementation->paintClip(CGLinearShading{gradient, start, end, {}});
}
void CGContext::drawRadialGradient(const CGGradient& gradient, CGPoint startCenter,
                                   CGFloat startRadius, CGPoint endCenter, CGFloat endRadius) {
    implementation->paintClip(
        CGRadialShading{gradient, startCenter, startRadius, endCenter, endRadius, {}});
}

void CGContext::drawImage(const CGImage& image, const CGRect& in) {
    const CGRect r = CGRectStandardize(in);
    const CGAffineTransform toDevice = CGAffineTransformConcat(
        {r.size.width / static_cast<CGFloat>(image.width()), 0, 0,
         r.size.height / static_cast<CGFloat>(image.height()), r.origin.x, r.origin.y},
        ctm());
    const CairoPattern pattern = makeCairoPattern(image, toDevice, width(), height());
    if (!pattern)
        return;
    implementation->save();
    clipToRect(in);
    cairo_set_source(implementation->get(), pattern.get());
    cairo_paint_with_alpha(implementation->get(), implementation->state().alpha);
    implementation->restore();
}

CGFloat CGContext::widthOfText(std::string_view text) const {
    return textAdvance(implementation->get(), text, implementation->state().fontSize);
}

void CGContext::showText(std::string_view text, CGPoint at) {
    beginPath();
    const std::optional<LinearShape> shape = linearShapeOf(ctm());
    const CGPoint pixel = CGPointApplyAffineTransform(at, ctm());
    if (!shape || !std::isfinite(pixel.x) || !std::isfinite(pixel.y))
        return;
    addTextOutline(implementation->get(), text, implementation->state().fontSize, *shape,
                   clampedToDevice(pixel));
    fillPath();
}

void CGContext::beginTransparencyLayer(CGFloat alpha) {
    implementation->save();
    State& state = implementation->state();
    state.layerAlpha = unitAlpha(alpha) * state.alpha;
    state.alpha = 1;
    state.opensLayer = true;
    cairo_push_group(implementation->get());
}

void CGContext::endTransparencyLayer() {
    const State& state = implementation->state();
    if (!state.opensLayer)
        fatalError("endTransparencyLayer without beginTransparencyLayer or before restoreGState");
    cairo_pop_group_to_source(implementation->get());
    cairo_paint_with_alpha(implementation->get(), state.layerAlpha);
    implementation->restore();
}

std::shared_ptr<const CGImage> CGContext::makeImage() const {
    requireSuccess(cairo_status(implementation->get()));
    return imageOf(implementation->surface.get());
}

}  // namespace quorin
