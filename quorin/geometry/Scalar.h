#pragma once

#include <cmath>
#include <concepts>
#include <limits>
#include <numbers>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The named tolerances and constants. Comparisons with a tolerance are strict unless stated.
namespace scalar {

/// Tolerance of `isNearlyEqual`, of line intersection and of the parallel test.
inline constexpr CGFloat epsilon = 1e-12;
/// Below this a discriminant counts as zero.
inline constexpr CGFloat machineEpsilon = 1.12e-16;
/// The distance from 1 to the next double, 2^-52.
inline constexpr CGFloat actualMachineEpsilon = std::numeric_limits<CGFloat>::epsilon();
/// Tolerance of Bézier parameters.
inline constexpr CGFloat curvetimeEpsilon = 4e-7;
/// Tolerance of places, sizes and rects, in points.
inline constexpr CGFloat geometricEpsilon = 1e-7;
/// How near to an outline a point counts as inside, in points.
inline constexpr CGFloat windingEpsilon = 1e-8;
/// Sine or cosine below which lines are collinear or orthogonal.
inline constexpr CGFloat trigonometricEpsilon = 1e-8;
/// Tolerance of curve clipping.
inline constexpr CGFloat clippingEpsilon = 1e-10;
/// Tolerance for comparing animated values.
inline constexpr CGFloat animationGeometricEpsilon = 0.001;

/// Handle length that bends one cubic into a quarter of the unit circle, 4(√2 − 1)/3.
/// The curve leaves the true circle by at most 2.8e-4 of the radius.
inline constexpr CGFloat kappa = 4.0 * (std::numbers::sqrt2 - 1.0) / 3.0;
inline constexpr CGFloat halfPi = std::numbers::pi / 2;
inline constexpr CGFloat quarterPi = std::numbers::pi / 4;
inline constexpr CGFloat twoPi = std::numbers::pi * 2;
inline constexpr CGFloat degreesPerRadian = 57.29577951308232;
inline constexpr CGFloat radiansPerDegree = 0.017453292519943295;

/// The greatest finite double, 1.7976931348623157e308.
inline constexpr CGFloat greatestFinite = std::numeric_limits<CGFloat>::max();
/// The least positive normal double, 2.2250738585072014e-308.
inline constexpr CGFloat leastNormal = std::numeric_limits<CGFloat>::min();

}  // namespace scalar

/// Whether `a` and `b` differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(CGFloat a, CGFloat b) { return std::abs(a - b) < scalar::epsilon; }
/// Whether `a` and `b` differ by more than `scalar::epsilon`. Not the negation of
/// `isNearlyEqual`: at a difference of exactly `epsilon` both are false.
inline bool isNearlyUnequal(CGFloat a, CGFloat b) { return std::abs(a - b) > scalar::epsilon; }

/// -1 below zero, otherwise +1; so zero and NaN count as positive.
inline CGFloat sign(CGFloat x) { return x < 0 ? -1 : 1; }

/// Whether the value has no fractional part; infinities and NaN are not whole.
template <std::floating_point Number>
bool isIntegral(Number x) {
    return std::fmod(x, Number(1)) == 0;
}

/// Whether the value is not `isIntegral`.
template <std::floating_point Number>
bool isReal(Number x) {
    return !isIntegral(x);
}

template <std::integral Number>
constexpr bool isEven(Number n) {
    return (n & 1) == 0;
}

template <std::integral Number>
constexpr bool isOdd(Number n) {
    return (n & 1) == 1;
}

}  // namespace quorin
