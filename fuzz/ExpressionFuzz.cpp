// Arbitrary bytes are evaluated: they come to a number or are refused in some column, and what has
// a value keeps it within parentheses and between blanks.

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/FuzzSupport.h"
#include "quorin/platform/foundation/NSExpression.h"
#include "quorin/platform/foundation/PlatformException.h"

namespace quorin::fuzz {
namespace {

std::optional<double> valueOf(std::string_view text) {
    try {
        return NSExpression::value(text);
    } catch (const PlatformException& exception) {
        expect(exception.reason().starts_with("column "), "a reason names the column");
        return std::nullopt;
    }
}

bool isSame(double a, double b) {
    return std::isnan(a) ? std::isnan(b)
                         : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

std::string wrapped(std::string_view before, std::string_view text, std::string_view after) {
    std::string result(before);
    return result.append(text).append(after);
}

void evaluate(std::string_view text) {
    const std::optional<double> value = valueOf(text);
    if (!value) {
        expect(!valueOf(wrapped(" ", text, "\n")), "blanks mend nothing");
        return;
    }
    expect(isSame(*valueOf(wrapped("\t", text, " ")), *value), "blanks change nothing");
    const std::optional<double> bracketed = valueOf(wrapped("(", text, ")"));
    const bool isDeep = text.find('(') != std::string_view::npos;
    expect(bracketed || isDeep, "parentheses are allowed");
    expect(!bracketed || isSame(*bracketed, *value), "parentheses change nothing");
    const std::optional<double> negative = valueOf(wrapped("-(", text, ")"));
    expect(!negative || isSame(*negative, -*value), "a minus changes the sign");
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quorin::fuzz::evaluate({reinterpret_cast<const char*>(data), size});
    return 0;
}
