#pragma once

#include <cmath>
#include <optional>
#include <utility>

#include "quorin/geometry/Line.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Polynomial.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

struct CubicBezier;

}  // namespace quorin
