#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "quorin/path/PointBehavior.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// What a path stores of each anchor: a segment without the reference to its path, which is the
/// same for all. Plain data, so that a path of any size is copied, moved and released as bytes.
struct PathAnchor {
    static constexpr std::int32_t noIndex = std::numeric_limits<std::int32_t>::min();

    CGPoint point = {};
    CGPoint handleIn = {};  // handles are relative to the point
    CGPoint handleOut = {};
    CGFloat radius = 0;
    std::int32_t index = noIndex;
    PointBehavior behavior = PointBehavior::straight;

    /// Exact, index and radius included.
    friend constexpr bool operator==(const PathAnchor&, const PathAnchor&) = default;
};

static_assert(std::is_trivially_copyable_v<PathAnchor>);
static_assert(sizeof(PathAnchor) <= 64, "a path of 100,000 anchors is walked at every click");

/// The index as an anchor stores it; one beyond 32 bits is a programming error.
std::int32_t storedIndex(std::ptrdiff_t index);

}  // namespace quorin
