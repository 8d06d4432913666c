#pragma once

#include <concepts>
#include <cstdint>
#include <utility>
#include <variant>

namespace quorin {

/// A boxed number: a Boolean, a 64-bit integer or a double, as it was put in.
class NSNumber {
public:
    // All implicit: numbers box themselves.
    template <std::same_as<bool> Boolean>
    NSNumber(Boolean value) : content(value) {}
    /// A double when an unsigned integer is too large for the signed one.
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool>) NSNumber(Integer value)
        : content(static_cast<double>(value)) {
        if (std::in_range<std::int64_t>(value))
            content = static_cast<std::int64_t>(value);
    }
    template <std::floating_point Floating>
    NSNumber(Floating value) : content(static_cast<double>(value)) {}

    bool isBoolean() const { return std::holds_alternative<bool>(content); }
    bool isInteger() const { return std::holds_alternative<std::int64_t>(content); }
    bool isDouble() const { return std::holds_alternative<double>(content); }

    /// Whether it is not 0.
    bool boolValue() const;
    /// Without the fraction; beyond 64 bits the nearest end, and 0 for NaN.
    std::int64_t integerValue() const;
    /// A Boolean reads 0 or 1; an integer beyond 2^53 is rounded.
    double doubleValue() const;

    /// "c" for a Boolean, "q" for an integer, "d" for a double.
    const char* objCType() const;

    /// By value, exactly, also between integers and doubles. A Boolean equals no number; NaN equals
    /// nothing.
    friend bool operator==(const NSNumber& a, const NSNumber& b);

private:
    std::variant<bool, std::int64_t, double> content;
};

}  // namespace quorin
