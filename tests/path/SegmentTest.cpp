#include "quorin/path/Segment.h"

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::dropsCache;
using ::testing::ElementsAre;

const PathSegment bent({10, 20}, {1, 2}, {3, 4}, PointBehavior::disconnected);

std::shared_ptr<Path> lineTo(CGPoint end) {
    auto path = Path::create();
    path->moveTo({0, 0});
    path->addLineTo(end);
    return path;
}

TEST(PathSegment, isBornFreeStandingWithoutRadius) {
    EXPECT_EQ(bent.path(), nullptr);
    EXPECT_EQ(bent.index(), std::nullopt);
    EXPECT_EQ(bent.radius(), 0);
}

TEST(PathSegment, storesHandlesThatItsBehaviorWouldNotAllow) {
    const PathSegment odd({0, 0}, {1, 2}, {3, 4}, PointBehavior::straight);
    EXPECT_EQ(odd.handleIn(), (CGPoint{1, 2}));
    EXPECT_EQ(odd.handleOut(), (CGPoint{3, 4}));
    EXPECT_FALSE(odd.hasHandles()) << "the behaviour decides, not the handles";
    EXPECT_TRUE(PathSegment({0, 0}, {}, {}, PointBehavior::mirrored).hasHandles());
}

TEST(PathSegment, storesPathAndIndexGivenToIt) {
    const auto path = Path::create();
    const PathSegment segment({0, 0}, {}, {}, PointBehavior::straight, path, -7);
    EXPECT_EQ(segment.path(), path);
    EXPECT_EQ(segment.index(), -7);
}

TEST(PathSegment, diesOfAnIndexBeyond32Bits) {
    const auto indexed = [](std::ptrdiff_t at) {
        return PathSegment({}, {}, {}, PointBehavior::straight, {}, at);
    };
    EXPECT_EQ(indexed(2147483647).index(), 2147483647);
    EXPECT_EQ(indexed(-2147483647).index(), -2147483647);
    EXPECT_DEATH(indexed(2147483648), "segment index 2147483648 beyond 32 bits");
    EXPECT_DEATH(indexed(-2147483648), "segment index -2147483648 beyond 32 bits");
}

TEST(PathSegment, doesNotKeepItsPathAlive) {
    auto path = lineTo({10, 0});
    const PathSegment segment = path->segments()[1];
    EXPECT_EQ(segment.path(), path);
    path = nullptr;
    EXPECT_EQ(segment.path(), nullptr);
    EXPECT_EQ(segment.index(), 1);
}

TEST(PathSegment, measuresControlPointsFromItsPoint) {
    const auto segment = PathSegment::withControlPoints({10, 20}, {11, 22}, {7, 25});
    EXPECT_EQ(segment.handleIn(), (CGPoint{1, 2}));
    EXPECT_EQ(segment.handleOut(), (CGPoint{-3, 5}));
    EXPECT_EQ(segment.controlPointIn(), (CGPoint{11, 22}));
    EXPECT_EQ(segment.controlPointOut(), (CGPoint{7, 25}));
    EXPECT_EQ(segment.controlPoint(HandleType::handleIn), (CGPoint{11, 22}));
    EXPECT_EQ(segment.controlPoint(HandleType::handleOut), (CGPoint{7, 25}));
    EXPECT_THAT(segment.allPoints(), ElementsAre(CGPoint{10, 20}, CGPoint{11, 22}, CGPoint{7, 25}));
}

TEST(PathSegment, infersABehaviorByExactComparison) {
    struct Row {
        const char* says;
        CGPoint handleIn, handleOut;
        PointBehavior behavior;
    };
    const Row table[] = {
        {"no handles", {0, 0}, {0, 0}, PointBehavior::straight},
        {"negative zeros are zeros", {-0.0, 0}, {0, -0.0}, PointBehavior::straight},
        {"the least handle is a handle", {5e-324, 0}, {0, 0}, PointBehavior::disconnected},
        {"opposites", {1, 2}, {-1, -2}, PointBehavior::mirrored},
        {"opposites along an axis", {20, 0}, {-20, 0}, PointBehavior::mirrored},
        {"opposites but for a bit", {1, 2}, {-1, -2.0000000000000004}, PointBehavior::disconnected},
        {"never asymmetric", {1, 2}, {-2, -4}, PointBehavior::disconnected},
    };
    for (const auto& [says, handleIn, handleOut, behavior] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(PathSegment::withControlPoints({0, 0}, handleIn, handleOut).behavior(), behavior);
    }
}

TEST(PathSegment, takesAGivenBehaviorWhateverTheControlPoints) {
    const auto path = Path::create();
    const auto segment =
        PathSegment::withControlPoints({5, 5}, {5, 5}, {5, 5}, PointBehavior::asymmetric, path, 4);
    EXPECT_EQ(segment.behavior(), PointBehavior::asymmetric);
    EXPECT_EQ(segment.path(), path);
    EXPECT_EQ(segment.index(), 4);
}

TEST(PathSegment, settersChangeNothingButTheirField) {
    PathSegment segment({0, 0}, {1, 1}, {-1, -1}, PointBehavior::mirrored);
    segment.setHandleIn({5, 6});
    EXPECT_EQ(segment, PathSegment({0, 0}, {5, 6}, {-1, -1}, PointBehavior::mirrored));
    segment.setHandleOut({7, 8});
    EXPECT_EQ(segment, PathSegment({0, 0}, {5, 6}, {7, 8}, PointBehavior::mirrored));
    segment.setPoint({100, 100});
    EXPECT_EQ(segment, PathSegment({100, 100}, {5, 6}, {7, 8}, PointBehavior::mirrored));
    segment.setControlPointIn({101, 102});
    EXPECT_EQ(segment, PathSegment({100, 100}, {1, 2}, {7, 8}, PointBehavior::mirrored));
    segment.setControlPointOut({103, 104});
    EXPECT_EQ(segment, PathSegment({100, 100}, {1, 2}, {3, 4}, PointBehavior::mirrored));
    segment.setRadius(9);
    EXPECT_EQ(segment.radius(), 9);
    EXPECT_EQ(segment.handleIn(), (CGPoint{1, 2}));
}

TEST(PathSegment, clearsHandlesButKeepsTheBehavior) {
    PathSegment segment = bent;
    segment.clearHandles();
    EXPECT_EQ(segment, PathSegment({10, 20}, {}, {}, PointBehavior::disconnected));
}

TEST(PathSegment, dropsThePathsCacheWhenAHandleIsSetAndOnlyThen) {
    const auto path = lineTo({10, 0});
    PathSegment segment = path->segments()[0];
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setHandleIn({1, 0}); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setHandleOut({1, 0}); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setControlPointIn({1, 0}); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setControlPointOut({1, 0}); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setHandle({1, 0}, HandleType::handleIn); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setControlPoint({1, 0}, HandleType::handleIn); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.clearHandles(); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setBehavior(PointBehavior::mirrored); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setBehavior(PointBehavior::asymmetric); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segment.setBehavior(PointBehavior::straight); }));
    EXPECT_FALSE(dropsCache(*path, [&] { segment.setPoint({5, 5}); }));
    EXPECT_FALSE(dropsCache(*path, [&] { segment.setRadius(5); }));
}

TEST(PathSegment, isASnapshotThatChangesNothingUntilStoredBack) {
    const auto path = lineTo({10, 0});
    PathSegment segment = path->segments()[1];
    segment.setPoint({99, 99});
    segment.setHandleIn({1, 1});
    EXPECT_EQ(path->segments()[1].point(), (CGPoint{10, 0}));
    EXPECT_EQ(path->segments()[1].handleIn(), CGPoint::zero);
}

TEST(PathSegment, reversedExchangesHandlesKeepsItsPlaceAndLosesItsRadius) {
    const auto path = Path::create();
    PathSegment segment({10, 20}, {1, 2}, {3, 4}, PointBehavior::asymmetric, path, 6);
    segment.setRadius(5);
    const PathSegment reversed = segment.reversed();
    EXPECT_EQ(reversed, PathSegment({10, 20}, {3, 4}, {1, 2}, PointBehavior::asymmetric, path, 6));
    EXPECT_EQ(reversed.path(), path);
    EXPECT_EQ(reversed.radius(), 0);
}

TEST(PathSegment, describesAllItHolds) {
    EXPECT_EQ(bent.description(),
              "(10.0, 20.0) in: (1.0, 2.0) out: (3.0, 4.0) Disconnected radius: 0.0 path: nil "
              "index: nil");
    auto path = lineTo({0.5, 1e20});
    PathSegment last = path->segments()[1];
    last.setRadius(2.5);
    EXPECT_EQ(last.description(),
              "(0.5, 1e+20) in: (0.0, 0.0) out: (0.0, 0.0) Disconnected radius: 2.5 path: "
              "Optional(Path) index: Optional(1)");
    path = nullptr;
    EXPECT_THAT(last.description(), ::testing::HasSubstr(" path: nil index: Optional(1)"));
}

TEST(PathSegment, isEqualWhenAllButThePathIsExactlyEqual) {
    const PointBehavior behavior = PointBehavior::disconnected;
    EXPECT_EQ(bent, PathSegment({10, 20}, {1, 2}, {3, 4}, behavior, Path::create()));
    EXPECT_NE(bent, PathSegment({10, 20.000000000000004}, {1, 2}, {3, 4}, behavior));
    EXPECT_NE(bent, PathSegment({10, 20}, {1, 2.0000000000000004}, {3, 4}, behavior));
    EXPECT_NE(bent, PathSegment({10, 20}, {1, 2}, {3, 4.000000000000001}, behavior));
    EXPECT_NE(bent, PathSegment({10, 20}, {1, 2}, {3, 4}, PointBehavior::asymmetric));
    PathSegment rounded = bent;
    rounded.setRadius(1e-300);
    EXPECT_NE(bent, rounded);
}

TEST(PathSegment, countsTheIndexInEquality) {
    const auto indexed = [](std::optional<std::ptrdiff_t> at) {
        return PathSegment({1, 1}, {}, {}, PointBehavior::straight, {}, at);
    };
    EXPECT_EQ(indexed(2), indexed(2));
    EXPECT_NE(indexed(2), indexed(3));
    EXPECT_NE(indexed(0), indexed(std::nullopt));
    EXPECT_EQ(indexed(std::nullopt), indexed(std::nullopt));
}

}  // namespace
}  // namespace quorin
