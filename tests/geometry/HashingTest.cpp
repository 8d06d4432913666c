#include "quorin/geometry/Hashing.h"

#include <set>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(HashOf, isTheSameForEqualValues) {
    EXPECT_EQ(hashOf(1.5, std::string("a")), hashOf(1.5, std::string("a")));
    EXPECT_EQ(hashOf(0.0, 1.0), hashOf(-0.0, 1.0));
}

TEST(HashOf, countsTheOrder) { EXPECT_NE(hashOf(1.0, 2.0), hashOf(2.0, 1.0)); }

TEST(HashOf, keepsTheSmallWholeNumbersApart) {
    std::set<std::size_t> hashes;
    for (int x = -20; x <= 20; ++x)
        for (int y = -20; y <= 20; ++y)
            hashes.insert(hashOf(static_cast<double>(x), static_cast<double>(y)));
    EXPECT_EQ(hashes.size(), 41u * 41u);
}

}  // namespace
}  // namespace quorin
