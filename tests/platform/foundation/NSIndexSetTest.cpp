#include "quorin/platform/foundation/NSIndexSet.h"

#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(NSIndexSet, holdsEachPlaceOnceInAscendingOrder) {
    const auto set = NSIndexSet::create({5, 0, 3, 5, 0});
    EXPECT_THAT(set->indexes(), testing::ElementsAre(0, 3, 5));
    EXPECT_EQ(set->count(), 3u);
    EXPECT_TRUE(set->contains(3));
    EXPECT_FALSE(set->contains(4));
    EXPECT_EQ(set->description(), "{0, 3, 5}");
    EXPECT_EQ(NSIndexSet::create({})->description(), "{}");
}

TEST(NSIndexSet, equalsAnotherSetOfTheSamePlacesOnly) {
    const auto set = NSIndexSet::create({2, 1});
    EXPECT_TRUE(set->isEqual(*NSIndexSet::create({1, 2})));
    EXPECT_FALSE(set->isEqual(*NSIndexSet::create({1})));
    EXPECT_FALSE(set->isEqual(*NSNull::null()));
}

TEST(NSNull, isOneObject) {
    EXPECT_EQ(NSNull::null(), NSNull::null());
    EXPECT_EQ(NSNull::null()->description(), "<null>");
}

}  // namespace
}  // namespace quorin
