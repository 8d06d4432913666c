#include "quorin/geometry/RectHandles.h"

#include <limits>

#include "quorin/geometry/Finiteness.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;

TEST(HandlePoints, areTheCornersThenTheMiddlesOfTheEdges) {
    EXPECT_THAT(handlePoints(CGRectMake(0, 0, 10, 20)),
                ElementsAre(CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{10, 20}, CGPoint{0, 20},
                            CGPoint{5, 0}, CGPoint{10, 10}, CGPoint{5, 20}, CGPoint{0, 10}));
}

TEST(HandlePoints, goByTheStoredFieldsOfANegativeSize) {
    EXPECT_THAT(handlePoints(CGRectMake(1, 2, -10, -20)),
                ElementsAre(CGPoint{1, 2}, CGPoint{-9, 2}, CGPoint{-9, -18}, CGPoint{1, -18},
                            CGPoint{-4, 2}, CGPoint{-9, -8}, CGPoint{-4, -18}, CGPoint{1, -8}));
}

TEST(SetPosition, placesTheBottomRightCorner) {
    CGRect rect = CGRectMake(1, 2, 10, 20);
    setPosition(rect, {100, 100}, RectCorner::bottomRight);
    EXPECT_EQ(rect, CGRectMake(90, 80, 10, 20));
}

TEST(SetPosition, placesEveryCornerAndEdge) {
    struct Row {
        RectCorner corner;
        CGPoint origin;
    };
    const Row table[] = {
        {RectCorner::topLeft, {100, 200}},    {RectCorner::topRight, {90, 200}},
        {RectCorner::bottomRight, {90, 180}}, {RectCorner::bottomLeft, {100, 180}},
        {RectCorner::top, {95, 200}},         {RectCorner::right, {90, 190}},
        {RectCorner::bottom, {95, 180}},      {RectCorner::left, {100, 190}},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(static_cast<int>(row.corner));
        CGRect rect = CGRectMake(1, 2, 10, 20);
        setPosition(rect, {100, 200}, row.corner);
        EXPECT_EQ(rect, CGRectMake(row.origin.x, row.origin.y, 10, 20));
    }
}

TEST(SetPosition, keepsANegativeSize) {
    CGRect rect = CGRectMake(1, 2, -10, -20);
    setPosition(rect, {100, 200}, RectCorner::bottom);
    EXPECT_EQ(rect, CGRectMake(105, 220, -10, -20));
}

TEST(AnchorPoint, isInUnitsOfTheRect) {
    const CGRect rect = CGRectMake(10, 20, 40, 80);
    EXPECT_EQ(anchorPoint(rect, {10, 20}), (CGPoint{0, 0}));
    EXPECT_EQ(anchorPoint(rect, {50, 100}), (CGPoint{1, 1}));
    EXPECT_EQ(anchorPoint(rect, {0, 40}), (CGPoint{-0.25, 0.25}));
    EXPECT_EQ(anchorPoint(CGRectMake(10, 20, -40, -80), {0, 40}), (CGPoint{0.25, -0.25}));
}

TEST(AnchorPoint, ofARectWithoutSizeIsZero) {
    EXPECT_EQ(anchorPoint(CGRectMake(3, 4, 0, 0), {10, 20}), CGPoint::zero);
    EXPECT_EQ(anchorPoint(CGRectMake(3, 4, 9e-13, -9e-13), {10, 20}), CGPoint::zero);
    EXPECT_EQ(anchorPoint(CGRectMake(0, 0, 1e-12, 9e-13), {1e-12, 9e-13}), (CGPoint{1, 1}))
        << "the tolerance itself is a size";
}

TEST(AnchorPoint, ofARectWithoutWidthHasNoFiniteX) {
    const CGPoint beside = anchorPoint(CGRectMake(3, 4, 0, 5), {10, 9});
    EXPECT_EQ(beside.x, std::numeric_limits<CGFloat>::infinity());
    EXPECT_EQ(beside.y, 1);
    EXPECT_TRUE(std::isnan(anchorPoint(CGRectMake(3, 4, 0, 5), {3, 9}).x));
    EXPECT_TRUE(std::isinf(anchorPoint(CGRectMake(3, 4, 5, 0), {10, 9}).y));
}

RC_GTEST_PROP(SetPosition, putsTheHandleOnThePoint, ()) {
    const auto number = rc::gen::inRange(-1000, 1001);  // halves are exact
    CGRect rect = CGRectMake(*number, *number, *number, *number);
    const CGSize size = rect.size;
    const CGPoint point{1.0 * *number, 1.0 * *number};
    const int corner = *rc::gen::inRange(0, 8);
    setPosition(rect, point, static_cast<RectCorner>(corner));
    RC_ASSERT((handlePoints(rect)[static_cast<std::size_t>(corner)] == point));
    RC_ASSERT((rect.size == size));
}

}  // namespace
}  // namespace quorin
