#include "quorin/geometry/BitComparison.h"

#include <cmath>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat denormal = std::numeric_limits<CGFloat>::denorm_min();

const CGFloat corners[] = {0.0, -0.0, denormal, -denormal, 1e-13,       -1e-13,     1e-12, -1e-12,
                           0.5, -0.5, 1.0,      -1.0,      2.0,         -2.0,       1e300, -1e300,
                           nan, -nan, infinity, -infinity, 1 - 0x1p-53, 1 + 0x1p-52};

TEST(IsMagnitudeBelow, agreesWithTheArithmeticComparison) {
    for (const CGFloat x : corners)
        for (const CGFloat bound : {denormal, 1e-12, 1.0, 1e300}) {
            SCOPED_TRACE(testing::Message() << x << " below " << bound);
            EXPECT_EQ(isMagnitudeBelow(x, bound), std::abs(x) < bound);
        }
}

TEST(IsInsideUnitInterval, agreesWithTheArithmeticComparison) {
    for (const CGFloat x : corners) {
        SCOPED_TRACE(x);
        EXPECT_EQ(isInsideUnitInterval(x), x > 0 && x < 1);
    }
}

RC_GTEST_PROP(IsInsideUnitInterval, agreesForAnyBits, (std::uint64_t bits)) {
    const CGFloat x = std::bit_cast<CGFloat>(bits);
    RC_ASSERT(isInsideUnitInterval(x) == (x > 0 && x < 1));
    RC_ASSERT(isMagnitudeBelow(x, 1e-12) == (std::abs(x) < 1e-12));
}

}  // namespace
}  // namespace quorin
