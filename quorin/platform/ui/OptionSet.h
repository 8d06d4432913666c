#pragma once

#include <type_traits>

namespace quorin {

/// Says of an enumeration that its values are sets of bits: `template <> inline constexpr bool
/// isOptionSet<Flags> = true;`. The empty set is `Flags{}`.
template <typename Options>
inline constexpr bool isOptionSet = false;

template <typename Options>
concept OptionSet = std::is_enum_v<Options> && isOptionSet<Options>;

template <OptionSet Options>
constexpr auto rawValue(Options options) {
    return static_cast<std::underlying_type_t<Options>>(options);
}

template <OptionSet Options>
constexpr Options operator|(Options a, Options b) {
    return static_cast<Options>(rawValue(a) | rawValue(b));
}

template <OptionSet Options>
constexpr Options operator&(Options a, Options b) {
    return static_cast<Options>(rawValue(a) & rawValue(b));
}

template <OptionSet Options>
constexpr Options operator^(Options a, Options b) {
    return static_cast<Options>(rawValue(a) ^ rawValue(b));
}

/// All bits that `options` does not have, whether they have names or not.
template <OptionSet Options>
constexpr Options operator~(Options options) {
    return static_cast<Options>(~rawValue(options));
}

template <OptionSet Options>
constexpr Options& operator|=(Options& a, Options b) {
    return a = a | b;
}

template <OptionSet Options>
constexpr Options& operator&=(Options& a, Options b) {
    return a = a & b;
}

template <OptionSet Options>
constexpr Options& operator^=(Options& a, Options b) {
    return a = a ^ b;
}

/// Whether `options` has all of `wanted`; every set has the empty one.
template <OptionSet Options>
constexpr bool contains(Options options, Options wanted) {
    return (options & wanted) == wanted;
}

template <OptionSet Options>
constexpr bool isEmpty(Options options) {
    return options == Options{};
}

}  // namespace quorin
