#include "quorin/path/CurveNearestSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "quorin/path/VectorClones.h"

namespace quorin {

namespace {

constexpr std::size_t lastSample = 100;
constexpr CGFloat firstStep = 0.005;

/// How often the step is halved before it is no longer above `curvetimeEpsilon`.
constexpr std::size_t levelCount = [] {
    std::size_t count = 0;
    for (CGFloat step = firstStep; step > scalar::curvetimeEpsilon; step /= 2)
        ++count;
    return count;
}();

/// Samples come in blocks of this size; the last one is filled up with the end again.
constexpr std::size_t blockLength = 8;
constexpr std::size_t blockCount = lastSample / blockLength + 1;
constexpr std::size_t sampleCount = blockLength * blockCount;

constexpr std::array<CGFloat, sampleCount> sampleTimes = [] {
    std::array<CGFloat, sampleCount> times{};
    for (std::size_t i = 0; i < sampleCount; ++i)
        times[i] = static_cast<CGFloat>(std::min(i, lastSample)) / 100.0;
    return times;
}();

/// Where the search stands.
struct Standing {
    CGFloat time;
    CGFloat squared;
};

/// The squared distance at a time, written without a branch so that a loop over it takes several
/// times in one instruction. Infinite outside [0, 1].
class SquaredDistances {
public:
    SquaredDistances(const PowerBasis& powerBasis, CGPoint point)
        : basis(powerBasis), from(point), atEnd(ofEnd()) {}

    /// By the polynomial, which holds up to the end but not at it.
    CGFloat ofPolynomialAt(CGFloat t) const {
        const CGFloat dx = ((basis.a.x * t + basis.b.x) * t + basis.c.x) * t + basis.p1.x - from.x;
        const CGFloat dy = ((basis.a.y * t + basis.b.y) * t + basis.c.y) * t + basis.p1.y - from.y;
        return dx * dx + dy * dy;
    }
    CGFloat ofEnd() const {
        const CGPoint d = basis.p2 - from;
        return d.x * d.x + d.y * d.y;
    }
    CGFloat operator()(CGFloat t) const {
        const CGFloat squared = t == 1 ? atEnd : ofPolynomialAt(t);
        return t >= 0 && t <= 1 ? squared : std::numeric_limits<CGFloat>::infinity();
    }

    /// Near where the squared distance has its minimum, by Newton's method from `t`.
    CGFloat guessedMinimum(CGFloat t) const {
        for (int i = 0; i < 2; ++i) {
            const CGPoint d = ((basis.a * t + basis.b) * t + basis.c) * t + basis.p1 - from;
            const CGPoint velocity = (3 * basis.a * t + 2 * basis.b) * t + basis.c;
            const CGFloat slope = dot(d, velocity);
            const CGFloat bend = dot(velocity, velocity) + dot(d, basis.secondDerivativeAt(t));
            t -= slope / bend;
        }
        return std::clamp(t, 0.0, 1.0);
    }

private:
    PowerBasis basis;
    CGPoint from;
    CGFloat atEnd;
};

/// The nearest of the samples, of equal ones the earliest.
[[gnu::always_inline]] inline Standing nearestSample(const SquaredDistances& squaredAt) {
    std::array<CGFloat, sampleCount> squared;
    for (std::size_t i = 0; i < sampleCount; ++i)
        squared[i] = squaredAt.ofPolynomialAt(sampleTimes[i]);
    std::fill(squared.begin() + lastSample, squared.end(), squaredAt(1));

    // Each place of a block keeps its own nearest sample. Starting from the first sample, a number
    // that is not one there is never replaced.
    std::array<CGFloat, blockLength> least, times;
    least.fill(squared[0]);
    times.fill(0);
    for (std::size_t block = 0; block < sampleCount; block += blockLength)
        for (std::size_t i = 0; i < blockLength; ++i) {
            const bool isNearer = squared[block + i] < least[i];
            least[i] = isNearer ? squared[block + i] : least[i];
            times[i] = isNearer ? sampleTimes[block + i] : times[i];
        }
    Standing nearest{times[0], least[0]};
    for (std::size_t i = 1; i < blockLength; ++i) {
        const bool isNearer =
            least[i] < nearest.squared || (least[i] == nearest.squared && times[i] < nearest.time);
        nearest = isNearer ? Standing{times[i], least[i]} : nearest;
    }
    return nearest;
}

// Inlined like all the rest: a call from the copy for wider vectors would leave their upper halves
// in use, which slows down whatever the caller does next.
[[gnu::always_inline]] inline void refine(Standing& standing, CGFloat step,
                                          const SquaredDistances& squaredAt) {
    const auto moveTo = [&](CGFloat time) {
        const CGFloat squared = squaredAt(time);
        if (!(squared < standing.squared))
            return false;
        standing = {time, squared};
        return true;
    };
    while (step > scalar::curvetimeEpsilon)
        if (!moveTo(standing.time - step) && !moveTo(standing.time + step))
            step /= 2;
}

/// The search as it goes when, at each level, it moves once towards the minimum or not at all.
/// Every time it would ask about is known beforehand, so all are evaluated together.
struct Foreseen {
    /// Where each level starts, and at the end where the last one arrives.
    std::array<CGFloat, levelCount + 1> starts;
    /// Each level's neighbours before its move, then after it.
    std::array<CGFloat, 4 * levelCount> times;
    std::array<CGFloat, 4 * levelCount> squared;
};

[[gnu::always_inline]] inline void foresee(Foreseen& foreseen, CGFloat time, CGFloat minimum,
                                           const SquaredDistances& squaredAt) {
    CGFloat step = firstStep;
    for (std::size_t level = 0; level < levelCount; ++level, step /= 2) {
        const CGFloat ahead = minimum - time;
        const CGFloat moved = std::abs(ahead) > step / 2 ? time + std::copysign(step, ahead) : time;
        foreseen.starts[level] = time;
        foreseen.times[4 * level] = time - step;
        foreseen.times[4 * level + 1] = time + step;
        foreseen.times[4 * level + 2] = moved - step;
        foreseen.times[4 * level + 3] = moved + step;
        time = moved;
    }
    foreseen.starts[levelCount] = time;
    for (std::size_t i = 0; i < foreseen.times.size(); ++i)
        foreseen.squared[i] = squaredAt(foreseen.times[i]);
}

/// Takes each level that went as foreseen; from the first that did not, searches on its own.
[[gnu::always_inline]] inline void follow(Standing& standing, const Foreseen& foreseen,
                                          const SquaredDistances& squaredAt) {
    CGFloat step = firstStep;
    for (std::size_t level = 0; level < levelCount; ++level, step /= 2) {
        const CGFloat* const squared = &foreseen.squared[4 * level];
        const CGFloat next = foreseen.starts[level + 1];
        const bool isBackward = next < standing.time;
        const bool isForward = next > standing.time;
        const CGFloat arrived =
            isBackward ? squared[0] : (isForward ? squared[1] : standing.squared);
        const bool goesBackward = squared[0] < standing.squared;
        const bool goesForward = !goesBackward & (squared[1] < standing.squared);
        const bool goesOn = (squared[2] < arrived) | (squared[3] < arrived);
        if ((goesBackward != isBackward) | (goesForward != isForward) | goesOn)
            return refine(standing, step, squaredAt);
        standing = {next, arrived};
    }
}

}  // namespace

QUORIN_VECTOR_CLONES
CGFloat nearestSampledTime(const PowerBasis& basis, CGPoint from) {
    const SquaredDistances squaredAt(basis, from);
    Standing standing = nearestSample(squaredAt);
    Foreseen foreseen;
    foresee(foreseen, standing.time, squaredAt.guessedMinimum(standing.time), squaredAt);
    follow(standing, foreseen, squaredAt);
    return standing.time;
}

}  // namespace quorin
