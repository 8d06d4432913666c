#include "quorin/geometry/CubicBounds.h"
#include "quorin/path/CubicBezier.h"

namespace quorin {

CGRect CubicBezier::bounds() const {
    Bounds box;
    extendByCubic(box, p1, c1(), c2(), p2);
    return box.rect();
}

}  // namespace quorin
