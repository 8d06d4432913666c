#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "quorin/path/CompoundPath.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

class Decoder;
class Encoder;

/// An sRGB colour, every component from 0 to 1, alpha not multiplied in.
struct DrawingColor {
    double red = 0, green = 0, blue = 0, alpha = 1;

    friend constexpr bool operator==(const DrawingColor&, const DrawingColor&) = default;
};

/// A colour at a place between the start (0) and the end (1) of a gradient.
struct DrawingGradientStop {
    CGFloat offset = 0;
    DrawingColor color;

    friend bool operator==(const DrawingGradientStop&, const DrawingGradientStop&) = default;
};

/// How a gradient goes on beyond its ends.
enum class DrawingGradientSpread : std::uint8_t { pad, reflect, repeat };

/// Colours that change along a line. Its points are in a space of its own, which `transform`
/// leads to the drawing. Stops are in order of their offsets; there is at least one.
struct DrawingLinearGradient {
    CGPoint start, end;
    CGAffineTransform transform;
    DrawingGradientSpread spread = DrawingGradientSpread::pad;
    std::vector<DrawingGradientStop> stops;

    friend bool operator==(const DrawingLinearGradient&, const DrawingLinearGradient&) = default;
};

/// Colours that change from the circle around `focus` to the circle around `center`; otherwise
/// like the linear gradient.
struct DrawingRadialGradient {
    CGPoint focus;
    CGFloat focusRadius = 0;
    CGPoint center;
    CGFloat radius = 0;
    CGAffineTransform transform;
    DrawingGradientSpread spread = DrawingGradientSpread::pad;
    std::vector<DrawingGradientStop> stops;

    friend bool operator==(const DrawingRadialGradient&, const DrawingRadialGradient&) = default;
};

/// What an area or a line is painted with; `std::monostate` paints nothing.
using DrawingBrush =
    std::variant<std::monostate, DrawingColor, DrawingLinearGradient, DrawingRadialGradient>;

enum class DrawingLineCap : std::uint8_t { butt, round, square };
enum class DrawingLineJoin : std::uint8_t { miter, round, bevel };

/// How a shape is painted: the fill, then the stroke over it unless told otherwise. Lengths are in
/// the drawing's units, opacities from 0 to 1.
struct DrawingPaint {
    DrawingBrush fill = DrawingColor{};
    CGFloat fillOpacity = 1;
    CGPathFillRule fillRule = CGPathFillRule::winding;

    DrawingBrush stroke;
    CGFloat strokeOpacity = 1;
    CGFloat strokeWidth = 1;
    DrawingLineCap lineCap = DrawingLineCap::butt;
    DrawingLineJoin lineJoin = DrawingLineJoin::miter;
    CGFloat miterLimit = 4;
    /// Lengths of dash and gap in turn, an even number of them; a solid line when empty.
    std::vector<CGFloat> dashes;
    CGFloat dashOffset = 0;

    bool isStrokeFirst = false;  ///< the fill over the stroke
    /// Of fill and stroke together.
    CGFloat opacity = 1;

    friend bool operator==(const DrawingPaint&, const DrawingPaint&) = default;
};

/// An area to paint in, in the drawing's units.
struct DrawingClip {
    CGPathFillRule rule = CGPathFillRule::winding;
    std::shared_ptr<CompoundPath> outline;
};

/// An outline of one or more contours, in the drawing's units with y down, and its paint.
struct DrawingShape {
    std::string id;  ///< empty when the source named none
    std::shared_ptr<CompoundPath> outline;
    DrawingPaint paint;
    std::vector<DrawingClip> clips = {};  ///< nothing is painted outside of any of them
};

/// A picture: shapes painted in order, later ones over earlier ones. Shapes lie in the plane of
/// `viewBox`, the part of the plane that is shown, stretched to `size` pixels.
struct Drawing {
    CGRect viewBox;
    CGSize size;
    std::vector<DrawingShape> shapes;

    /// Keys "version", "viewBox", "size" and "shapes"; every key of every record is required in
    /// reading. Throws `EncodingError` for numbers that are not finite, if the encoder does.
    void encode(Encoder& encoder) const;
    /// Throws `DecodingError`, which names the coding path.
    static Drawing decode(Decoder& decoder);
};

/// Whether the shapes of both that draw anything, in order, draw the same elements with the same
/// points, bit for bit but for the sign of zero, and so do their clips. Paint, rules and names do
/// not count.
bool hasSameGeometry(const Drawing& a, const Drawing& b);

}  // namespace quorin
