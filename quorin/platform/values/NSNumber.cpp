#include "quorin/platform/values/NSNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace quorin {
namespace {

constexpr double twoToThe63rd = 9223372036854775808.0;

// A conversion of either operand would round, and so take neighbours for equal.
bool isSameNumber(std::int64_t integer, double number) {
    return number >= -twoToThe63rd && number < twoToThe63rd && std::trunc(number) == number &&
           static_cast<std::int64_t>(number) == integer;
}

}  // namespace

bool NSNumber::boolValue() const {
    return std::visit([](auto value) { return value != 0; }, content);
}

std::int64_t NSNumber::integerValue() const {
    const double* number = std::get_if<double>(&content);
    if (!number)
        return std::visit([](auto value) { return static_cast<std::int64_t>(value); }, content);

    using Limits = std::numeric_limits<std::int64_t>;
    if (std::isnan(*number))
        return 0;
    if (*number < -twoToThe63rd)
        return Limits::min();
    if (*number >= twoToThe63rd)
        return Limits::max();
    return static_cast<std::int64_t>(*number);
}

double NSNumber::doubleValue() const {
    return std::visit([](auto value) { return static_cast<double>(value); }, content);
}

std::string NSNumber::stringValue() const {
    const double* number = std::get_if<double>(&content);
    if (!number)
        return std::to_string(integerValue());
    if (std::isnan(*number))
        return "nan";             // whatever its sign bit says
    std::array<char, 32> buffer;  // the longest are 23 characters, as -2.225073858507201e-308
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), *number,
                                       std::chars_format::general, 16);
    return {buffer.data(), written.ptr};
}

const char* NSNumber::objCType() const {
    if (isBoolean())
        return "c";
    return isInteger() ? "q" : "d";
}

bool operator==(const NSNumber& a, const NSNumber& b) {
    if (a.isInteger() && b.isDouble())
        return isSameNumber(a.integerValue(), b.doubleValue());
    if (a.isDouble() && b.isInteger())
        return isSameNumber(b.integerValue(), a.doubleValue());
    return a.content == b.content;
}

}  // namespace quorin
