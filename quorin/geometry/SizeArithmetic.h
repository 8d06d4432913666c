#pragma once

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

/// Component-wise arithmetic that gives sizes; the compound forms stand with those of points.
namespace quorin {

constexpr CGSize operator+(CGSize a, CGSize b) { return {a.width + b.width, a.height + b.height}; }
constexpr CGSize operator-(CGSize a, CGSize b) { return {a.width - b.width, a.height - b.height}; }
constexpr CGSize operator*(CGSize a, CGSize b) { return {a.width * b.width, a.height * b.height}; }
constexpr CGSize operator/(CGSize a, CGSize b) { return {a.width / b.width, a.height / b.height}; }

constexpr CGSize operator+(CGSize s, CGPoint p) { return {s.width + p.x, s.height + p.y}; }
constexpr CGSize operator-(CGSize s, CGPoint p) { return {s.width - p.x, s.height - p.y}; }
constexpr CGSize operator*(CGSize s, CGPoint p) { return {s.width * p.x, s.height * p.y}; }
constexpr CGSize operator/(CGSize s, CGPoint p) { return {s.width / p.x, s.height / p.y}; }

constexpr CGSize operator*(CGSize a, CGFloat s) { return {a.width * s, a.height * s}; }
constexpr CGSize operator/(CGSize a, CGFloat s) { return {a.width / s, a.height / s}; }

constexpr CGSize scaleBy(CGSize size, CGFloat factor) { return size * factor; }

/// Whether both components differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(CGSize a, CGSize b) {
    return isNearlyEqual(a.width, b.width) && isNearlyEqual(a.height, b.height);
}

constexpr bool isPortrait(CGSize size) { return size.width < size.height; }

/// A size one can divide by: a component no greater than `geometricEpsilon` in magnitude becomes
/// +`geometricEpsilon`, also when it was negative.
inline CGSize safeSizeForDivider(CGSize size) {
    const auto safe = [](CGFloat c) {
        return std::abs(c) <= scalar::geometricEpsilon ? scalar::geometricEpsilon : c;
    };
    return {safe(size.width), safe(size.height)};
}

}  // namespace quorin
