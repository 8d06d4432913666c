#pragma once

#include "quorin/linear/Quaternion.h"
#include "quorin/linear/Vector3.h"

namespace quorin {

/// The parts of a transform in space as they are edited and animated: it scales first, then
/// rotates, then moves. Without skew and perspective.
struct TransformDecomposition {
    Vector3 translation;
    Quaternion quaternion;
    Vector3 scale;

    friend constexpr bool operator==(const TransformDecomposition&,
                                     const TransformDecomposition&) = default;
};

}  // namespace quorin
