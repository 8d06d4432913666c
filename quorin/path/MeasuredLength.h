#pragma once

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// An arc length and how far from the true one it may be, both in points.
struct MeasuredLength {
    CGFloat length = 0;
    CGFloat accuracy = 0;
};

}  // namespace quorin
