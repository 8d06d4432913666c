#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/MediaTime.h"

namespace quorin {

/// Estimates how fast the pointer moves during a drag, by straight lines through the places where
/// it was last. Serves one drag: a new one starts with a new instance.
class DragLinearRegression {
    struct Token {  // keeps the constructor for create()
        explicit Token() = default;
    };

public:
    /// Monotonic seconds.
    using Clock = std::function<double()>;

    struct Sample {
        double time;       // in seconds by the clock
        CGPoint point;     // in points
        CGPoint distance;  // how far x and y are from those of the sample before, without sign
    };

    static std::shared_ptr<DragLinearRegression> create(std::ptrdiff_t numberOfSamples,
                                                        Clock clock = CACurrentMediaTime);
    DragLinearRegression(Token, std::ptrdiff_t numberOfSamples, Clock by);
    DragLinearRegression(const DragLinearRegression&) = delete;
    DragLinearRegression& operator=(const DragLinearRegression&) = delete;

    /// The most samples kept. Above it an update drops the oldest one, never more, so a list that
    /// is longer than a new limit keeps its length.
    std::ptrdiff_t numberOfSamples() const { return _numberOfSamples; }
    void setNumberOfSamples(std::ptrdiff_t count) { _numberOfSamples = count; }

    /// Records where the pointer is now. While all samples bear one time, as the first does, the
    /// estimates stay what they were.
    void update(CGPoint point);

    /// In points per second, by axis.
    CGPoint velocity() const { return _velocity; }
    /// How the distance from sample to sample changes, in points per second, by axis.
    CGPoint gradient() const { return _gradient; }

    /// The oldest first.
    std::span<const Sample> points() const { return _points; }

private:
    std::ptrdiff_t _numberOfSamples;
    std::vector<Sample> _points;
    CGPoint _velocity, _gradient;
    Clock clock;
};

}  // namespace quorin
