#include "apps/quorin/AxisTicks.h"

#include <cmath>
#include <string>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using app::AxisTicks;
using testing::ElementsAreArray;

std::vector<std::string> textsOf(const AxisTicks& ticks) {
    std::vector<std::string> texts;
    for (const CGFloat place : ticks.places())
        texts.push_back(ticks.text(place));
    return texts;
}

TEST(AxisTicks, standAtRoundNumbersWithTheDigitsTheyNeed) {
    struct Row {
        CGFloat from, to;
        std::size_t most;
        std::vector<std::string> texts;
    };
    const Row table[] = {
        {0, 1, 5, {"0.0", "0.2", "0.4", "0.6", "0.8", "1.0"}},
        {0, 1, 2, {"0.0", "0.5", "1.0"}},
        {0, 0.7, 7, {"0.0", "0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7"}},
        {-0.3, 1.2, 4, {"0.0", "0.5", "1.0"}},
        {-12, 31, 5, {"-10", "0", "10", "20", "30"}},
        {0, 0.04, 4, {"0.00", "0.01", "0.02", "0.03", "0.04"}},
        {0, 1000, 2, {"0", "500", "1000"}},
        {0, 3e-8, 3, {"0", "1e-08", "2e-08", "3e-08"}},
        {0, 4e9, 2, {"0", "2e+09", "4e+09"}},
        {0, 1, 0, {"0", "1"}},
        {0.2, 0.3, 1, {"0.2", "0.3"}},
    };
    for (const auto& [from, to, most, texts] : table) {
        SCOPED_TRACE(texts.back());
        EXPECT_THAT(textsOf(AxisTicks(from, to, most)), ElementsAreArray(texts));
    }
}

RC_GTEST_PROP(AxisTicks, lieBetweenTheEndsAndNotTooDense, ()) {
    const CGFloat from = *rc::gen::inRange(-1'000'000, 1'000'000) / 997.0;
    const CGFloat length = *rc::gen::inRange(1, 1'000'000) / 991.0;
    const auto most = static_cast<std::size_t>(*rc::gen::inRange(1, 30));
    const AxisTicks ticks(from, from + length, most);
    RC_ASSERT(ticks.places().size() <= most + 1);
    // A step is at most two and a half times what would just do.
    RC_ASSERT(ticks.places().size() + 1 >= most * 2 / 5);
    for (const CGFloat place : ticks.places()) {
        RC_ASSERT(place >= from);
        RC_ASSERT(place <= from + length);
        RC_ASSERT(std::abs(std::stod(ticks.text(place)) - place) <= 1e-6 * length);
    }
}

}  // namespace
}  // namespace quorin
