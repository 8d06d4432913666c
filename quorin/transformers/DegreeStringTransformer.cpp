#include "quorin/transformers/DegreeStringTransformer.h"

#include "quorin/transformers/Degree.h"

namespace quorin {

Value DegreeStringTransformer::transformedValue(const Value& value) const {
    const auto radian = value.asNumber();
    if (!radian)
        return {};
    return NumberTransformer::transformedValue(Degree::withRadian(*radian).rawValue);
}

Value DegreeStringTransformer::reverseTransformedValue(const Value& value) const {
    const auto degrees = NumberTransformer::reverseTransformedValue(value).asNumber();
    return degrees ? Value(Degree(*degrees).radian()) : Value(0);
}

Value DegreeStringTransformer::incrementValue(const Value& value, double increments,
                                              double scale) const {
    return NumericalValueTransformer::incrementValue(value, Degree(increments).radian(), scale);
}

}  // namespace quorin
