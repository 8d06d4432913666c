#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace quorin {

struct RearrangementStep {
    bool isMove;              ///< else the element is added
    std::size_t wantedIndex;  ///< which element it is, by its index in the end
    std::size_t toIndex;      ///< its index right after this step
};

/// The steps that make the order 0, 1, … `count` - 1 of some of these numbers, each there once,
/// with as few moves as possible.
///
/// Those that stay are a longest increasing subsequence, found by patience sorting; source: M. L.
/// Fredman, "On computing the length of longest increasing subsequences", 1975.
std::vector<RearrangementStep> rearrangementPlan(std::span<const std::size_t> present,
                                                 std::size_t count);

}  // namespace quorin
