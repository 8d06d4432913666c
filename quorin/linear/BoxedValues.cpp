#include "quorin/linear/BoxedValues.h"

#include <cmath>
#include <optional>
#include <string_view>

namespace quorin {
namespace {

std::optional<NSValue> boxIn(GeometricallyComparable to) {
    if (const auto* box = to.as<NSValue>())
        return *box;
    if (const auto* number = to.as<NSNumber>())
        return *number;
    if (const auto* value = to.as<Value>(); value && value->asNSValue())
        return *value->asNSValue();
    return std::nullopt;
}

bool areNumbersEqual(const NSNumber& a, const NSNumber& b) {
    constexpr double tolerance = 0.001;  // for numbers of every unit, and part of the contract
    return std::abs(a.doubleValue() - b.doubleValue()) < tolerance;
}

// The kind comes from the first value alone, so the second may turn out to be of another type.
template <typename Geometry>
bool areEqual(const std::optional<Geometry>& self, const std::optional<Geometry>& other,
              CGFloat tolerance) {
    return self && other && isGeometricallyEqual(*self, *other, tolerance);
}

}  // namespace

const char* ObjCRuntimeType(const Value* a, const Value* b) {
    if (!a || !b)
        return "Unknown";
    if (a->asNSNumber() && b->asNSNumber())
        return "Double";
    if (a->asColor() && b->asColor())
        return "CGColor";
    if (!a->asNSValue() || !b->asNSValue())
        return "Unknown";

    const std::string_view type = a->asNSValue()->objCType();
    if (type == NSValue::transform3DType)
        return "Transform";
    if (type == NSValue::rectType)
        return "CGRect";
    if (type == NSValue::pointType)
        return "CGPoint";
    if (type == NSValue::sizeType)
        return "CGSize";
    return "Unknown";
}

bool isTransform3DValue(const NSValue* value) {
    return value && std::string_view(value->objCType()) == NSValue::transform3DType;
}

bool isGeometricallyEqual(const NSValue& self, GeometricallyComparable to, CGFloat tolerant) {
    const std::optional<NSValue> other = boxIn(to);
    if (!other)
        return false;

    const Value a = self, b = *other;
    const std::string_view kind = ObjCRuntimeType(&a, &b);
    if (kind == "Double")
        return areNumbersEqual(*self.number(), *other->number());
    if (kind == "CGPoint")
        return areEqual(self.pointValue(), other->pointValue(), tolerant);
    if (kind == "CGSize")
        return areEqual(self.sizeValue(), other->sizeValue(), tolerant);
    if (kind == "CGRect")
        return areEqual(self.rectValue(), other->rectValue(), tolerant);
    return self == *other;
}

}  // namespace quorin
