#pragma once

#include <algorithm>
#include <array>
#include <cmath>

#include "quorin/linear/Quaternion.h"
#include "tests/TestSupport.h"

/// Quaternions once more, with more precision, to compare with.
namespace quorin::test {

/// x, y, z, w.
using WideQuaternion = std::array<long double, 4>;

inline WideQuaternion wide(const Quaternion& q) { return {q.x, q.y, q.z, q.w}; }

/// By the table of the units' products: with w as unit 0, x·y is z, and so round.
inline WideQuaternion product(const WideQuaternion& a, const WideQuaternion& b) {
    WideQuaternion result{};
    result[3] = a[3] * b[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t next = (i + 1) % 3, last = (i + 2) % 3;
        result[3] -= a[i] * b[i];
        result[i] += a[i] * b[3] + a[3] * b[i];
        result[last] += a[i] * b[next] - a[next] * b[i];
    }
    return result;
}

/// Largest difference of a field.
inline long double difference(const Quaternion& a, const WideQuaternion& b) {
    const WideQuaternion wideA = wide(a);
    long double largest = 0;
    for (std::size_t i = 0; i < 4; ++i)
        largest = std::max(largest, std::abs(wideA[i] - b[i]));
    return largest;
}

/// Components of three decimals in [-1, 1].
inline rc::Gen<Vector3> fractionalVector() {
    const auto component =
        rc::gen::map(rc::gen::inRange(-1000, 1001), [](int n) { return n / 1e3; });
    return rc::gen::map(rc::gen::container<std::array<CGFloat, 3>>(component),
                        [](const std::array<CGFloat, 3>& a) { return Vector3(a); });
}

/// A rotation of any kind, w of either sign.
inline rc::Gen<Quaternion> unitQuaternion() {
    const auto field = rc::gen::inRange(-1000, 1001);
    const auto whole = rc::gen::suchThat(rc::gen::container<std::array<int, 4>>(field),
                                         [](const auto& a) { return a != std::array<int, 4>{}; });
    return rc::gen::map(whole, [](const std::array<int, 4>& a) {
        return Quaternion(a[0], a[1], a[2], a[3]).normalized();
    });
}

/// A rotation by clearly less than half a turn.
inline rc::Gen<Quaternion> quaternionOfPositiveW() {
    return rc::gen::map(unitQuaternion(), [](const Quaternion& q) {
        return Quaternion(q.x, q.y, q.z, std::abs(q.w) + 0.1).normalized();
    });
}

}  // namespace quorin::test
