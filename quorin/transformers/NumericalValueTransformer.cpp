#include "quorin/transformers/NumericalValueTransformer.h"

#include <cmath>

namespace quorin {

double NumericalValueTransformer::stepped(double number, double step, double scale) {
    const double size = std::abs(step);
    return size * std::round((step * scale + number) / size);
}

double NumericalValueTransformer::kept(double number, const ClosedRange<double>& within) {
    const double lowered = number > within.upper ? within.upper : number;
    return lowered <= within.lower ? within.lower : lowered;
}

Value NumericalValueTransformer::incrementValue(const Value& value, double increments,
                                                double scale) const {
    const auto number = value.asNumber();
    return number ? Value(stepped(*number, increments, scale)) : value;
}

Value NumericalValueTransformer::clampValue(const Value& value,
                                            const ClosedRange<double>& to) const {
    const auto number = value.asNumber();
    return number ? Value(kept(*number, to)) : value;
}

}  // namespace quorin
