#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"
#include "quorin/path/PathRebuild.h"

namespace quorin {

std::vector<PathCurve> Path::curves() const {
    std::vector<Curve> curves;
    if (_segments.count() < 2)
        return curves;
    curves.reserve(_segments.count() - (_isClosed ? 0 : 1));
    const std::weak_ptr<const Path> self = weak_from_this();
    forEachCurve(*this, [&](const CubicBezier& curve) {
        curves.emplace_back(curve, self, std::ssize(curves));
    });
    return curves;
}

void Path::setCurves(std::span<const Curve> curves) {
    PathRebuild rebuild(*this, curves.size());
    for (const Curve& curve : curves)
        rebuild.add(curve.cubic());
    rebuild.finish();
}

}  // namespace quorin
