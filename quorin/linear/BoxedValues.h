#pragma once

#include "quorin/geometry/TolerantEquality.h"
#include "quorin/platform/values/NSValue.h"
#include "quorin/platform/values/Value.h"

/// Values whose type is known only while running, as they are compared and interpolated.
namespace quorin {

// C linkage, so that a host can look both up in a shared library by name.
extern "C" {
/// The kind of two values that are about to be compared or interpolated: "Double" for two numbers,
/// "CGColor" for two colours; for two boxes "Transform", "CGRect", "CGPoint" or "CGSize" as the
/// type of the first alone says. "Unknown" for everything else, null pointers included.
///
/// A Boolean counts as a number here. A number is a box as well, of no kind that has a name.
const char* ObjCRuntimeType(const Value* a, const Value* b);

/// Whether the box holds a 3D transform; not for a null pointer.
bool isTransform3DValue(const NSValue* value);
}

/// Whether `to` is a box, an `NSValue` or a `NSNumber` by itself or in a `Value`, of an equal
/// value. Two numbers have to differ by less than 0.001, whatever the tolerance; points, sizes and
/// rects are compared as such with the tolerance; all others have to be exactly equal.
bool isGeometricallyEqual(const NSValue& self, GeometricallyComparable to, CGFloat tolerant);
/// Transforms are no geometry to compare within a tolerance, though they can be boxed.
bool isGeometricallyEqual(const CATransform3D&, GeometricallyComparable, CGFloat) = delete;

}  // namespace quorin
