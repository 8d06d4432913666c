#include "quorin/path/CurveSpeed.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "quorin/geometry/Quadrature.h"
#include "quorin/path/VectorClones.h"

namespace quorin {

namespace {

/// One row of the quadrature tables, mapped to a stretch of time.
struct Rule {
    const CGFloat* nodes;
    const CGFloat* weights;
    CGFloat middle, half;
    int pointCount;
};

/// The weighted sum of a rule with at most `rowLength` rows of two mirrored points.
///
/// All places of a row are evaluated, its padding included: the loop has a fixed length, so the
/// compiler takes several speeds, and above all several square roots, in one instruction. The
/// sum keeps the order of scalar::integrate, and so its bits.
template <std::size_t rowLength>
[[gnu::always_inline]] inline CGFloat integratedBy(const Rule& rule, const CurveSpeed& speed) {
    std::array<CGFloat, rowLength> pairs;
    for (std::size_t i = 0; i < rowLength; ++i)
        pairs[i] = speed.at(rule.middle + rule.half * rule.nodes[i]) +
                   speed.at(rule.middle - rule.half * rule.nodes[i]);

    const bool hasCentre = rule.pointCount % 2 == 1;
    const std::size_t count = static_cast<std::size_t>(rule.pointCount + 1) / 2;
    CGFloat sum = 0;
    for (std::size_t i = hasCentre ? 1 : 0; i < count; ++i)
        sum += rule.weights[i] * pairs[i];
    return hasCentre ? rule.half * sum + rule.half * rule.weights[0] * speed.at(rule.middle)
                     : rule.half * sum;
}

int pointCountFor(CGFloat from, CGFloat to) {
    const CGFloat wanted = std::ceil(std::abs(to - from) * 32);
    if (!(wanted > 2))  // also a stretch that is not a number
        return 2;
    return wanted < scalar::greatestPointCount ? static_cast<int>(wanted)
                                               : scalar::greatestPointCount;
}

}  // namespace

QUORIN_VECTOR_CLONES
CGFloat CurveSpeed::integrated(CGFloat from, CGFloat to, int pointCount) const {
    const auto row = static_cast<std::size_t>(pointCount - 2);
    const CGFloat half = (to - from) / 2;
    const Rule rule = {scalar::gaussLegendreNodeTable[row].data(),
                       scalar::gaussLegendreWeightTable[row].data(), half + from, half, pointCount};
    if (pointCount == scalar::greatestPointCount)
        return integratedBy<8>({rule.nodes, rule.weights, rule.middle, half, 16}, *this);
    if (pointCount > 8)
        return integratedBy<8>(rule, *this);
    if (pointCount > 4)
        return integratedBy<4>(rule, *this);
    return integratedBy<2>(rule, *this);
}

CGFloat CurveSpeed::integrated(CGFloat from, CGFloat to) const {
    return integrated(from, to, pointCountFor(from, to));
}

}  // namespace quorin
