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

    void append(CGFloat root) { values[count++] = root; }

private:
    std::array<CGFloat, 3> values;
    size_type count = 0;
};

namespace scalar {

std::optional<Roots> solveQuadratic(CGFloat a, CGFloat b, CGFloat c,
                                    std::optional<CGFloat> min = std::nullopt,
                                    std::optional<CGFloat> max = std::nullopt);

std::optional<Roots> solveCubic(CGFloat a, CGFloat b, CGFloat c, CGFloat d,
                                std::optional<CGFloat> min = std::nullopt,
                                std::optional<CGFloat> max = std::nullopt);

}  // namespace scalar
}  // namespace quorin
