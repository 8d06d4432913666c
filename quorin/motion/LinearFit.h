#pragma once

#include <algorithm>
#include <optional>
#include <span>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The straight motion that comes closest to places seen at certain times: by least squares, x and
/// y for themselves, the place at time t being intercept + slope · t.
struct LinearFit {
    CGPoint slope, intercept;

    /// Fits `place` against `time`, both members of the samples. Nothing without samples, or when
    /// the samples all bear the same time.
    template <typename Sample>
    static std::optional<LinearFit> of(std::span<const Sample> samples, double Sample::*time,
                                       CGPoint Sample::*place);
};

template <typename Sample>
std::optional<LinearFit> LinearFit::of(std::span<const Sample> samples, double Sample::*time,
                                       CGPoint Sample::*place) {
    // The mean of equal times may be off by a bit, and the sums would not be zero.
    const auto bearsTheFirstTime = [&](const Sample& sample) {
        return sample.*time == samples.front().*time;
    };
    if (std::all_of(samples.begin(), samples.end(), bearsTheFirstTime))
        return std::nullopt;

    const auto n = static_cast<CGFloat>(samples.size());
    CGFloat meanTime = 0;
    CGPoint meanPlace;
    for (const Sample& sample : samples) {
        meanTime += sample.*time;
        meanPlace += sample.*place;
    }
    meanTime /= n;
    meanPlace /= n;

    CGFloat timeSquares = 0;
    CGPoint products;
    for (const Sample& sample : samples) {
        const CGFloat t = sample.*time - meanTime;
        products += t * (sample.*place - meanPlace);
        timeSquares += t * t;
    }
    if (timeSquares == 0)
        return std::nullopt;
    const CGPoint slope = products / timeSquares;
    return LinearFit{slope, meanPlace - meanTime * slope};
}

}  // namespace quorin
