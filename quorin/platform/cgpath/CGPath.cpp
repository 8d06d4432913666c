#include "quorin/platform/cgpath/CGPath.h"

#include <utility>

#include "quorin/platform/cgpath/ContainmentIndex.h"
#include "quorin/platform/cgpath/PathWalk.h"

namespace quorin {

CGPath::CGPath(Token, std::vector<CGPathElementType> types_, std::vector<CGPoint> points_,
               bool isOrdinary_)
    : types(std::move(types_)), points(std::move(points_)), isOrdinary(isOrdinary_) {}

CGPath::~CGPath() { delete _containmentIndex.load(); }

void CGPath::apply(FunctionRef<void(const CGPathElement&)> body) const {
    const CGPoint* next = points.data();
    for (const CGPathElementType type : types) {
        const std::size_t count = pointCount(type);
        body({type, {next, count}});
        next += count;
    }
}

}  // namespace quorin
