#include "quorin/platform/cgpath/CGPath.h"

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "tests/TestSupport.h"
#include "tests/platform/cgpath/Elements.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using namespace test;

TEST(CGPath, numbersTheKindsOfElementsAsThePlatformDoes) {
    EXPECT_EQ(static_cast<int>(CGPathElementType::moveToPoint), 0);
    EXPECT_EQ(static_cast<int>(CGPathElementType::addLineToPoint), 1);
    EXPECT_EQ(static_cast<int>(CGPathElementType::addQuadCurveToPoint), 2);
    EXPECT_EQ(static_cast<int>(CGPathElementType::addCurveToPoint), 3);
    EXPECT_EQ(static_cast<int>(CGPathElementType::closeSubpath), 4);
}

TEST(CGPath, appliesToEveryElementInOrderControlsBeforeTheEnd) {
    CGMutablePath builder;
    builder.moveTo({1, 2});
    builder.addLineTo({3, 4});
    builder.addQuadCurveTo({7, 8}, {5, 6});
    builder.addCurveTo({13, 14}, {9, 10}, {11, 12});
    builder.closeSubpath();
    const auto path = builder.take();
    EXPECT_EQ(path->elementCount(), 5u);
    EXPECT_FALSE(path->isEmpty());
    EXPECT_THAT(elementsOf(*path),
                ElementsAre(moveTo({1, 2}), lineTo({3, 4}), quadTo({5, 6}, {7, 8}),
                            curveTo({9, 10}, {11, 12}, {13, 14}), close()));
}

TEST(CGPath, withoutElementsIsEmpty) {
    const auto path = CGMutablePath().take();
    EXPECT_TRUE(path->isEmpty());
    EXPECT_EQ(path->elementCount(), 0u);
    EXPECT_THAT(elementsOf(*path), ElementsAre());
}

std::shared_ptr<const CGPath> lineFrom(CGPoint p1, CGPoint p2) {
    CGMutablePath builder;
    builder.moveTo(p1);
    builder.addLineTo(p2);
    return builder.take();
}

TEST(CGPath, isEqualWhenElementsAndPointsAreExactly) {
    EXPECT_EQ(*lineFrom({0, 0}, {1, 1}), *lineFrom({0, -0.0}, {1, 1}));
    EXPECT_FALSE(*lineFrom({0, 0}, {1, 1}) == *lineFrom({0, 0}, {1, 1 + 1e-15}));
}

TEST(CGPath, withTheSamePointsInOtherElementsDiffers) {
    CGMutablePath moves;
    moves.moveTo({0, 0});
    moves.moveTo({1, 1});
    EXPECT_FALSE(*moves.take() == *lineFrom({0, 0}, {1, 1}));
}

}  // namespace
}  // namespace quorin
