#pragma once

#include <cmath>

#include "quorin/geometry/Clamped.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin::scalar {

/// Stops the process: a search of `n` iterations cannot be made.
[[noreturn]] void failIterationCount(int n);

/// The root in [a, b] of a function that increases through it, by Newton's method from `x` with
/// the derivative `df`. A step that would leave the bracket halves it instead. Stops after a step
/// shorter than `tolerance`, or after n iterations, and answers within the bracket it has reached.
/// `f` is asked once an iteration, in order, so it may carry its work from one to the next.
template <typename Function, typename Derivative>
CGFloat findRoot(Function&& f, Derivative&& df, CGFloat x, CGFloat a, CGFloat b, int n,
                 CGFloat tolerance) {
    if (n < 0)
        failIterationCount(n);
    for (int i = 0; i < n; ++i) {
        const CGFloat fx = f(x);
        // Found; where the derivative vanishes too, the step would be 0/0.
        if (fx == 0)
            break;
        const CGFloat dx = fx / df(x);
        const CGFloat nx = x - dx;
        if (std::abs(dx) < tolerance) {
            x = nx;
            break;
        }
        if (fx > 0) {
            b = x;
            x = nx <= a ? (a + b) / 2 : nx;
        } else {
            a = x;
            x = nx >= b ? (a + b) / 2 : nx;
        }
    }
    return clamped(x, ClosedRange{a, b});
}

}  // namespace quorin::scalar
