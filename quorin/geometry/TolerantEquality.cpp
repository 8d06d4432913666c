#include "quorin/geometry/TolerantEquality.h"

#include <cmath>

#include "quorin/geometry/Scalar.h"

namespace quorin {
namespace {

bool areWithin(CGFloat tolerance, CGFloat a, CGFloat b) { return std::abs(a - b) < tolerance; }

bool areWithin(CGFloat tolerance, CGPoint a, CGPoint b) {
    return areWithin(tolerance, a.x, b.x) && areWithin(tolerance, a.y, b.y);
}

bool areWithin(CGFloat tolerance, CGSize a, CGSize b) {
    return areWithin(tolerance, a.width, b.width) && areWithin(tolerance, a.height, b.height);
}

template <typename Value>
bool isSameWithin(CGFloat tolerance, const Value& self, GeometricallyComparable to) {
    const Value* other = to.as<Value>();
    return other && areWithin(tolerance, self, *other);
}

}  // namespace

bool isGeometricallyEqual(CGFloat self, GeometricallyComparable to, CGFloat tolerant) {
    return isSameWithin(tolerant, self, to);
}

bool isGeometricallyEqual(CGPoint self, GeometricallyComparable to, CGFloat tolerant) {
    return isSameWithin(tolerant, self, to);
}

bool isGeometricallyEqual(CGSize self, GeometricallyComparable to, CGFloat tolerant) {
    return isSameWithin(tolerant, self, to);
}

bool isGeometricallyEqual(const CGRect& self, GeometricallyComparable to, CGFloat /*tolerant*/) {
    const CGRect* other = to.as<CGRect>();
    return other && isGeometoricallyEqual(self, *other);
}

bool isGeometoricallyEqual(CGPoint self, CGPoint to) {
    return areWithin(scalar::geometricEpsilon, self, to);
}

bool isGeometoricallyEqual(CGSize self, CGSize to) {
    return areWithin(scalar::geometricEpsilon, self, to);
}

bool isGeometoricallyEqual(const CGRect& self, const CGRect& to) {
    return isGeometoricallyEqual(self.origin, to.origin) &&
           isGeometoricallyEqual(self.size, to.size);
}

}  // namespace quorin
