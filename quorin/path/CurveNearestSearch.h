#pragma once

#include "quorin/path/PowerBasis.h"

namespace quorin {

/// The time whose point is nearest to `from` among 101 samples, refined by a halving search: the
/// step starts at 0.005 and is halved when neither neighbour is strictly nearer, until it is at
/// most `curvetimeEpsilon`. Squared distances are compared; of equal samples the earliest wins.
///
/// Samples several times at once, and guesses where the search will go so that it need not wait
/// for one comparison after another; the answer is that of the plain search, bit for bit.
CGFloat nearestSampledTime(const PowerBasis& basis, CGPoint from);

}  // namespace quorin
