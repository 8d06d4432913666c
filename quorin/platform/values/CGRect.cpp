#include "quorin/platform/values/CGRect.h"

#include <algorithm>
#include <limits>

namespace quorin {

namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat greatest = std::numeric_limits<CGFloat>::max();

/// One axis of a standardized rect.
struct Interval {
    CGFloat start, length;

    CGFloat end() const { return start + length; }
};

Interval horizontal(const CGRect& rect) { return {rect.origin.x, rect.size.width}; }
Interval vertical(const CGRect& rect) { return {rect.origin.y, rect.size.height}; }

CGRect rectOf(const Interval& x, const Interval& y) {
    return {{x.start, y.start}, {x.length, y.length}};
}

Interval standardized(const Interval& interval) {
    if (interval.length < 0)
        return {interval.end(), -interval.length};
    return interval;
}

/// From `start` to `end`, which are edges of `a` or `b`. When both are edges of one operand, that
/// operand comes back bit for bit: end - start would round.
Interval spanning(CGFloat start, CGFloat end, const Interval& a, const Interval& b) {
    for (const Interval& whole : {a, b})
        if (whole.start == start && whole.end() == end)
            return whole;
    return {start, end - start};
}

Interval unionOf(const Interval& a, const Interval& b) {
    return spanning(std::min(a.start, b.start), std::max(a.end(), b.end()), a, b);
}

Interval intersectionOf(const Interval& a, const Interval& b) {
    return spanning(std::max(a.start, b.start), std::min(a.end(), b.end()), a, b);
}

}  // namespace

const CGRect CGRectNull{{infinity, infinity}, {0, 0}};
const CGRect CGRectInfinite{{-greatest / 2, -greatest / 2}, {greatest, greatest}};

CGRect CGRectStandardize(const CGRect& rect) {
    return rectOf(standardized(horizontal(rect)), standardized(vertical(rect)));
}

CGFloat CGRectGetMinX(const CGRect& rect) { return standardized(horizontal(rect)).start; }
CGFloat CGRectGetMinY(const CGRect& rect) { return standardized(vertical(rect)).start; }
CGFloat CGRectGetMaxX(const CGRect& rect) { return standardized(horizontal(rect)).end(); }
CGFloat CGRectGetMaxY(const CGRect& rect) { return standardized(vertical(rect)).end(); }
CGFloat CGRectGetWidth(const CGRect& rect) { return standardized(horizontal(rect)).length; }
CGFloat CGRectGetHeight(const CGRect& rect) { return standardized(vertical(rect)).length; }

CGFloat CGRectGetMidX(const CGRect& rect) { return CGRectGetMinX(rect) + CGRectGetWidth(rect) / 2; }

CGFloat CGRectGetMidY(const CGRect& rect) {
    return CGRectGetMinY(rect) + CGRectGetHeight(rect) / 2;
}

bool CGRectIsNull(const CGRect& rect) {
    return rect.origin.x == infinity || rect.origin.y == infinity;
}

bool CGRectIsEmpty(const CGRect& rect) {
    return CGRectIsNull(rect) || rect.size.width == 0 || rect.size.height == 0;
}

bool CGRectIsInfinite(const CGRect& rect) { return rect == CGRectInfinite; }

CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(rect))
        return rect;
    CGRect inner = CGRectStandardize(rect);
    inner.origin.x += dx;
    inner.origin.y += dy;
    inner.size.width -= 2 * dx;
    inner.size.height -= 2 * dy;
    if (inner.size.width < 0 || inner.size.height < 0)
        return CGRectNull;
    return inner;
}

CGRect CGRectOffset(const CGRect& rect, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(rect))
        return rect;
    return {{rect.origin.x + dx, rect.origin.y + dy}, rect.size};
}

CGRect CGRectUnion(const CGRect& a, const CGRect& b) {
    const CGRect first = CGRectStandardize(a);
    const CGRect second = CGRectStandardize(b);
    if (CGRectIsNull(first))
        return second;
    if (CGRectIsNull(second))
        return first;
    return rectOf(unionOf(horizontal(first), horizontal(second)),
                  unionOf(vertical(first), vertical(second)));
}

CGRect CGRectIntersection(const CGRect& a, const CGRect& b) {
    const CGRect first = CGRectStandardize(a);
    const CGRect second = CGRectStandardize(b);
    if (CGRectIsNull(first) || CGRectIsNull(second))
        return CGRectNull;
    const Interval x = intersectionOf(horizontal(first), horizontal(second));
    const Interval y = intersectionOf(vertical(first), vertical(second));
    const bool overlap = x.length >= 0 && y.length >= 0;
    return overlap ? rectOf(x, y) : CGRectNull;
}

bool CGRectIntersectsRect(const CGRect& a, const CGRect& b) {
    return !CGRectIsNull(CGRectIntersection(a, b));
}

bool CGRectContainsRect(const CGRect& a, const CGRect& b) {
    return CGRectUnion(a, b) == CGRectStandardize(a);
}

bool CGRectContainsPoint(const CGRect& rect, CGPoint point) {
    if (CGRectIsEmpty(rect))
        return false;
    return CGRectGetMinX(rect) <= point.x && point.x < CGRectGetMaxX(rect) &&
           CGRectGetMinY(rect) <= point.y && point.y < CGRectGetMaxY(rect);
}

}  // namespace quorin
