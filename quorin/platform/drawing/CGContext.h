#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/drawing/CGImage.h"
#include "quorin/platform/drawing/CGShading.h"
#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGColor.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

enum class CGLineCap : std::uint8_t { butt, round, square };
enum class CGLineJoin : std::uint8_t { miter, round, bevel };

/// Paints paths and images into a bitmap, over what is there. The origin is at the top left, x
/// runs to the right and y down, so a positive rotation turns clockwise; one unit is one pixel
/// until the transform is changed. Edges are antialiased.
///
/// All there is to set (transform, clip, colours, alpha, line) is the state, which is saved and
/// restored as a whole; the path under construction is no part of it. Whatever has no picture is
/// not painted: points that are not finite, a transform without inverse, a line without width.
/// Coordinates are kept to 1/256 of a pixel.
class CGContext {
    struct Token {};  // keeps the constructor for createBitmap()

public:
    /// A transparent bitmap. Throws `ImageError` for a size that `CGImage` does not take.
    static std::shared_ptr<CGContext> createBitmap(std::size_t width, std::size_t height);

    CGContext(Token, std::size_t width, std::size_t height);
    CGContext(const CGContext&) = delete;
    CGContext& operator=(const CGContext&) = delete;
    ~CGContext();

    std::size_t width() const;   ///< in pixels
    std::size_t height() const;  ///< in pixels

    void saveGState();
    /// The state as it was saved last. Restoring more often than saving is a programming error, and
    /// so is restoring a state from before the open transparency layer.
    void restoreGState();

    /// What is drawn from now on goes through `transform` first, then through what was set before.
    void concatCTM(const CGAffineTransform& transform);
    void translateBy(CGFloat x, CGFloat y);
    void scaleBy(CGFloat x, CGFloat y);
    void rotateBy(CGFloat radians);
    /// From the units of drawing to pixels.
    CGAffineTransform ctm() const;

    /// The colour, or the shading, of fills; black at first. A shading stands in the space that the
    /// transform makes at this moment.
    void setFillColor(const CGColor& color);
    void setFillShading(const CGShading& shading);
    void setStrokeColor(const CGColor& color);
    void setStrokeShading(const CGShading& shading);
    /// Multiplied with the alpha of all that is painted, from 0 to 1; 1 at first.
    void setAlpha(CGFloat alpha);

    void setLineWidth(CGFloat width);  ///< 1 at first
    void setLineCap(CGLineCap cap);
    void setLineJoin(CGLineJoin join);
    /// How many times the line width a pointed corner may reach before it is cut; 10 at first.
    void setMiterLimit(CGFloat limit);
    /// Lengths of dash and gap in turn, of which the first `phase` units are passed over. Solid
    /// when there is none, one is negative, or all together are not worth drawing.
    void setLineDash(CGFloat phase, std::span<const CGFloat> lengths);

    /// The height of letters from line to line, in units; 12 at first.
    void setFontSize(CGFloat size);

    void beginPath();
    /// These add to the path; the transform at this moment applies. Without a point to go on from a
    /// line starts the path at its end.
    void moveTo(CGPoint point);
    void addLineTo(CGPoint point);
    /// See `CGMutablePath::addArcToPoint`; a circle in the units of drawing.
    void addArcToPoint(CGPoint tangent1, CGPoint tangent2, CGFloat radius);
    void closePath();
    void addPath(const CGPath& path);
    void addRect(const CGRect& rect);
    void addEllipse(const CGRect& in);

    /// These use the path up: afterwards there is none. Open contours are closed for filling and
    /// clipping; the pen of a stroke is shaped by the transform at this moment.
    void fillPath(CGPathFillRule rule = CGPathFillRule::winding);
    void strokePath();
    /// Nothing is painted outside of the path from now on, nor outside of the clip so far.
    void clip(CGPathFillRule rule = CGPathFillRule::winding);

    /// These use up the path as well.
    void fillRect(const CGRect& rect);
    void strokeRect(const CGRect& rect);
    void fillEllipse(const CGRect& in);
    void strokeEllipse(const CGRect& in);
    void clipToRect(const CGRect& rect);
    /// Makes the rect transparent within the clip.
    void clearRect(const CGRect& rect);

    /// Fills the clip, not the path, with colours along a line or between two circles.
    void drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end);
    void drawRadialGradient(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius,
                            CGPoint endCenter, CGFloat endRadius);
    /// The image stretched to the rect, its top row at the smallest y.
    void drawImage(const CGImage& image, const CGRect& in);

    /// How far a line of text in UTF-8 reaches to the right when it is shown, in units.
    CGFloat widthOfText(std::string_view text) const;
    /// Fills the letters of a line of text in UTF-8, in the system's sans-serif face, the left end
    /// of their baseline at the point. Bytes that are no characters show the sign for that. Uses up
    /// the path.
    void showText(std::string_view text, CGPoint at);

    /// What is painted until the layer ends is painted on its own, then put onto the bitmap as one
    /// picture with `alpha` and the state's alpha multiplied. Inside, the state's alpha is 1.
    /// Layers may stand inside each other. The end restores the state of the beginning.
    void beginTransparencyLayer(CGFloat alpha = 1);
    void endTransparencyLayer();

    /// The bitmap as it is now, without what open layers hold.
    std::shared_ptr<const CGImage> makeImage() const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation;
};

}  // namespace quorin
