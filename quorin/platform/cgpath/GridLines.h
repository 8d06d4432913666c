#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The separators of a grid along one axis, at any distances.
class GridLines {
public:
    GridLines() = default;
    /// In ascending order.
    explicit GridLines(std::vector<CGFloat> separators);

    std::uint32_t cellCount() const { return static_cast<std::uint32_t>(separators.size()) + 1; }

    /// How many separators are at or below `value`: a larger value never lies in an earlier cell.
    std::uint32_t cellOf(CGFloat value) const {
        if (separators.empty())
            return 0;
        const std::uint32_t* const bucket = &firstInBucket[bucketOf(value)];
        std::uint32_t cell = bucket[0];
        // Most often there is one separator in a bucket, or none.
        for (std::uint32_t count = bucket[1] - cell; count > 0;) {
            const std::uint32_t half = (count + 1) / 2;
            cell += separators[cell + half - 1] <= value ? half : 0;
            count -= half;
        }
        return cell;
    }

    std::size_t byteCount() const {
        return separators.capacity() * sizeof(CGFloat) +
               firstInBucket.capacity() * sizeof(std::uint32_t);
    }

private:
    /// Equal stretches from the first to the last separator. Values beyond fall into the outer
    /// ones.
    std::size_t bucketOf(CGFloat value) const {
        const CGFloat bucket = (value - separators.front()) * bucketsPerPoint;
        return static_cast<std::size_t>(std::clamp(bucket, 0.0, lastBucket));
    }

    std::vector<CGFloat> separators;
    CGFloat bucketsPerPoint = 0, lastBucket = 0;
    /// How many separators lie in earlier buckets, and at last how many there are.
    std::vector<std::uint32_t> firstInBucket;
};

}  // namespace quorin
