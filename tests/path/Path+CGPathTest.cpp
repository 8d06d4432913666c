#include <cmath>
#include <limits>

#include "quorin/path/Path.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// "M" and so on with the points of the element.
std::vector<std::string> elementsOf(const CGPath& cg) {
    std::vector<std::string> elements;
    cg.apply([&](const CGPathElement& element) {
        std::string text(1, "MLQCZ"[static_cast<std::size_t>(element.type)]);
        for (const CGPoint& point : element.points)
            text += " " + textForm(point);
        elements.push_back(text);
    });
    return elements;
}

std::shared_ptr<Path> polygon(std::initializer_list<CGPoint> points) {
    auto path = Path::create();
    for (const CGPoint& point : points)
        path->segments().append(PathSegment(point, {}, {}, PointBehavior::straight));
    return path;
}

TEST(PathCg, isEmptyWithoutSegments) {
    const auto path = Path::create();
    EXPECT_THAT(elementsOf(*path->cg()), IsEmpty());
    path->closePath();
    EXPECT_THAT(elementsOf(*path->cg()), IsEmpty());
}

TEST(PathCg, movesToTheOnlyAnchorOfAnOpenPath) {
    EXPECT_THAT(elementsOf(*polygon({{3, 4}})->cg()), ElementsAre("M (3.0, 4.0)"));
}

TEST(PathCg, movesAndClosesForAClosedPathOfOneSegment) {
    const auto path = polygon({{3, 4}});
    path->closePath();
    EXPECT_THAT(elementsOf(*path->cg()), ElementsAre("M (3.0, 4.0)", "Z"));
}

TEST(PathCg, drawsLinesBetweenAnchorsWithoutHandlesAndCurvesOtherwise) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addLineTo({10, 0});
    path->addCurveTo({20, 0}, {13, 5}, {17, 5});
    EXPECT_THAT(elementsOf(*path->cg()), ElementsAre("M (0.0, 0.0)", "L (10.0, 0.0)",
                                                     "C (13.0, 5.0) (17.0, 5.0) (20.0, 0.0)"));
}

TEST(PathCg, drawsACurveForTheLeastHandleAtEitherEnd) {
    const CGFloat least = std::numeric_limits<CGFloat>::denorm_min();
    for (const bool isOut : {true, false}) {
        const auto path = polygon({{0, 0}, {10, 0}});
        PathSegment segment = path->segments()[isOut ? 0 : 1];
        isOut ? segment.setHandleOut({0, least}) : segment.setHandleIn({least, 0});
        path->segments().setAt(isOut ? 0 : 1, segment);
        EXPECT_THAT(elementsOf(*path->cg())[1], ::testing::StartsWith("C")) << isOut;
    }
}

TEST(PathCg, drawsALineForHandlesOfNegativeZero) {
    const auto path = polygon({{0, 0}, {10, 0}});
    PathSegment segment = path->segments()[0];
    segment.setHandleOut({-0.0, -0.0});
    path->segments().setAt(0, segment);
    EXPECT_THAT(elementsOf(*path->cg()), ElementsAre("M (0.0, 0.0)", "L (10.0, 0.0)"));
}

TEST(PathCg, drawsTheClosingPieceBeforeItCloses) {
    const auto path = polygon({{0, 0}, {10, 0}, {10, 10}});
    path->setIsClosed(true);
    EXPECT_THAT(elementsOf(*path->cg()), ElementsAre("M (0.0, 0.0)", "L (10.0, 0.0)",
                                                     "L (10.0, 10.0)", "L (0.0, 0.0)", "Z"));
    PathSegment last = path->segments()[2];
    last.setHandleOut({-2, 0});
    path->segments().setAt(2, last);
    EXPECT_THAT(elementsOf(*path->cg()),
                ElementsAre("M (0.0, 0.0)", "L (10.0, 0.0)", "L (10.0, 10.0)",
                            "C (8.0, 10.0) (0.0, 0.0) (0.0, 0.0)", "Z"));
}

TEST(PathCg, leavesCornerRadiiOut) {
    const auto path = polygon({{0, 0}, {10, 0}, {10, 10}});
    const auto sharp = elementsOf(*path->cg());
    path->segments().transform([](PathSegment& segment) { segment.setRadius(3); });
    EXPECT_EQ(elementsOf(*path->cg()), sharp);
}

TEST(PathCg, isBuiltOnceUntilTheNextEdit) {
    const auto path = polygon({{0, 0}, {10, 0}});
    const auto first = path->cg();
    EXPECT_EQ(path->cg(), first);
    path->addLineTo({10, 10});
    EXPECT_NE(path->cg(), first);
    EXPECT_EQ(first->elementCount(), 2u) << "who holds the old one keeps it as it was";
}

TEST(PathFromCGPath, isTheGivenObjectsUntilTheFirstEdit) {
    CGMutablePath outline;
    outline.moveTo({0, 0});
    outline.addQuadCurveTo({6, 0}, {3, 3});
    const std::shared_ptr<const CGPath> given = outline.take();
    const auto path = Path::create(given);
    EXPECT_EQ(path->cg(), given);
    path->addLineTo({9, 9});
    EXPECT_NE(path->cg(), given);
}

TEST(PathFromCGPath, readsEveryKindOfElement) {
    CGMutablePath outline;
    outline.moveTo({0, 0});
    outline.addLineTo({10, 0});
    outline.addCurveTo({10, 10}, {12, 3}, {12, 7});
    outline.closeSubpath();
    const auto path = Path::create(outline.take());
    EXPECT_TRUE(path->isClosed());
    path->invalidatePathCache();
    EXPECT_THAT(elementsOf(*path->cg()),
                ElementsAre("M (0.0, 0.0)", "L (10.0, 0.0)",
                            "C (12.0, 3.0) (12.0, 7.0) (10.0, 10.0)", "L (0.0, 0.0)", "Z"));
}

TEST(PathFromCGPath, bendsAQuadraticWithBothControlsAtOnePoint) {
    CGMutablePath outline;
    outline.moveTo({0, 0});
    outline.addQuadCurveTo({6, 0}, {3, 3});
    const auto path = Path::create(outline.take());
    ASSERT_EQ(path->segments().count(), 2u);
    EXPECT_EQ(path->segments()[0].controlPointOut(), (CGPoint{2, 2}));
    EXPECT_EQ(path->segments()[1].controlPointIn(), (CGPoint{2, 2}));
}

TEST(PathFromCGPath, measuresAQuadraticFromTheAnchorBefore) {
    CGMutablePath outline;
    outline.moveTo({30, 60});
    outline.addQuadCurveTo({90, 60}, {60, 0});
    const auto path = Path::create(outline.take());
    // (2 (60, 0) + (30, 60)) / 3
    EXPECT_EQ(path->segments()[0].controlPointOut(), (CGPoint{50, 20}));
    EXPECT_EQ(path->segments()[1].controlPointIn(), (CGPoint{50, 20}));
}

TEST(PathFromCGPath, skipsAQuadraticWithoutAnAnchorBefore) {
    const CGPoint points[] = {{3, 3}, {6, 0}};
    const auto path = Path::create();
    path->addElement({CGPathElementType::addQuadCurveToPoint, points});
    EXPECT_TRUE(path->segments().isEmpty());
}

TEST(PathFromCGPath, hasOneContourWhateverMovesFollow) {
    CGMutablePath outline;
    outline.moveTo({0, 0});
    outline.addLineTo({10, 0});
    outline.moveTo({50, 50});
    outline.addLineTo({10, 10});
    const auto path = Path::create(outline.take());
    path->invalidatePathCache();
    EXPECT_THAT(elementsOf(*path->cg()),
                ElementsAre("M (0.0, 0.0)", "L (10.0, 0.0)", "L (10.0, 10.0)"));
}

TEST(PathFromCGPath, foldsTheClosingAnchor) {
    CGMutablePath outline;
    outline.moveTo({0, 0});
    outline.addLineTo({10, 0});
    outline.addLineTo({10, 10});
    outline.addLineTo({0, 0});
    outline.closeSubpath();
    EXPECT_EQ(Path::create(outline.take())->segments().count(), 3u);
}

TEST(PathFromCGPath, diesOfAnUnknownElement) {
    const auto path = Path::create();
    EXPECT_DEATH(path->addElement({static_cast<CGPathElementType>(5), {}}),
                 R"(Not implemented.*Path\+CGPath)");
}

RC_GTEST_PROP(PathFromCGPath, givesBackTheElementsOfAnOpenContour, ()) {
    const auto coordinate = rc::gen::map(rc::gen::inRange(-1000, 1001),
                                         [](int number) { return static_cast<CGFloat>(number); });
    const auto kinds = *rc::gen::container<std::vector<bool>>(rc::gen::arbitrary<bool>());
    CGMutablePath outline;
    outline.moveTo({*coordinate, *coordinate});
    for (const bool isCurve : kinds) {
        const CGPoint end{*coordinate, *coordinate};
        // Controls half a unit off the whole numbers never coincide with an anchor.
        if (isCurve)
            outline.addCurveTo(end, {*coordinate + 0.5, *coordinate}, {*coordinate + 0.5, 0});
        else
            outline.addLineTo(end);
    }
    const std::shared_ptr<const CGPath> given = outline.take();
    const auto path = Path::create(given);
    path->invalidatePathCache();
    RC_ASSERT(elementsOf(*path->cg()) == elementsOf(*given));
}

}  // namespace
}  // namespace quorin
