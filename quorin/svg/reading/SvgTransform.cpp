#include "quorin/svg/reading/SvgTransform.h"

#include <array>
#include <cmath>
#include <numbers>

#include "quorin/geometry/Scalar.h"
#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

constexpr std::size_t mostArguments = 6;

struct Arguments {
    std::array<CGFloat, mostArguments> values{};
    std::size_t count = 0;
};

CGAffineTransform rotation(CGFloat degrees) {
    // Icons turn by quarters, and a cosine of 6e-17 would turn their straight lines into slopes.
    const CGFloat turns = std::fmod(degrees, 360.0) / 90;
    if (turns == std::trunc(turns)) {
        constexpr std::array<CGFloat, 4> sines = {0, 1, 0, -1};
        const auto quarter = static_cast<std::size_t>(turns < 0 ? turns + 4 : turns) % 4;
        const CGFloat sine = sines[quarter];
        const CGFloat cosine = sines[(quarter + 1) % 4];
        return {cosine, sine, -sine, cosine, 0, 0};
    }
    return CGAffineTransformMakeRotation(degrees * scalar::radiansPerDegree);
}

CGAffineTransform rotationAround(CGFloat degrees, CGPoint center) {
    const CGAffineTransform there = CGAffineTransformMakeTranslation(-center.x, -center.y);
    const CGAffineTransform back = CGAffineTransformMakeTranslation(center.x, center.y);
    return CGAffineTransformConcat(CGAffineTransformConcat(there, rotation(degrees)), back);
}

CGFloat tangentOfDegrees(CGFloat degrees) { return std::tan(degrees * scalar::radiansPerDegree); }

/// Nothing when there is no such function or it does not take that many arguments.
std::optional<CGAffineTransform> transformOf(std::string_view name, const Arguments& arguments) {
    const auto& v = arguments.values;
    const std::size_t count = arguments.count;
    if (name == "matrix" && count == 6)
        return CGAffineTransform{v[0], v[1], v[2], v[3], v[4], v[5]};
    if (name == "translate" && (count == 1 || count == 2))
        return CGAffineTransformMakeTranslation(v[0], v[1]);
    if (name == "scale" && (count == 1 || count == 2))
        return CGAffineTransformMakeScale(v[0], count == 1 ? v[0] : v[1]);
    if (name == "rotate" && count == 1)
        return rotation(v[0]);
    if (name == "rotate" && count == 3)
        return rotationAround(v[0], {v[1], v[2]});
    if (name == "skewX" && count == 1)
        return CGAffineTransform{1, 0, tangentOfDegrees(v[0]), 1, 0, 0};
    if (name == "skewY" && count == 1)
        return CGAffineTransform{1, tangentOfDegrees(v[0]), 0, 1, 0, 0};
    return std::nullopt;
}

/// How many degrees or user units the unit stands for; nothing for an unknown one.
std::optional<CGFloat> unitFactor(std::string_view unit) {
    if (unit.empty() || unit == "px" || unit == "deg")
        return 1;
    if (unit == "rad")
        return 180 / std::numbers::pi;
    if (unit == "grad")
        return 0.9;
    if (unit == "turn")
        return 360;
    return std::nullopt;
}

class TransformParser {
public:
    explicit TransformParser(std::string_view text) : scanner(text) {}

    SvgTransformResult parse() {
        SvgTransformResult result;
        scanner.skipSpace();
        while (!scanner.isAtEnd()) {
            const std::optional<CGAffineTransform> next = parseFunction();
            if (!next)
                return {CGAffineTransform::identity, error, errorOffset};
            result.transform = CGAffineTransformConcat(*next, result.transform);
            scanner.skipCommaSpace();
        }
        return result;
    }

private:
    std::nullopt_t fail(std::size_t offset, std::string message) {
        error = std::move(message);
        errorOffset = offset;
        return std::nullopt;
    }

    std::optional<CGAffineTransform> parseFunction() {
        const std::size_t start = scanner.offset();
        const std::string name(scanner.word());
        if (name.empty())
            return fail(start, "expected the name of a transform");
        scanner.skipSpace();
        if (!scanner.take('('))
            return fail(scanner.offset(), "expected '(' after " + name);

        const std::optional<Arguments> arguments = parseArguments();
        if (!arguments)
            return std::nullopt;
        const std::optional<CGAffineTransform> transform = transformOf(name, *arguments);
        if (!transform)
            return fail(start, "there is no " + name + " of " + std::to_string(arguments->count) +
                                   " arguments");
        return transform;
    }

    std::optional<Arguments> parseArguments() {
        Arguments arguments;
        scanner.skipSpace();
        while (!scanner.take(')')) {
            const std::optional<CGFloat> number = scanner.number();
            if (!number || arguments.count == mostArguments)
                return fail(scanner.offset(), number ? "expected ')'" : "expected a number");
            const std::size_t unitStart = scanner.offset();
            const std::optional<CGFloat> factor = unitFactor(unitAfterNumber());
            if (!factor)
                return fail(unitStart, "unknown unit");
            arguments.values[arguments.count++] = *number * *factor;
            scanner.skipCommaSpace();
        }
        return arguments;
    }

    /// A sign belongs to the next number: "scale(1-1)".
    std::string_view unitAfterNumber() {
        const char c = scanner.peek();
        return (c >= 'a' && c <= 'z') ? scanner.word() : std::string_view();
    }

    SvgScanner scanner;
    std::optional<std::string> error;
    std::size_t errorOffset = 0;
};

}  // namespace

SvgTransformResult parseSvgTransform(std::string_view text) {
    if (trimmedSvgSpace(text) == "none")
        return {};
    return TransformParser(text).parse();
}

CGFloat meanScale(const CGAffineTransform& t) { return std::sqrt(std::abs(t.a * t.d - t.b * t.c)); }

CGFloat unevenness(const CGAffineTransform& t) {
    // Half the sum and half the difference of the axes of the ellipse, whichever is which.
    const CGFloat one = std::hypot(t.a + t.d, t.b - t.c) / 2;
    const CGFloat other = std::hypot(t.a - t.d, t.b + t.c) / 2;
    return (one + other) / std::abs(one - other);
}

}  // namespace quorin
