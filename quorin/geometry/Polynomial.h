#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// At most three real roots, held in place: solving allocates nothing.
class Roots {
public:
    using value_type = CGFloat;
    using const_iterator = const CGFloat*;
    using iterator = const_iterator;
    using size_type = std::size_t;

    const_iterator begin() const { return values.data(); }
    const_iterator end() const { return values.data() + count; }
    size_type size() const { return count; }
    bool empty() const { return count == 0; }
    CGFloat operator[](size_type index) const { return values[index]; }

    /// A fourth root does not fit.
    void append(CGFloat root) { values[count++] = root; }

private:
    std::array<CGFloat, 3> values{};
    size_type count = 0;
};

namespace scalar {

/// The real roots of a·x² + b·x + c: none, one, or two different ones, larger magnitude first.
/// Nothing at all means that every x is a root, all coefficients being below `epsilon`.
///
/// With bounds, of which either may be absent, a root counts when it lies in the open interval
/// from `min` - 1e-12 to `max` + 1e-12, and is moved into [min, max]. Two roots that differ are
/// both given, even when a bound makes them equal.
///
/// A discriminant within `machineEpsilon` of zero counts as a double root. Coefficients have no
/// unit; one that is not finite gives no roots, and no root is ever infinite or NaN.
///
/// Source: W. Kahan, "On the Cost of Floating-Point Computation Without Extra-Precise
/// Arithmetic", 2004, for the discriminant and for taking the second root as c / R.
std::optional<Roots> solveQuadratic(CGFloat a, CGFloat b, CGFloat c,
                                    std::optional<CGFloat> min = std::nullopt,
                                    std::optional<CGFloat> max = std::nullopt);

/// The real roots of a·x³ + b·x² + c·x + d, each given once, in ascending order. Bounds, their
/// margin and coefficients that are not finite are treated as by `solveQuadratic`.
///
/// A leading coefficient below `epsilon` leaves the answer, and its order, to `solveQuadratic`.
/// So nothing at all means again that all coefficients are below `epsilon`.
///
/// The roots are those of the polynomial as it stands: each is right to 1e-12 of the interval's
/// width, or of its own magnitude where that is less, as far as doubles lie that close. This holds
/// also when two roots nearly coincide, when the leading coefficient is tiny, and when a third root
/// is far away. Where the polynomial turns back so close to zero that the last bits of its
/// coefficients could make it touch, the turn is a root.
std::optional<Roots> solveCubic(CGFloat a, CGFloat b, CGFloat c, CGFloat d,
                                std::optional<CGFloat> min = std::nullopt,
                                std::optional<CGFloat> max = std::nullopt);

}  // namespace scalar
}  // namespace quorin
