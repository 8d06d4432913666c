#pragma once

/// How springs move, worked out in long double and by other ways than the library's.
namespace quorin::test {

/// A spring x'' = -stiffness · x - friction · x' with x = progress - 1.
struct TrueSpring {
    long double stiffness, friction;
};

struct TrueState {
    long double progress, velocity;
};

/// The motion after `time`, in tens of thousands of small steps.
TrueState moved(const TrueSpring& spring, TrueState from, long double time);

/// What one Runge-Kutta step of fourth order does to a linear motion: the exponential series of
/// the step up to the fourth power.
TrueState afterSeriesStep(const TrueSpring& spring, TrueState from, long double delta);

}  // namespace quorin::test
