#include "quorin/transformers/CornerRadiusTransformer.h"

#include <algorithm>
#include <optional>

#include "quorin/extensions/NSExceptionExtension.h"
#include "quorin/platform/foundation/NSExpression.h"
#include "quorin/platform/foundation/NSMultipleValuesMarker.h"
#include "quorin/platform/foundation/NSNumberFormatter.h"

namespace quorin {
namespace {

constexpr char separator = ';';
constexpr double shownIncrement = 0.1;

using Radii = std::vector<CGFloat>;
using KeyedRadii = NSKeyedType<Radii>;

std::optional<Radii> oneOrMoreRadii(const Value& value) {
    if (const auto radius = value.asNumber())
        return Radii{*radius};
    return KeyedRadii::from(value);
}

std::string joined(const NSNumberFormatter& formatter, const Radii& radii) {
    std::string text;
    bool isFirst = true;
    for (const CGFloat radius : radii) {
        const auto piece = formatter.string(radius);
        if (!piece)
            continue;
        if (!isFirst)
            text += separator;
        isFirst = false;
        text += *piece;
    }
    return text;
}

CGFloat typedRadius(std::string_view piece) {
    // No digit, no arithmetic: a text of a million semicolons would raise as many exceptions.
    if (piece.find_first_of("0123456789") == std::string_view::npos)
        return 0;
    CGFloat radius = 0;
    tryWithBlock([&] { radius = NSExpression::value(piece); }, /*error=*/nullptr);
    // Not std::max, which would let -0.0 through.
    return radius <= 0 ? 0 : radius;
}

/// The value with `change` done to each radius, or itself when it is no list of radii.
template <typename Change>
Value changingEach(const Value& value, const Change& change) {
    auto radii = KeyedRadii::from(value);
    if (!radii)
        return value;
    std::transform(radii->begin(), radii->end(), radii->begin(), change);
    return KeyedRadii::to(*radii);
}

}  // namespace

Value CornerRadiusTransformer::transformedValue(const Value& value) const {
    auto radii = oneOrMoreRadii(value);
    if (!radii)
        return "0";
    for (CGFloat& radius : *radii)
        radius *= pointScale();
    if (radii->empty())
        return NSMultipleValuesMarker::marker();

    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterStyle::decimal);
    formatter.setRoundingIncrement(shownIncrement);
    const auto isFirst = [&](CGFloat radius) { return radius == radii->front(); };
    if (!std::all_of(radii->begin(), radii->end(), isFirst))
        return joined(formatter, *radii);
    auto text = formatter.string(radii->front());
    return text ? Value(*std::move(text)) : Value();
}

Value CornerRadiusTransformer::reverseTransformedValue(const Value& value) const {
    const std::string* const text = value.asText();
    if (!text)
        return Value::List{0.0};
    Value::List radii;
    std::string_view rest = *text;
    while (true) {
        const std::size_t end = rest.find(separator);
        radii.emplace_back(typedRadius(rest.substr(0, end)) / pointScale());
        if (end == std::string_view::npos)
            return radii;
        rest.remove_prefix(end + 1);
    }
}

Value CornerRadiusTransformer::incrementValue(const Value& value, double increments,
                                              double scale) const {
    const double step = increments / pointScale();
    return changingEach(value, [&](CGFloat radius) { return stepped(radius, step, scale); });
}

Value CornerRadiusTransformer::clampValue(const Value& value, const ClosedRange<double>& to) const {
    return changingEach(value, [&](CGFloat radius) { return kept(radius, to); });
}

}  // namespace quorin
