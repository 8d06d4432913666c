#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "quorin/geometry/Hashing.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

/// What matrices of any size do with their elements one by one, in the order of storage.
namespace quorin {

template <std::size_t count, typename Change>
constexpr std::array<CGFloat, count> eachElement(std::array<CGFloat, count> elements,
                                                 Change change) {
    for (CGFloat& element : elements)
        element = change(element);
    return elements;
}

template <std::size_t count, typename Combine>
constexpr std::array<CGFloat, count> eachElement(std::array<CGFloat, count> elements,
                                                 const std::array<CGFloat, count>& others,
                                                 Combine combine) {
    for (std::size_t i = 0; i < count; ++i)
        elements[i] = combine(elements[i], others[i]);
    return elements;
}

template <std::size_t count>
constexpr std::array<float, count> singlePrecision(const std::array<CGFloat, count>& elements) {
    std::array<float, count> singles{};
    for (std::size_t i = 0; i < count; ++i)
        singles[i] = static_cast<float>(elements[i]);
    return singles;
}

template <std::size_t count>
bool areNearlyEqual(const std::array<CGFloat, count>& a, const std::array<CGFloat, count>& b) {
    return std::equal(a.begin(), a.end(), b.begin(),
                      [](CGFloat x, CGFloat y) { return isNearlyEqual(x, y); });
}

template <std::size_t count>
std::size_t hashOfElements(const std::array<CGFloat, count>& elements) {
    std::size_t seed = 0;
    for (const CGFloat element : elements)
        hashCombine(seed, element);
    return seed;
}

}  // namespace quorin
