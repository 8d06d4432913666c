#include "quorin/transformers/DegreeRadianTransformer.h"

#include "quorin/transformers/Degree.h"

namespace quorin {

Value DegreeRadianTransformer::transformedValue(const Value& value) const {
    const auto radian = value.asNumber();
    return radian ? Value(Degree::withRadian(*radian).rawValue) : Value();
}

Value DegreeRadianTransformer::reverseTransformedValue(const Value& value) const {
    const auto degrees = value.asNumber();
    return degrees ? Value(Degree(*degrees).radian()) : Value();
}

}  // namespace quorin
