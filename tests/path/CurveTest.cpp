#include "quorin/path/Curve.h"

#include <limits>
#include <type_traits>

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;

const PathCurve arch({0, 0}, {0, 10}, {0, 10}, {10, 0});

TEST(PathCurve, isBornFreeStanding) {
    EXPECT_EQ(arch.index(), std::nullopt);
    EXPECT_EQ(arch.path(), nullptr);
}

TEST(PathCurve, takesControlPointsAsHandlesFromTheirAnchors) {
    const auto curve = PathCurve::withControlPoints({1, 2}, {4, 6}, {10, 9}, {11, 12});
    EXPECT_EQ(curve.p1(), (CGPoint{1, 2}));
    EXPECT_EQ(curve.h1(), (CGPoint{3, 4}));
    EXPECT_EQ(curve.h2(), (CGPoint{-1, -3}));
    EXPECT_EQ(curve.p2(), (CGPoint{11, 12}));
    EXPECT_EQ(curve.index(), std::nullopt);
    EXPECT_EQ(curve.path(), nullptr);
}

TEST(PathCurve, listsAnchorsAndControlPointsInOrder) {
    EXPECT_THAT(arch.points(),
                ElementsAre(CGPoint{0, 0}, CGPoint{0, 10}, CGPoint{10, 10}, CGPoint{10, 0}));
}

TEST(PathCurve, pointsItsVectorFromTheEndBackToTheStart) {
    const PathCurve curve({1, 2}, {}, {}, {11, 5});
    EXPECT_EQ(curve.vector(), Vector2(-10, -3));
}

TEST(PathCurve, storesTheFirstControlPointRelativeToTheStart) {
    PathCurve curve({1, 2}, {}, {}, {11, 2});
    curve.setC1({4, 6});
    EXPECT_EQ(curve.h1(), (CGPoint{3, 4}));
    EXPECT_EQ(curve.c1(), (CGPoint{4, 6}));
}

TEST(PathCurve, storesTheSecondControlPointRelativeToTheStartToo) {
    PathCurve curve({0, 0}, {}, {}, {10, 0});
    curve.setC2({8, 0});
    EXPECT_EQ(curve.h2(), (CGPoint{8, 0}));
    EXPECT_EQ(curve.c2(), (CGPoint{18, 0}));

    PathCurve away({1, 2}, {}, {}, {11, 2});
    away.setC2({9, 5});
    EXPECT_EQ(away.h2(), (CGPoint{8, 3})) << "from p1, not from the origin";
}

TEST(PathCurve, forgetsLengthAndBoundsWithEverySetter) {
    struct Row {
        const char* says;
        void (*change)(PathCurve&);
    };
    const Row table[] = {
        {"p1",
         [](PathCurve& curve) {
             curve.setP1({-5, 0});
         }},
        {"h1",
         [](PathCurve& curve) {
             curve.setH1({0, 20});
         }},
        {"h2",
         [](PathCurve& curve) {
             curve.setH2({0, 20});
         }},
        {"p2",
         [](PathCurve& curve) {
             curve.setP2({15, 0});
         }},
        {"c1",
         [](PathCurve& curve) {
             curve.setC1({0, 20});
         }},
        {"c2",
         [](PathCurve& curve) {
             curve.setC2({0, 20});
         }},
    };
    for (const auto& [says, change] : table) {
        SCOPED_TRACE(says);
        PathCurve curve = arch;
        const CGFloat length = curve.length();
        const CGRect bounds = curve.bounds();
        change(curve);
        EXPECT_NE(curve.length(), length);
        EXPECT_EQ(curve.length(), curve.lengthNoCache());
        EXPECT_NE(curve.bounds(), bounds);
        EXPECT_EQ(curve.bounds(), curve.cubic().bounds());
    }
}

TEST(PathCurve, measuresTheSameWithAndWithoutCache) {
    const CGFloat fresh = arch.lengthNoCache();
    EXPECT_EQ(arch.length(), fresh);
    EXPECT_EQ(arch.length(), fresh) << "from the cache";
    EXPECT_EQ(arch.lengthNoCache(), fresh);
}

TEST(PathCurve, printsTheFourStoredPoints) {
    const PathCurve curve({0, 0.5}, {3, -4}, {-1e-5, 0}, {10, 1e20});
    EXPECT_EQ(curve.description(), "(0.0, 0.5) (3.0, -4.0) (-1e-05, 0.0) (10.0, 1e+20)");
}

TEST(PathCurve, equalsCurvesWhosePointsAreNearlyEqual) {
    struct Row {
        const char* says;
        CGFloat difference;
        bool areEqual;
    };
    const Row table[] = {
        {"well within", 1e-13, true},
        {"within", 0.999e-12, true},
        {"exactly at the tolerance", 1e-12, false},
        {"beyond", 1e-11, false},
    };
    for (const auto& [says, difference, areEqual] : table) {
        SCOPED_TRACE(says);
        // At zero, where the difference is exact.
        const PathCurve plain;
        const CGPoint alongX{difference, 0}, alongY{0, -difference};
        for (const CGPoint d : {alongX, alongY}) {
            for (const PathCurve& other : {PathCurve(d, {}, {}, {}), PathCurve({}, d, {}, {}),
                                           PathCurve({}, {}, d, {}), PathCurve({}, {}, {}, d)}) {
                EXPECT_EQ(plain == other, areEqual);
                EXPECT_EQ(other == plain, areEqual);
                EXPECT_EQ(isNearlyEqual(plain, other), areEqual);
            }
        }
    }
}

TEST(PathCurve, equalsWhateverItsPlaceAndCaches) {
    const auto path = Path::create();
    const PathCurve placed(arch.cubic(), path, 3);
    EXPECT_EQ(placed.index(), 3);
    EXPECT_EQ(placed.path(), path);
    EXPECT_GT(placed.length(), 0);
    EXPECT_TRUE(placed == PathCurve(arch.cubic()));
}

TEST(PathCurve, doesNotKeepItsPathAlive) {
    auto path = Path::create();
    const PathCurve placed(arch.cubic(), path, 0);
    path = nullptr;
    EXPECT_EQ(placed.path(), nullptr);
    EXPECT_EQ(placed.index(), 0);
}

TEST(PathCurveTime, comparesByValueAndConverts) {
    EXPECT_EQ(PathCurveTime::start.rawValue, 0);
    EXPECT_EQ(PathCurveTime::end.rawValue, 1);
    EXPECT_EQ(PathCurveTime(0.25), PathCurveTime(0.25));
    EXPECT_NE(PathCurveTime(0.25), PathCurveTime(0.5));
    EXPECT_LT(PathCurveTime(0.25), PathCurveTime(0.5));
    EXPECT_FALSE(PathCurveTime(0.5) < PathCurveTime(0.5));
    EXPECT_EQ(static_cast<CGFloat>(PathCurveTime(0.25)), 0.25);
}

TEST(PathCurveOffset, comparesByValueAndConverts) {
    EXPECT_EQ(PathCurveOffset(3), PathCurveOffset(3));
    EXPECT_NE(PathCurveOffset(3), PathCurveOffset(4));
    EXPECT_LT(PathCurveOffset(-1), PathCurveOffset(0));
    EXPECT_EQ(static_cast<CGFloat>(PathCurveOffset(7.5)), 7.5);
    static_assert(!std::is_same_v<PathCurve::Time, PathCurve::Offset>);
}

}  // namespace
}  // namespace quorin
