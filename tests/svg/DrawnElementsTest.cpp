#include "quorin/svg/DrawnElements.h"

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "tests/TestSupport.h"
#include "tests/svg/DrawnText.h"

namespace quorin {
namespace {

using test::drawnText;

std::shared_ptr<Path> path(std::initializer_list<PathSegment> segments, bool isClosed) {
    std::shared_ptr<Path> result = Path::create();
    for (const PathSegment& segment : segments)
        result->segments().append(segment);
    result->setIsClosed(isClosed);
    return result;
}

PathSegment anchor(CGPoint point, CGPoint handleIn = {}, CGPoint handleOut = {}) {
    return {point, handleIn, handleOut, PointBehavior::disconnected};
}

TEST(DrawnElements, areWhatThePlatformPathDraws) {
    const auto open = path({anchor({0, 0}, {9, 9}, {1, 1}), anchor({5, 0}), anchor({5, 5})}, false);
    EXPECT_EQ(drawnText(*open), "M 0,0 C 1,1 5,0 5,0 L 5,5");
    EXPECT_EQ(drawnText(*open), drawnText(*open->cg()));
    const auto closed = path({anchor({0, 0}, {-1, 1}), anchor({5, 0}), anchor({5, 5})}, true);
    EXPECT_EQ(drawnText(*closed), "M 0,0 L 5,0 L 5,5 C 5,5 -1,1 0,0 Z");
    EXPECT_EQ(drawnText(*closed), drawnText(*closed->cg()));
}

TEST(DrawnElements, leaveOutContoursThatDrawNothing) {
    EXPECT_EQ(drawnText(*path({}, false)), "");
    EXPECT_EQ(drawnText(*path({}, true)), "");
    EXPECT_EQ(drawnText(*path({anchor({1, 2})}, false)), "");
    EXPECT_EQ(drawnText(*path({anchor({1, 2}, {3, 3}, {4, 4})}, true)), "M 1,2 Z");
}

TEST(DrawnElements, takeHandlesLostInRoundingForLines) {
    EXPECT_EQ(drawnText(*path({anchor({1, 1}, {}, {1e-30, 0}), anchor({5, 1}, {0, 1e-20})}, false)),
              "M 1,1 L 5,1");
}

TEST(DrawnElements, followTheAnchorsOfAPathThatKeepsItsPlatformPath) {
    CGMutablePath twoContours;
    twoContours.moveTo({0, 0});
    twoContours.addQuadCurveTo({6, 0}, {3, 3});
    twoContours.moveTo({9, 9});
    twoContours.addLineTo({8, 8});
    const auto kept = Path::create(twoContours.take());
    EXPECT_EQ(drawnText(*kept), "M 0,0 C 2,2 2,2 6,0 L 8,8");
}

}  // namespace
}  // namespace quorin
