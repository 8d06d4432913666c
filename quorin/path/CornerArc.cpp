#include "quorin/path/CornerArc.h"

#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/PointGeometry.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/Vector2.h"

namespace quorin {

CGPoint quarterTurned(CGPoint vector) { return rotated(vector, scalar::halfPi); }

CubicBezier circularArc(CGPoint from, CGPoint to, CGPoint centre) {
    const CGPoint out = from - centre;
    const CGFloat sweep = Vector2(out).angle(Vector2(to - centre));
    // 4/3 · tan(sweep / 4), written so that it holds up to a half turn.
    const CGFloat factor = 4.0 / 3 * std::sin(sweep / 2) / (std::cos(sweep / 2) + 1);
    const CGPoint handleOut = quarterTurned(out) * factor;
    const CGPoint handleIn = rotated(rotated(out, sweep), -scalar::halfPi) * factor;
    return {from, handleOut, handleIn, to};
}

}  // namespace quorin
