#include "quorin/path/Path.h"

#include <type_traits>

#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::dropsCache;
using ::testing::ElementsAre;

static_assert(!std::is_copy_constructible_v<Path>);
static_assert(!std::is_copy_assignable_v<Path>);

PathSegment anchor(CGPoint point, CGPoint handleIn, CGPoint handleOut, PointBehavior behavior,
                   std::ptrdiff_t at) {
    return PathSegment(point, handleIn, handleOut, behavior, {}, at);
}

std::vector<PathSegment> segmentsOf(const Path& path) {
    return {path.segments().begin(), path.segments().end()};
}

std::shared_ptr<Path> openLine(std::initializer_list<CGPoint> points) {
    auto path = Path::create();
    for (const CGPoint& point : points)
        path->addLineTo(point);
    return path;
}

/// A path that was handed the segments of another one as they were.
std::shared_ptr<Path> withBorrowedSegments(const Path& lender) {
    auto path = Path::create();
    path->setSegments(lender.segments());
    return path;
}

TEST(Path, isBornEmptyAndOpenWithItsOwnCollection) {
    const auto path = Path::create();
    EXPECT_FALSE(path->isClosed());
    EXPECT_TRUE(path->segments().isEmpty());
    EXPECT_EQ(path->segments().path(), path);
}

TEST(Path, copiesIndependently) {
    const auto path = openLine({{0, 0}, {10, 0}});
    path->setIsClosed(true);
    const auto copy = Path::create(*path);
    EXPECT_TRUE(*copy == *path);
    EXPECT_EQ(copy->segments().path(), copy);
    EXPECT_EQ(copy->segments()[1].path(), copy);
    copy->addLineTo({20, 20});
    EXPECT_EQ(path->segments().count(), 2u);
    EXPECT_FALSE(*copy == *path);
}

TEST(Path, copiesWithoutTheCachedPlatformPath) {
    const auto path = openLine({{0, 0}, {10, 0}});
    const auto cached = path->cg();
    EXPECT_NE(Path::create(*path)->cg(), cached);
}

TEST(Path, copiesIndicesAsTheyAre) {
    const auto path = Path::create();
    path->setSegments(PathSegmentCollection({anchor({1, 1}, {}, {}, PointBehavior::straight, 7)}));
    EXPECT_EQ(Path::create(*path)->segments()[0].index(), 7);
}

TEST(Path, storesTheClosedFlagWithoutDroppingTheCache) {
    const auto path = openLine({{0, 0}, {10, 0}, {10, 10}});
    EXPECT_FALSE(dropsCache(*path, [&] { path->setIsClosed(true); }));
    EXPECT_TRUE(path->isClosed());
    EXPECT_FALSE(dropsCache(*path, [&] { path->setIsClosed(false); }));
    EXPECT_FALSE(path->isClosed());
}

TEST(Path, dropsTheCacheWhenTold) {
    const auto path = openLine({{0, 0}, {10, 0}});
    EXPECT_TRUE(dropsCache(*path, [&] { path->invalidatePathCache(); }));
}

TEST(Path, takesSegmentsAsSupplied) {
    const auto lender = openLine({{0, 0}, {10, 0}});
    const auto path = openLine({{5, 5}});
    EXPECT_FALSE(dropsCache(*path, [&] { path->setSegments(lender->segments()); }));
    EXPECT_EQ(path->segments(), lender->segments());
    EXPECT_EQ(path->segments().path(), lender);
    EXPECT_EQ(path->segments()[1].path(), lender);

    path->setSegments(PathSegmentCollection({anchor({1, 1}, {}, {}, PointBehavior::straight, 7)}));
    EXPECT_EQ(path->segments().path(), nullptr);
    EXPECT_EQ(path->segments()[0].index(), 7);
}

TEST(Path, drawsOnBorrowedSegmentsForTheirPathAndDropsBothCaches) {
    const auto lender = openLine({{0, 0}, {10, 0}});
    const auto path = withBorrowedSegments(*lender);
    EXPECT_TRUE(dropsCache(*lender, [&] {
        EXPECT_TRUE(dropsCache(*path, [&] { path->addLineTo({20, 0}); }));
    }));
    EXPECT_EQ(path->segments().last()->path(), lender);
    EXPECT_EQ(path->segments().last()->index(), 2);
    EXPECT_EQ(lender->segments().count(), 2u);
}

TEST(Path, beginsABorrowedCollectionForItsPathAndDropsBothCaches) {
    const auto lender = Path::create();
    const auto path = withBorrowedSegments(*lender);
    EXPECT_TRUE(dropsCache(*lender, [&] {
        EXPECT_TRUE(dropsCache(*path, [&] { path->moveTo({20, 0}); }));
    }));
    EXPECT_EQ(path->segments()[0].path(), lender);
    EXPECT_TRUE(lender->segments().isEmpty());
}

TEST(Path, drawsOnSegmentsWithoutAPath) {
    const auto elsewhere = openLine({{0, 0}});
    PathSegment last = elsewhere->segments()[0];
    last.setHandleOut({3, 3});
    const auto path = Path::create();
    path->setSegments(PathSegmentCollection({last, last}));
    EXPECT_TRUE(dropsCache(*elsewhere, [&] {
        path->addLineTo({20, 0});
    })) << "the last segment's handle is set while it still belongs there";
    EXPECT_EQ(path->segments()[0].path(), elsewhere);
    EXPECT_EQ(path->segments()[1].path(), nullptr);
    EXPECT_EQ(path->segments()[1].index(), 1);
    EXPECT_EQ(path->segments()[1].handleOut(), CGPoint::zero);
    EXPECT_EQ(path->segments()[2].index(), 2);
}

TEST(Path, restoresTheLastIndexWhenItDrawsOn) {
    const auto listed = Path::create();
    listed->setSegments(
        PathSegmentCollection({anchor({1, 1}, {}, {}, PointBehavior::straight, 7)}));
    const auto path = Path::create(*listed);
    path->addLineTo({2, 2});
    EXPECT_EQ(path->segments()[0].index(), 0);
    EXPECT_EQ(path->segments()[1].index(), 1);
}

TEST(Path, isEqualWhenSegmentsAndFlagAre) {
    const auto one = openLine({{0, 0}, {10, 0}});
    const auto two = openLine({{0, 0}, {10, 0}});
    EXPECT_TRUE(*one == *two);
    two->setIsClosed(true);
    EXPECT_FALSE(*one == *two);
    EXPECT_FALSE(*one == *openLine({{0, 0}, {10, 1}}));
}

TEST(Path, goesWithItsLastReference) {
    auto path = openLine({{0, 0}, {10, 0}});
    const PathSegmentCollection outstanding = path->segments();
    const std::weak_ptr<Path> watch = path;
    path = nullptr;
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(outstanding.path(), nullptr);
    EXPECT_EQ(outstanding[0].path(), nullptr);
}

TEST(MoveTo, startsAnEmptyPathWithAStraightAnchor) {
    const auto path = Path::create();
    EXPECT_TRUE(dropsCache(*path, [&] { path->moveTo({3, 4}); }));
    EXPECT_THAT(segmentsOf(*path), ElementsAre(anchor({3, 4}, {}, {}, PointBehavior::straight, 0)));
    EXPECT_EQ(path->segments()[0].path(), path);
}

TEST(MoveTo, doesNothingOnceThereIsASegment) {
    const auto path = Path::create();
    path->moveTo({3, 4});
    EXPECT_FALSE(dropsCache(*path, [&] { path->moveTo({9, 9}); }));
    EXPECT_EQ(path->segments().count(), 1u);
    EXPECT_EQ(path->segments()[0].point(), (CGPoint{3, 4}));
}

TEST(AddLineTo, startsAnEmptyPathWithADisconnectedAnchor) {
    const auto path = Path::create();
    EXPECT_TRUE(dropsCache(*path, [&] { path->addLineTo({3, 4}); }));
    EXPECT_THAT(segmentsOf(*path),
                ElementsAre(anchor({3, 4}, {}, {}, PointBehavior::disconnected, 0)));
}

TEST(AddLineTo, clearsTheLastOutHandle) {
    const auto path = Path::create();
    path->segments().append(PathSegment({0, 0}, {-1, -1}, {1, 1}, PointBehavior::mirrored));
    EXPECT_TRUE(dropsCache(*path, [&] { path->addLineTo({10, 0}); }));
    EXPECT_THAT(segmentsOf(*path),
                ElementsAre(anchor({0, 0}, {-1, -1}, {}, PointBehavior::mirrored, 0),
                            anchor({10, 0}, {}, {}, PointBehavior::disconnected, 1)));
}

TEST(AddCurveTo, givesTheLastAnchorItsOutHandleAndTheNewOneItsInHandle) {
    const auto path = Path::create();
    path->moveTo({10, 10});
    EXPECT_TRUE(dropsCache(*path, [&] { path->addCurveTo({40, 10}, {20, 0}, {30, 25}); }));
    EXPECT_THAT(segmentsOf(*path),
                ElementsAre(anchor({10, 10}, {}, {10, -10}, PointBehavior::straight, 0),
                            anchor({40, 10}, {-10, 15}, {}, PointBehavior::disconnected, 1)));
    EXPECT_EQ(path->segments()[1].path(), path);
}

TEST(AddCurveTo, startsAnEmptyPathWithAnInHandle) {
    const auto path = Path::create();
    path->addCurveTo({40, 10}, {20, 0}, {30, 25});
    EXPECT_THAT(segmentsOf(*path),
                ElementsAre(anchor({40, 10}, {-10, 15}, {}, PointBehavior::disconnected, 0)));
}

TEST(ClosePath, foldsALastAnchorOnTheFirstIntoIt) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({10, 0}, {3, 3}, {7, 3});
    path->addCurveTo({0, 0}, {7, -3}, {3, -4});
    path->closePath();
    EXPECT_TRUE(path->isClosed());
    EXPECT_THAT(segmentsOf(*path),
                ElementsAre(anchor({0, 0}, {3, -4}, {3, 3}, PointBehavior::straight, 0),
                            anchor({10, 0}, {-3, 3}, {-3, -3}, PointBehavior::disconnected, 1)));
}

TEST(ClosePath, foldsAnchorsThatDifferInTheSignOfZeroOnly) {
    const auto path = openLine({{0, 0}, {10, 0}, {-0.0, 0}});
    path->closePath();
    EXPECT_EQ(path->segments().count(), 2u);
}

TEST(ClosePath, keepsAllAnchorsOfAShortOrUnequalPath) {
    const auto shortOne = openLine({{5, 5}, {5, 5}});
    shortOne->closePath();
    EXPECT_EQ(shortOne->segments().count(), 2u);
    EXPECT_TRUE(shortOne->isClosed());

    const auto unequal = openLine({{0, 0}, {10, 0}, {0, 5e-324}});
    unequal->closePath();
    EXPECT_EQ(unequal->segments().count(), 3u);
    EXPECT_TRUE(unequal->isClosed());

    const auto empty = Path::create();
    empty->closePath();
    EXPECT_TRUE(empty->isClosed());
}

TEST(ClosePath, dropsTheCacheWithAndWithoutAFold) {
    for (const CGFloat end : {0.0, 1.0}) {
        const auto path = openLine({{0, 0}, {10, 0}, {0, end}});
        EXPECT_TRUE(dropsCache(*path, [&] { path->closePath(); }));
    }
}

TEST(ClosePath, maySayItTwice) {
    const auto path = openLine({{0, 0}, {10, 0}, {10, 10}, {0, 0}});
    path->closePath();
    path->closePath();
    EXPECT_EQ(path->segments().count(), 3u);
}

}  // namespace
}  // namespace quorin
