#pragma once

#include <concepts>

namespace quorin {

/// A type that gives one number a meaning, such as a curve time or an angle in degrees: it names
/// its `NativeType`, is made from such a value and shows it as `rawValue`. Wrappers of one type
/// compare by their values.
template <typename Wrapper>
concept ScalarWrapper = requires(const Wrapper& wrapper) {
    typename Wrapper::NativeType;
    { wrapper.rawValue } -> std::convertible_to<typename Wrapper::NativeType>;
    requires std::constructible_from<Wrapper, typename Wrapper::NativeType>;
};

template <ScalarWrapper Wrapper>
requires std::equality_comparable<typename Wrapper::NativeType>
constexpr bool operator==(const Wrapper& a, const Wrapper& b) { return a.rawValue == b.rawValue; }

template <ScalarWrapper Wrapper>
requires std::totally_ordered<typename Wrapper::NativeType>
constexpr bool operator<(const Wrapper& a, const Wrapper& b) { return a.rawValue < b.rawValue; }

}  // namespace quorin
