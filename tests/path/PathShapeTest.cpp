#include <cmath>
#include <limits>

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Pairs = std::vector<std::pair<CGFloat, CGFloat>>;

std::shared_ptr<Path> polygon(std::initializer_list<CGPoint> points, bool isClosed = false) {
    auto path = Path::create();
    for (const CGPoint& point : points)
        path->segments().append(PathSegment(point, {}, {}, PointBehavior::straight));
    path->setIsClosed(isClosed);
    return path;
}

/// The x of the anchors of each pair that `iterateSegments` visits.
Pairs visitedPairs(const Path& path) {
    Pairs pairs;
    EXPECT_FALSE(path.iterateSegments([&](const PathSegment& a, const PathSegment& b) {
        pairs.emplace_back(a.point().x, b.point().x);
        return false;
    }));
    return pairs;
}

TEST(IterateSegments, visitsConsecutivePairs) {
    EXPECT_EQ(visitedPairs(*polygon({{1, 0}, {2, 0}, {3, 0}})), (Pairs{{1, 2}, {2, 3}}));
}

TEST(IterateSegments, visitsTheClosingPairLast) {
    EXPECT_EQ(visitedPairs(*polygon({{1, 0}, {2, 0}, {3, 0}}, true)),
              (Pairs{{1, 2}, {2, 3}, {3, 1}}));
    EXPECT_EQ(visitedPairs(*polygon({{1, 0}, {2, 0}}, true)), (Pairs{{1, 2}, {2, 1}}));
}

TEST(IterateSegments, visitsTheClosingPairBetweenEqualPoints) {
    EXPECT_EQ(visitedPairs(*polygon({{1, 0}, {2, 0}, {1, 0}}, true)).size(), 3u)
        << "the anchors differ in their indices";
}

TEST(IterateSegments, hasNoPairOfOneSegmentOrNone) {
    EXPECT_THAT(visitedPairs(*polygon({})), IsEmpty());
    EXPECT_THAT(visitedPairs(*polygon({}, true)), IsEmpty());
    EXPECT_THAT(visitedPairs(*polygon({{1, 0}})), IsEmpty());
    EXPECT_THAT(visitedPairs(*polygon({{1, 0}}, true)), IsEmpty());
}

TEST(IterateSegments, leavesOutAClosingPairOfEqualSegments) {
    const PathSegment corner({1, 0}, {}, {}, PointBehavior::straight);
    const PathSegment other({2, 0}, {}, {}, PointBehavior::straight);
    const auto path = Path::create();
    path->setIsClosed(true);
    path->setSegments(PathSegmentCollection({corner, other, corner}));
    EXPECT_EQ(visitedPairs(*path), (Pairs{{1, 2}, {2, 1}}));
}

TEST(IterateSegments, stopsAtTheFirstPairThatAnswersTrue) {
    const auto path = polygon({{1, 0}, {2, 0}, {3, 0}}, true);
    std::vector<CGFloat> visited;
    const auto stopAt = [&](CGFloat x) {
        visited.clear();
        return path->iterateSegments([&](const PathSegment& a, const PathSegment&) {
            visited.push_back(a.point().x);
            return a.point().x == x;
        });
    };
    EXPECT_TRUE(stopAt(1));
    EXPECT_THAT(visited, ElementsAre(1));
    EXPECT_TRUE(stopAt(2));
    EXPECT_THAT(visited, ElementsAre(1, 2));
    EXPECT_TRUE(stopAt(3)) << "the answer of the closing pair counts";
    EXPECT_FALSE(stopAt(4));
}

TEST(IterateSegments, handsOutSegmentsThatKnowTheirPlace) {
    const auto path = polygon({{1, 0}, {2, 0}}, true);
    int pairs = 0;
    path->iterateSegments([&](const PathSegment& a, const PathSegment& b) {
        EXPECT_EQ(a, path->segments()[pairs == 0 ? 0 : 1]);
        EXPECT_EQ(b, path->segments()[pairs == 0 ? 1 : 0]);
        EXPECT_EQ(a.path(), path);
        EXPECT_EQ(b.path(), path);
        ++pairs;
        return false;
    });
    EXPECT_EQ(pairs, 2);
}

TEST(PathShape, isClassifiedWithoutAllocating) {
    const auto path = polygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
    const std::size_t before = test::allocationCount();
    int pairs = 0;
    path->iterateSegments([&pairs](const PathSegment&, const PathSegment&) {
        ++pairs;
        return false;
    });
    const bool isStraight = path->isStraight();
    const bool isRectangle = path->isSimpleRectangle();
    const std::size_t after = test::allocationCount();
    EXPECT_EQ(after, before);
    EXPECT_EQ(pairs, 4);
    EXPECT_FALSE(isStraight);
    EXPECT_TRUE(isRectangle);
    EXPECT_LT(after, (Path::create(), test::allocationCount())) << "the counter counts";
}

TEST(IsStraight, needsACurve) {
    EXPECT_FALSE(polygon({})->isStraight());
    EXPECT_FALSE(polygon({{1, 1}})->isStraight());
    EXPECT_FALSE(polygon({{1, 1}}, true)->isStraight());
}

TEST(IsStraight, isTrueOfOneStraightCurve) {
    EXPECT_TRUE(polygon({{0, 0}, {10, 3}})->isStraight());
    EXPECT_TRUE(polygon({{5, 5}, {5, 5}})->isStraight()) << "even without length";
}

TEST(IsStraight, isFalseOfACurvedPath) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addLineTo({10, 0});
    path->addCurveTo({20, 0}, {13, 1}, {17, 1});
    EXPECT_FALSE(path->isStraight());
}

TEST(IsStraight, acceptsHandlesThatLieOnTheChord) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({10, 0}, {3, 0}, {7, 0});
    EXPECT_TRUE(path->isStraight());
}

TEST(IsStraight, isFalseOfCollinearControlsThatOvershoot) {
    const auto path = Path::create();
    path->moveTo({10.5, 0.5});
    path->addCurveTo({31, 0.5}, {11.5, 0.5}, {-25, 0.5});
    EXPECT_FALSE(path->isStraight());
}

TEST(IsStraight, followsEveryCurveInOneDirection) {
    EXPECT_TRUE(polygon({{0, 0}, {10, 5}, {30, 15}, {32, 16}})->isStraight());
    EXPECT_FALSE(polygon({{0, 0}, {10, 5}, {30, 15}, {32, 16.1}})->isStraight());
    EXPECT_FALSE(polygon({{0, 0}, {10, 5}, {30, 15}, {32, 15.9}})->isStraight());
    EXPECT_FALSE(polygon({{0, 0}, {10, 0}, {5, 0}})->isStraight()) << "it doubles back";
}

TEST(IsStraight, allowsATurnBelowATrillionthOfARadian) {
    EXPECT_TRUE(polygon({{0, 0}, {10, 0}, {20, 9e-12}})->isStraight());
    EXPECT_FALSE(polygon({{0, 0}, {10, 0}, {20, 1.1e-11}})->isStraight());
}

TEST(IsStraight, takesADirectionWithoutLengthAsItIs) {
    // The zero vector has angle 0 to everything: cross and dot product vanish.
    EXPECT_TRUE(polygon({{0, 0}, {10, 0}, {10, 0}, {20, 0}})->isStraight());
    EXPECT_TRUE(polygon({{0, 0}, {10, 0}, {10, 0}, {10, 20}})->isStraight())
        << "and so hides a corner";
}

TEST(IsStraight, isNeverTrueOfAClosedPathOfTwoOrMore) {
    EXPECT_FALSE(polygon({{0, 0}, {10, 0}}, true)->isStraight());
    EXPECT_FALSE(polygon({{0, 0}, {10, 0}, {20, 0}}, true)->isStraight());
}

class SimpleRectangle : public ::testing::Test {
protected:
    void change(std::size_t index, FunctionRef<void(PathSegment&)> body) {
        PathSegment segment = path->segments()[index];
        body(segment);
        path->segments().setAt(index, segment);
    }

    std::shared_ptr<Path> path = polygon({{0, 0}, {10, 0}, {10, 20}, {0, 20}}, true);
};

TEST_F(SimpleRectangle, isClosedUprightWithFourStraightCorners) {
    EXPECT_TRUE(path->isSimpleRectangle());
    path->setIsClosed(false);
    EXPECT_FALSE(path->isSimpleRectangle());
}

TEST_F(SimpleRectangle, hasExactlyFourAnchors) {
    EXPECT_FALSE(polygon({{0, 0}, {10, 0}, {10, 10}}, true)->isSimpleRectangle());
    EXPECT_FALSE(polygon({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}, true)->isSimpleRectangle());
}

TEST_F(SimpleRectangle, hasStraightAnchorsOnly) {
    change(2, [](PathSegment& corner) { corner.setBehavior(PointBehavior::disconnected); });
    change(2, [](PathSegment& corner) { corner.clearHandles(); });
    ASSERT_EQ(path->segments()[2].behavior(), PointBehavior::disconnected);
    EXPECT_FALSE(path->isSimpleRectangle());
}

TEST_F(SimpleRectangle, hasNoHandleHoweverSmall) {
    change(1, [](PathSegment& corner) { corner.setHandleIn({0.000001, 0}); });
    EXPECT_FALSE(path->isSimpleRectangle());
    change(1, [](PathSegment& corner) { corner.setHandleIn({0, 0}); });
    change(3, [](PathSegment& corner) { corner.setHandleOut({0, 5e-324}); });
    EXPECT_FALSE(path->isSimpleRectangle());
    change(3, [](PathSegment& corner) { corner.setHandleOut({-0.0, 0}); });
    EXPECT_TRUE(path->isSimpleRectangle());
}

TEST_F(SimpleRectangle, isExactlyUpright) {
    EXPECT_FALSE(polygon({{0, 0}, {10, 1e-15}, {10, 20}, {0, 20}}, true)->isSimpleRectangle());
    EXPECT_FALSE(polygon({{0, 0}, {10, 0}, {10, 20}, {1, 20}}, true)->isSimpleRectangle())
        << "the closing side counts";
}

TEST_F(SimpleRectangle, hasOneRadiusForAllCorners) {
    path->segments().transform([](PathSegment& corner) { corner.setRadius(5); });
    EXPECT_TRUE(path->isSimpleRectangle());
    change(3, [](PathSegment& corner) { corner.setRadius(5.000000000000001); });
    EXPECT_FALSE(path->isSimpleRectangle());
}

TEST_F(SimpleRectangle, mayShrinkToALineOrAPointButNotDoubleOneCorner) {
    const CGPoint a{0, 0}, b{10, 0}, c{0, 10};
    EXPECT_FALSE(polygon({a, b, b, c}, true)->isSimpleRectangle());
    EXPECT_FALSE(polygon({a, b, a, c}, true)->isSimpleRectangle()) << "upright, three places";
    EXPECT_FALSE(polygon({a, a, b, {20, 0}}, true)->isSimpleRectangle());
    EXPECT_TRUE(polygon({a, b, b, a}, true)->isSimpleRectangle());
    EXPECT_TRUE(polygon({a, b, a, b}, true)->isSimpleRectangle());
    EXPECT_TRUE(polygon({a, a, a, a}, true)->isSimpleRectangle());
    EXPECT_TRUE(polygon({a, b, {20, 0}, {30, 0}}, true)->isSimpleRectangle())
        << "four places in line are upright";
}

}  // namespace
}  // namespace quorin
