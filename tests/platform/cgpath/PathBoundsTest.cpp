#include <thread>
#include <vector>

#include "quorin/geometry/CubicBounds.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "tests/TestSupport.h"
#include "tests/platform/cgpath/Elements.h"
#include "tests/platform/cgpath/RandomOutlines.h"

namespace quorin {
namespace {

using ::testing::DoubleNear;
using namespace test;

TEST(PathBoundingBox, ofAnEmptyPathIsNull) {
    const auto path = CGMutablePath().take();
    EXPECT_TRUE(CGRectIsNull(path->pathBoundingBox()));
    EXPECT_TRUE(CGRectIsNull(path->boundingBox()));
}

TEST(PathBoundingBox, ofMovesAloneIsTheBoxOfTheirPoints) {
    CGMutablePath builder;
    builder.moveTo({3, 4});
    EXPECT_EQ(builder.copy()->pathBoundingBox(), CGRectMake(3, 4, 0, 0));
    builder.moveTo({5, 9});
    EXPECT_EQ(builder.copy()->pathBoundingBox(), CGRectMake(3, 4, 2, 5));
}

TEST(PathBoundingBox, leavesOutMovesThatDrawNothingBesideSomethingDrawn) {
    CGMutablePath builder;
    builder.moveTo({-100, -100});
    builder.moveTo({0, 0});
    builder.addLineTo({1, 2});
    builder.moveTo({100, 100});
    const auto path = builder.take();
    EXPECT_EQ(path->pathBoundingBox(), CGRectMake(0, 0, 1, 2));
    EXPECT_EQ(path->boundingBox(), CGRectMake(-100, -100, 200, 200));
}

TEST(PathBoundingBox, countsAPointThatIsClosed) {
    CGMutablePath builder;
    builder.moveTo({7, 8});
    builder.closeSubpath();
    builder.moveTo({9, 9});
    EXPECT_EQ(builder.take()->pathBoundingBox(), CGRectMake(7, 8, 0, 0));
}

TEST(PathBoundingBox, isTightAroundCurvesWhereTheControlBoxIsNot) {
    CGMutablePath builder;
    builder.moveTo({0, 0});
    builder.addQuadCurveTo({2, 0}, {1, 2});
    builder.addCurveTo({0, 0}, {2, -4}, {0, -4});
    const auto path = builder.take();
    EXPECT_EQ(path->pathBoundingBox(), CGRectMake(0, -3, 2, 4));
    EXPECT_EQ(path->boundingBox(), CGRectMake(0, -4, 2, 6));
}

TEST(PathBoundingBox, ofAnEllipseIsItsRect) {
    CGMutablePath builder;
    builder.addEllipseInRect(CGRectMake(1, 2, 6, 4));
    const CGRect box = builder.take()->pathBoundingBox();
    EXPECT_THAT(box.origin.x, DoubleNear(1, 1e-15));
    EXPECT_THAT(box.origin.y, DoubleNear(2, 1e-15));
    EXPECT_THAT(box.size.width, DoubleNear(6, 1e-14));
    EXPECT_THAT(box.size.height, DoubleNear(4, 1e-14));
}

TEST(PathBoundingBox, goesOnWithinASubpathAfterItsClose) {
    CGMutablePath builder;
    builder.addRect(CGRectMake(0, 0, 1, 1));
    builder.addLineTo({-5, 3});
    EXPECT_EQ(builder.take()->pathBoundingBox(), CGRectMake(-5, 0, 6, 3));
}

// Each curve reaches beyond the ends of all before it, and the last ones beyond all ends.
TEST(PathBoundingBox, isTheSameHoweverManyCurvesGrowIt) {
    CGMutablePath builder;
    builder.moveTo({0, 0});
    Bounds plain;
    for (int index = 0; index < 500; ++index) {
        const CGPoint current = builder.currentPoint();
        const CGPoint next{current.x + 1, index % 7 * -0.5};
        const CGPoint first{current.x + 9, 5 + index * 0.01}, second{current.x + 7, -9};
        builder.addCurveTo(next, first, second);
        extendByCubic(plain, current, first, second, next);
    }
    EXPECT_EQ(builder.take()->pathBoundingBox(), plain.rect());
}

TEST(PathBoundingBox, isTheSameForEveryThreadThatAsksFirst) {
    RandomOutlines random(OutlineKind::scribble);
    const auto path = random.path(300);
    std::vector<CGRect> boxes(4);
    std::vector<std::thread> threads;
    for (CGRect& box : boxes)
        threads.emplace_back([&] { box = path->pathBoundingBox(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const CGRect& box : boxes)
        EXPECT_EQ(box, path->pathBoundingBox());
}

}  // namespace
}  // namespace quorin
