#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

std::shared_ptr<Path> square(bool isClosed) {
    auto path = Path::create();
    for (const CGPoint& point : {CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{10, 10}, CGPoint{0, 10}})
        path->segments().append({point, {}, {}, PointBehavior::straight});
    path->setIsClosed(isClosed);
    return path;
}

TEST(PathLength, sumsTheLengthsOfTheCurves) {
    EXPECT_EQ(square(false)->length(), 30);
    EXPECT_EQ(square(true)->length(), 40) << "with the closing curve";
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 20; ++i) {
        const auto path = random.path(5, i % 2 == 0);
        CGFloat sum = 0;
        for (const PathCurve& curve : path->curves())
            sum += curve.length();
        EXPECT_EQ(path->length(), sum);
    }
}

TEST(PathLength, isNothingWithoutCurves) {
    const auto path = Path::create();
    EXPECT_EQ(path->length(), 0);
    EXPECT_EQ(path->length(1e-9).length, 0);
    EXPECT_EQ(path->length(1e-9).accuracy, 0);
    path->moveTo({3, 4});
    path->closePath();
    EXPECT_EQ(path->length(), 0);
    EXPECT_EQ(path->length(1e-9).length, 0);
}

TEST(PathLength, isAsAccurateAsAskedOverAllCurves) {
    RandomCurves random(CurveKind::cusps);
    for (int i = 0; i < 4; ++i) {
        const auto path = random.path(4, i % 2 == 0);
        long double truth = 0;
        for (const PathCurve& curve : path->curves())
            truth += CurveTruth(curve.cubic()).length();
        for (const CGFloat accuracy : {1.0, 1e-3, 1e-6}) {
            const auto [length, reached] = path->length(accuracy);
            EXPECT_LE(reached, accuracy);
            EXPECT_NEAR(length, static_cast<CGFloat>(truth), reached + 1e-11);
        }
    }
}

TEST(PathLength, standsCurvesWithoutLength) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    for (const CGPoint& point :
         {CGPoint{0, 0}, CGPoint{0, 0}, CGPoint{0, 0}, CGPoint{5, 0}, CGPoint{5, 8}, CGPoint{0, 8},
          CGPoint{0, 0}, CGPoint{0, 0}, CGPoint{0, 0}})
        path->addLineTo(point);
    path->closePath();
    EXPECT_EQ(path->length(), 26);
    EXPECT_NEAR(path->length(1e-9).length, 26, 1e-9);
    path->closePath();
    EXPECT_EQ(path->length(), 26) << "closed twice";
    path->moveTo({100, 100});
    EXPECT_EQ(path->length(), 26) << "a move after the start does nothing";
}

TEST(PathLength, countsTheWayBackOfAPathClosedBeforeItWasDrawn) {
    const auto path = Path::create();
    path->closePath();
    path->moveTo({0, 0});
    path->addLineTo({5, 0});
    EXPECT_EQ(path->length(), 10);
}

}  // namespace
}  // namespace quorin
