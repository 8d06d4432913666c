#include <cmath>
#include <memory>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/ContainmentIndex.h"
#include "quorin/platform/cgpath/OrdinaryPoints.h"
#include "quorin/platform/cgpath/OutlineWalk.h"

namespace quorin {

namespace {

// An index costs as much to build as a hundred walks over the outline. It comes when a path has
// shown that it is asked more than now and then.
constexpr std::uint32_t questionsBeforeIndex = 16;
constexpr std::size_t elementsWorthAnIndex = 64;

}  // namespace

bool CGPath::contains(CGPoint point, CGPathFillRule rule,
                      const CGAffineTransform& transform) const {
    const CGPoint place = CGPointApplyAffineTransform(point, transform);
    if (!std::isfinite(place.x) || !std::isfinite(place.y))
        return false;
    const Winding around = windingAround(place);
    if (around.isOnOutline)
        return true;
    return rule == CGPathFillRule::winding ? around.number != 0 : around.number % 2 != 0;
}

Winding CGPath::windingAround(CGPoint point) const {
    if (const ContainmentIndex* index = _containmentIndex.load(std::memory_order_acquire))
        return index->windingAround(point);

    std::vector<CGPoint> replaced;
    if (!isOrdinary)
        replaced = madeOrdinary(points);
    const std::span<const CGPoint> ordinary = isOrdinary ? points : replaced;

    // The one thread whose question is the last before the index builds it; others walk meanwhile.
    if (types.size() >= elementsWorthAnIndex &&
        _questionCount.load(std::memory_order_relaxed) < questionsBeforeIndex &&
        _questionCount.fetch_add(1, std::memory_order_relaxed) + 1 == questionsBeforeIndex) {
        auto index = std::make_unique<const ContainmentIndex>(types, ordinary);
        _containmentIndex.store(index.release(), std::memory_order_release);
    }
    return windingByWalk(types, ordinary, point);
}

}  // namespace quorin
