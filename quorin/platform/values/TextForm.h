#pragma once

#include <concepts>
#include <optional>
#include <string>

#include "quorin/platform/values/CGGeometry.h"

/// The texts in which descriptions print plain values.
namespace quorin {

/// The shortest digits that read back to `number`, always with a fraction or an exponent: `1.0`,
/// `-0.0`, `0.1`, `1e-05`, `inf`, `-inf`, `nan`. Exponents serve below 1e-4 and above 2^53 in
/// magnitude, where doubles no longer hold every whole number.
std::string textForm(CGFloat number);

template <std::integral Integer>
std::string textForm(Integer number) {
    return std::to_string(number);
}

/// `(1.0, 2.0)`.
std::string textForm(CGPoint point);

/// `Optional(3)`, or `nil` when there is none.
template <typename Wrapped>
std::string textForm(const std::optional<Wrapped>& value) {
    if (!value)
        return "nil";
    std::string text = "Optional(";
    return text.append(textForm(*value)).append(")");
}

}  // namespace quorin
