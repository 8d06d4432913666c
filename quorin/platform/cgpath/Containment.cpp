#include <cmath>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/OutlineWalk.h"

namespace quorin {

bool CGPath::contains(CGPoint point, CGPathFillRule rule,
                      const CGAffineTransform& transform) const {
    const CGPoint place = CGPointApplyAffineTransform(point, transform);
    if (!std::isfinite(place.x) || !std::isfinite(place.y))
        return false;
    const Winding around = windingByWalk(types, points, place);
    const bool isFilled =
        rule == CGPathFillRule::winding ? around.number != 0 : around.number % 2 != 0;
    return around.isOnOutline || isFilled;
}

}  // namespace quorin
