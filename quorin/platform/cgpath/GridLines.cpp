#include "quorin/platform/cgpath/GridLines.h"

#include <numeric>
#include <utility>

namespace quorin {

GridLines::GridLines(std::vector<CGFloat> separators_) : separators(std::move(separators_)) {
    if (separators.empty())
        return;
    const std::size_t buckets = 2 * separators.size();
    const CGFloat length = separators.back() - separators.front();
    lastBucket = static_cast<CGFloat>(buckets - 1);
    bucketsPerPoint = length > 0 ? lastBucket / length : 0;

    firstInBucket.assign(buckets + 1, 0);
    for (const CGFloat separator : separators)
        ++firstInBucket[bucketOf(separator) + 1];
    std::partial_sum(firstInBucket.begin(), firstInBucket.end(), firstInBucket.begin());
}

}  // namespace quorin
