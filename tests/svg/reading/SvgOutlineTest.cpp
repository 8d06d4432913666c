#include "quorin/svg/reading/SvgOutline.h"

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/svg/reading/PathData.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"
#include "tests/svg/DrawnText.h"

namespace quorin {
namespace {

using test::drawnText;
using ::testing::SizeIs;

std::shared_ptr<CompoundPath> outline(std::string_view pathData,
                                      const CGAffineTransform& transform = {}) {
    return editableOutline(*parsePathData(pathData).path, transform);
}

TEST(SvgOutline, hasAChildForEachContour) {
    const auto ring = outline("M0 0L9 0L9 9ZM2 2L3 2L3 3ZM5 5L6 6");
    ASSERT_THAT(ring->children(), SizeIs(3));
    EXPECT_TRUE(ring->children()[0]->isClosed());
    EXPECT_TRUE(ring->children()[1]->isClosed());
    EXPECT_FALSE(ring->children()[2]->isClosed());
    EXPECT_EQ(drawnText(*ring->children()[1]), "M 2,2 L 3,2 L 3,3 L 2,2 Z");
}

TEST(SvgOutline, keepsAContourThatIsOnePointClosed) {
    const auto dot = outline("M1 2Z");
    ASSERT_THAT(dot->children(), SizeIs(1));
    EXPECT_EQ(drawnText(*dot), "M 1,2 Z");
}

TEST(SvgOutline, foldsTheAnchorThatRepeatsTheFirst) {
    const auto folded = outline("M0 0L9 0L9 9L0 0Z");
    EXPECT_EQ(folded->children()[0]->segments().count(), 3u);
    EXPECT_EQ(drawnText(*folded), drawnText(*outline("M0 0L9 0L9 9Z")));
    const auto curved = outline("M0 0C1 1 2 2 9 0C8 8 7 7 0 0Z");
    EXPECT_EQ(curved->children()[0]->segments().count(), 2u);
    EXPECT_EQ(drawnText(*curved), "M 0,0 C 1,1 2,2 9,0 C 8,8 7,7 0,0 Z");
}

TEST(SvgOutline, appliesTheTransformToEveryPoint) {
    const CGAffineTransform transform{0, 2, -2, 0, 10, 20};
    EXPECT_EQ(drawnText(*outline("M1 2C3 4 5 6 7 8L9 10", transform)),
              "M 6,22 C 2,26 -2,30 -6,34 L -10,38");
}

TEST(SvgOutline, elevatesQuadraticsExactly) {
    CGMutablePath path;
    path.moveTo({0, 0});
    path.addQuadCurveTo({6, 0}, {3, 3});
    EXPECT_EQ(drawnText(*editableOutline(*path.take(), {})), "M 0,0 C 2,2 4,2 6,0");
}

TEST(SvgOutline, infersHowHandlesAreCoupled) {
    const auto path = outline("M0 0C1 1 2 0 3 0C4 0 5 5 6 6C7 8 9 9 9 0L0 9")->children()[0];
    const auto behaviorOf = [&](std::size_t index) { return path->segments()[index].behavior(); };
    EXPECT_EQ(behaviorOf(0), PointBehavior::disconnected);
    EXPECT_EQ(behaviorOf(1), PointBehavior::mirrored);
    EXPECT_EQ(behaviorOf(2), PointBehavior::disconnected);
    EXPECT_EQ(behaviorOf(3), PointBehavior::disconnected);
    EXPECT_EQ(behaviorOf(4), PointBehavior::straight);
    EXPECT_EQ(path->segments()[1].path(), path);
    EXPECT_EQ(path->segments()[1].index(), 1);
}

TEST(SvgOutline, makesRectanglesThatAnEditorKnows) {
    EXPECT_TRUE(outline("M1 1H5V4H1Z")->children()[0]->isSimpleRectangle());
    EXPECT_TRUE(outline("M1 1H5V4H1V1Z")->children()[0]->isSimpleRectangle());
    EXPECT_FALSE(outline("M1 1H5V4H2Z")->children()[0]->isSimpleRectangle());
}

TEST(SvgOutline, isNothingWithoutContoursOrOutOfRange) {
    EXPECT_EQ(outline(""), nullptr);
    EXPECT_EQ(outline("M1e300 0L0 0", {1e100, 0, 0, 1, 0, 0}), nullptr);
    // The points are finite, the handle between them is not.
    EXPECT_EQ(outline("M-1.7e308 0C1.7e308 0 0 0 1 1"), nullptr);
}

}  // namespace
}  // namespace quorin
