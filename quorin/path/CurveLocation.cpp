#include "quorin/path/CurveLocation.h"

#include <string>
#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

CGPoint pointOn(const PathCurve& curve, PathCurveTime time) {
    const auto point = curve.pointAt(time);
    if (!point)
        fatalError("location at time " + std::to_string(time.rawValue) + " outside [0, 1]");
    return *point;
}

}  // namespace

PathCurveLocation::PathCurveLocation(PathCurve curve, PathCurveTime time,
                                     std::optional<CGPoint> point, std::optional<bool> overlap,
                                     std::optional<CGFloat> distance)
    : _curve(std::move(curve)),
      _time(time),
      _point(point ? *point : pointOn(_curve, time)),
      _overlap(overlap.value_or(false)),
      _distance(distance.value_or(scalar::greatestFinite)) {}

}  // namespace quorin
