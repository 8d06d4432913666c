#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

namespace quorin {

/// The plain types that are boxed as numbers, Booleans included. Characters are not: nobody could
/// tell whether the letter or its code is meant.
template <typename Type>
concept PlainNumber = std::is_arithmetic_v<Type> &&
    !(std::same_as<Type, char> || std::same_as<Type, wchar_t> || std::same_as<Type, char8_t> ||
      std::same_as<Type, char16_t> || std::same_as<Type, char32_t>);

/// A boxed number: a Boolean, a 64-bit integer or a double, as it was put in.
class NSNumber {
public:
    /// An unsigned integer too large for the signed one becomes a double. Implicit: numbers box
    /// themselves.
    template <PlainNumber Number>
    NSNumber(Number value) {
        if constexpr (std::same_as<Number, bool>)
            content = value;
        else if constexpr (std::floating_point<Number>)
            content = static_cast<double>(value);
        else if (std::in_range<std::int64_t>(value))
            content = static_cast<std::int64_t>(value);
        else
            content = static_cast<double>(value);
    }

    bool isBoolean() const { return std::holds_alternative<bool>(content); }
    bool isInteger() const { return std::holds_alternative<std::int64_t>(content); }
    bool isDouble() const { return std::holds_alternative<double>(content); }

    /// Whether it is not 0.
    bool boolValue() const;
    /// Without the fraction; beyond 64 bits the nearest end, and 0 for NaN.
    std::int64_t integerValue() const;
    /// A Boolean reads 0 or 1; an integer beyond 2^53 is rounded.
    double doubleValue() const;
    /// Whatever the locale: at most 16 digits, exponents from 1e16 on and below 1e-4, as in `1234`,
    /// `0.1`, `-0`, `1e+16`, `inf`, `nan`; all digits of an integer; 1 and 0 for a Boolean.
    std::string stringValue() const;

    /// "c" for a Boolean, "q" for an integer, "d" for a double.
    const char* objCType() const;

    /// By value, exactly, also between integers and doubles. A Boolean equals no number; NaN equals
    /// nothing.
    friend bool operator==(const NSNumber& a, const NSNumber& b);

private:
    std::variant<bool, std::int64_t, double> content;
};

}  // namespace quorin
