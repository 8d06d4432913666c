#pragma once

#include <optional>

#include "quorin/geometry/Scalar.h"
#include "quorin/path/Curve.h"
#include "quorin/path/CurveTime.h"

namespace quorin {

/// A place on a path: the curve, the time on it, the point there, and how far that is from the
/// point that was asked about.
class PathCurveLocation {
public:
    /// A missing point is the curve's at `time`, which must then be in [0, 1]. A missing distance
    /// is the greatest finite double: nothing was measured.
    PathCurveLocation(PathCurve curve, PathCurveTime time,
                      std::optional<CGPoint> point = std::nullopt,
                      std::optional<bool> overlap = std::nullopt,
                      std::optional<CGFloat> distance = std::nullopt);

    const PathCurve& curve() const { return _curve; }
    PathCurveTime time() const { return _time; }
    CGPoint point() const { return _point; }
    /// Whether this is an end of an overlap between two curves.
    bool overlap() const { return _overlap; }
    CGFloat distance() const { return _distance; }
    /// Arc length along the curve from its start.
    PathCurveOffset offset() const { return _curve.offsetAt(_time); }

private:
    PathCurve _curve;
    PathCurveTime _time;
    CGPoint _point;
    bool _overlap = false;
    CGFloat _distance = scalar::greatestFinite;
};

}  // namespace quorin
