#include "quorin/platform/cgpath/CornerPath.h"

#include <vector>

#include "tests/TestSupport.h"
#include "tests/platform/cgpath/Elements.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using namespace test;

TEST(PathWithCorners, runsFromCornerToCornerAndCloses) {
    const std::vector<CGPoint> corners{{0, 0}, {10, 0}, {5, 8}};
    EXPECT_THAT(elementsOf(*pathWithCorners(corners)),
                ElementsAre(moveTo({0, 0}), lineTo({10, 0}), lineTo({5, 8}), close()));
}

TEST(PathWithCorners, isEmptyWithoutPoints) { EXPECT_TRUE(pathWithCorners({})->isEmpty()); }

TEST(PathWithCorners, holdsASinglePoint) {
    const std::vector<CGPoint> corner{{3, 4}};
    EXPECT_THAT(elementsOf(*pathWithCorners(corner)), ElementsAre(moveTo({3, 4}), close()));
}

}  // namespace
}  // namespace quorin
