#pragma once

#include <cmath>

#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

/// Questions about, and repair of, numbers that are not finite.
namespace quorin {

inline bool isNaN(CGPoint p) { return std::isnan(p.x) || std::isnan(p.y); }
inline bool isInfinite(CGPoint p) { return std::isinf(p.x) || std::isinf(p.y); }
inline bool isFinite(CGPoint p) { return std::isfinite(p.x) && std::isfinite(p.y); }

inline bool isNaN(CGSize s) { return std::isnan(s.width) || std::isnan(s.height); }
inline bool isInfinite(CGSize s) { return std::isinf(s.width) || std::isinf(s.height); }
inline bool isFinite(CGSize s) { return std::isfinite(s.width) && std::isfinite(s.height); }

inline bool isNaN(const CGRect& r) { return isNaN(r.origin) || isNaN(r.size); }
/// Neither NaN anywhere nor `CGRectInfinite`; the null rect, whose origin is infinite, counts.
inline bool isFinite(const CGRect& r) { return !isNaN(r) && !CGRectIsInfinite(r); }

/// A number to calculate on with: NaN becomes 0, +∞ the greatest finite number, and −∞ the least
/// positive normal number, a tiny positive value and not the most negative one.
inline CGFloat finite(CGFloat x) {
    if (std::isnan(x))
        return 0;
    if (std::isinf(x))
        return x > 0 ? scalar::greatestFinite : scalar::leastNormal;
    return x;
}

inline CGPoint finite(CGPoint p) { return {finite(p.x), finite(p.y)}; }
inline CGSize finite(CGSize s) { return {finite(s.width), finite(s.height)}; }
inline CGRect finite(const CGRect& r) { return {finite(r.origin), finite(r.size)}; }

inline void formFinite(CGFloat& x) { x = finite(x); }
inline void formFinite(CGPoint& p) { p = finite(p); }
inline void formFinite(CGSize& s) { s = finite(s); }
inline void formFinite(CGRect& r) { r = finite(r); }

}  // namespace quorin
