#pragma once

#include <concepts>
#include <memory>
#include <type_traits>
#include <typeinfo>

#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// A value of whatever type, to compare with: refers to it for the length of a call and must not
/// be kept. A value of another type is never equal, not even the integer 1 to the scalar 1.0.
class GeometricallyComparable {
public:
    template <typename Value>
    requires(!std::same_as<Value, GeometricallyComparable>)
        GeometricallyComparable(const Value& value)  // NOLINT: every value can be compared with
        : object(std::addressof(value)), type(&typeid(Value)) {}

    /// The value, or null when it is of another type.
    template <typename Value>
    const Value* as() const {
        return *type == typeid(Value) ? static_cast<const Value*>(object) : nullptr;
    }

private:
    const void* object;
    const std::type_info* type;
};

/// Whether `to` is of the same type and every component differs by less than `tolerant`.
bool isGeometricallyEqual(CGFloat self, GeometricallyComparable to, CGFloat tolerant);
bool isGeometricallyEqual(CGPoint self, GeometricallyComparable to, CGFloat tolerant);
bool isGeometricallyEqual(CGSize self, GeometricallyComparable to, CGFloat tolerant);
/// For rects the tolerance is `geometricEpsilon`, whatever is passed.
bool isGeometricallyEqual(const CGRect& self, GeometricallyComparable to, CGFloat tolerant);

/// Whether every component differs by less than `geometricEpsilon`.
bool isGeometoricallyEqual(CGPoint self, CGPoint to);
bool isGeometoricallyEqual(CGSize self, CGSize to);
bool isGeometoricallyEqual(const CGRect& self, const CGRect& to);

}  // namespace quorin
