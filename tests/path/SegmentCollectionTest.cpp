#include "quorin/path/SegmentCollection.h"

#include <iterator>
#include <limits>

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::dropsCache;
using ::testing::ElementsAre;
using Indices = std::vector<std::optional<std::ptrdiff_t>>;

PathSegment at(CGFloat x, std::weak_ptr<Path> path = {},
               std::optional<std::ptrdiff_t> index = std::nullopt) {
    return PathSegment({x, 0}, {}, {}, PointBehavior::straight, std::move(path), index);
}

std::shared_ptr<Path> pathWithAnchorsAt(std::initializer_list<CGFloat> places) {
    auto path = Path::create();
    for (const CGFloat x : places)
        path->segments().append(at(x));
    return path;
}

std::vector<CGFloat> placesOf(const PathSegmentCollection& segments) {
    std::vector<CGFloat> places;
    for (const PathSegment& segment : segments)
        places.push_back(segment.point().x);
    return places;
}

Indices indicesOf(const PathSegmentCollection& segments) {
    Indices indices;
    for (const PathSegment& segment : segments)
        indices.push_back(segment.index());
    return indices;
}

bool allBelongTo(const std::shared_ptr<Path>& path, const PathSegmentCollection& segments) {
    for (const PathSegment& segment : segments)
        if (segment.path() != path)
            return false;
    return true;
}

TEST(SegmentCollection, isBornEmptyWithoutAPath) {
    const PathSegmentCollection segments;
    EXPECT_EQ(segments.count(), 0u);
    EXPECT_TRUE(segments.isEmpty());
    EXPECT_EQ(segments.startIndex(), 0u);
    EXPECT_EQ(segments.endIndex(), 0u);
    EXPECT_EQ(segments.first(), std::nullopt);
    EXPECT_EQ(segments.last(), std::nullopt);
    EXPECT_EQ(segments.path(), nullptr);
}

TEST(SegmentCollection, walksItsSegmentsInOrder) {
    const auto path = pathWithAnchorsAt({1, 2, 3});
    const auto& segments = path->segments();
    EXPECT_THAT(placesOf(segments), ElementsAre(1, 2, 3));
    EXPECT_EQ(segments.endIndex(), 3u);
    EXPECT_EQ(segments.indexAfter(1), 2u);
    EXPECT_EQ(segments.first()->point().x, 1);
    EXPECT_EQ(segments.last()->point().x, 3);
    EXPECT_EQ(segments[1].point().x, 2);
}

TEST(SegmentCollection, isWalkedAtRandom) {
    static_assert(std::random_access_iterator<PathSegmentCollection::const_iterator>);
    const auto path = pathWithAnchorsAt({1, 2, 3});
    auto place = path->segments().begin();
    EXPECT_EQ(place[2].point().x, 3);
    EXPECT_EQ((*place++).point().x, 1);
    EXPECT_EQ((*++place).point().x, 3);
    EXPECT_EQ((*place--).point().x, 3);
    EXPECT_EQ((*--place).point().x, 1);
    EXPECT_EQ((*(2 + place)).point().x, 3);
    EXPECT_EQ(path->segments().end() - place, 3);
    EXPECT_EQ(path->segments().end() - 3, place);
    EXPECT_LT(place, path->segments().end());
}

TEST(SegmentCollection, showsWhatIsStoredToWhoWalksAll) {
    const auto path = pathWithAnchorsAt({1, 2});
    const auto anchors = path->segments().anchors();
    ASSERT_EQ(anchors.size(), 2u);
    EXPECT_EQ(anchors[1], (PathAnchor{{2, 0}, {}, {}, 0, 1, PointBehavior::straight}));
}

TEST(SegmentCollection, answersNothingWhereThereIsNoSegment) {
    const auto path = pathWithAnchorsAt({1, 2});
    EXPECT_EQ(path->segments().segmentAt(1)->point().x, 2);
    EXPECT_EQ(path->segments().segmentAt(-1), std::nullopt);
    EXPECT_EQ(path->segments().segmentAt(2), std::nullopt);
}

TEST(SegmentCollection, diesOfAPositionOutsideIt) {
    const auto path = pathWithAnchorsAt({1, 2, 3});
    auto& segments = path->segments();
    EXPECT_DEATH((void)segments[3], "segment 3 of 3");
    EXPECT_DEATH((void)segments[static_cast<std::size_t>(-1)], "segment -1 of 3");
    EXPECT_DEATH(segments.setAt(3, at(0)), "segment 3 of 3");
    EXPECT_DEATH(segments.removeAt(4), "segment 4 of 3");
    EXPECT_DEATH(PathSegmentCollection().removeLast(), "no last segment of 0");
}

TEST(SegmentCollection, keepsTheOwnPathAndIndexOfListedSegments) {
    const auto elsewhere = Path::create();
    const PathSegmentCollection segments({at(1, elsewhere, 7), at(2)});
    EXPECT_EQ(segments.path(), nullptr);
    EXPECT_EQ(segments[0].path(), elsewhere);
    EXPECT_EQ(indicesOf(segments), (Indices{7, std::nullopt}));
}

TEST(SegmentCollection, copiedForAPathKeepsIndicesAndTakesThatPath) {
    const auto path = Path::create();
    const PathSegmentCollection listed({at(1, Path::create(), 7), at(2)});
    const PathSegmentCollection copied(path, listed);
    EXPECT_EQ(copied.path(), path);
    EXPECT_TRUE(allBelongTo(path, copied));
    EXPECT_EQ(indicesOf(copied), (Indices{7, std::nullopt}));
    EXPECT_EQ(listed[1].path(), nullptr);
}

TEST(SegmentCollection, storesAppendedSegmentsWithItsPathAndPosition) {
    const auto path = pathWithAnchorsAt({1});
    path->segments().append(at(2, Path::create(), 40));
    EXPECT_THAT(placesOf(path->segments()), ElementsAre(1, 2));
    EXPECT_EQ(indicesOf(path->segments()), (Indices{0, 1}));
    EXPECT_TRUE(allBelongTo(path, path->segments()));
}

TEST(SegmentCollection, storesAReplacementWithItsPathAndPosition) {
    const auto path = pathWithAnchorsAt({1, 2, 3});
    path->segments().setAt(1, at(9, Path::create(), 40));
    EXPECT_THAT(placesOf(path->segments()), ElementsAre(1, 9, 3));
    EXPECT_EQ(indicesOf(path->segments()), (Indices{0, 1, 2}));
    EXPECT_TRUE(allBelongTo(path, path->segments()));
}

TEST(SegmentCollection, renumbersAfterPrepending) {
    const auto path = pathWithAnchorsAt({1, 2});
    path->segments().prepend(at(0, Path::create(), 40));
    EXPECT_THAT(placesOf(path->segments()), ElementsAre(0, 1, 2));
    EXPECT_EQ(indicesOf(path->segments()), (Indices{0, 1, 2}));
    EXPECT_TRUE(allBelongTo(path, path->segments()));
}

TEST(SegmentCollection, shiftsWhateverIndicesThereAreWhenPrepending) {
    const auto elsewhere = Path::create();
    PathSegmentCollection segments({at(1, elsewhere, 7), at(2)});
    segments.prepend(at(0));
    EXPECT_EQ(indicesOf(segments), (Indices{0, 8, std::nullopt}));
    EXPECT_EQ(segments[1].path(), elsewhere);
}

TEST(SegmentCollection, diesOfShiftingAnIndexBeyond32Bits) {
    PathSegmentCollection segments({at(1, {}, 2147483647)});
    EXPECT_DEATH(segments.prepend(at(0)), "segment index 2147483648 beyond 32 bits");
}

TEST(SegmentCollection, keepsTheOwnPathsOfListedSegmentsApart) {
    const auto one = Path::create();
    const auto two = Path::create();
    PathSegmentCollection segments({at(1, one), at(2, two), at(3, one)});
    segments.setAt(0, at(10, two));
    segments.append(at(4, two));
    segments.prepend(at(0, two));
    segments.removeLast();
    std::vector<std::shared_ptr<Path>> paths;
    for (const PathSegment& segment : segments)
        paths.push_back(segment.path());
    EXPECT_THAT(paths, ElementsAre(nullptr, nullptr, two, one));
}

TEST(SegmentCollection, renumbersAfterRemoving) {
    const auto path = pathWithAnchorsAt({1, 2, 3});
    path->segments().removeAt(0);
    EXPECT_THAT(placesOf(path->segments()), ElementsAre(2, 3));
    EXPECT_EQ(indicesOf(path->segments()), (Indices{0, 1}));
}

TEST(SegmentCollection, adoptsAllRemainingSegmentsWhenRemoving) {
    const auto elsewhere = Path::create();
    PathSegmentCollection segments({at(1, elsewhere, 7), at(2), at(3, elsewhere)});
    segments.removeAt(1);
    EXPECT_EQ(indicesOf(segments), (Indices{0, 1}));
    EXPECT_TRUE(allBelongTo(nullptr, segments));
}

TEST(SegmentCollection, adoptsNothingWhenRemovingTheLast) {
    PathSegmentCollection segments({at(1, {}, 7), at(2)});
    segments.removeLast();
    EXPECT_EQ(indicesOf(segments), (Indices{7}));
}

TEST(SegmentCollection, keepsItsStorageWhenEmptied) {
    const auto path = pathWithAnchorsAt({1, 2, 3});
    const PathAnchor* storage = path->segments().anchors().data();
    path->segments().removeAll();
    EXPECT_TRUE(path->segments().isEmpty());
    for (const CGFloat x : {4, 5, 6})
        path->segments().append(at(x));
    EXPECT_EQ(path->segments().anchors().data(), storage);
}

TEST(SegmentCollection, forgetsTheOwnPathsOfListedSegmentsWhenEmptied) {
    const auto elsewhere = Path::create();
    PathSegmentCollection segments({at(1, elsewhere), at(2, elsewhere)});
    segments.removeAll();
    segments.append(at(3));
    EXPECT_EQ(segments[0].path(), nullptr);
}

TEST(SegmentCollection, reindexesForItsOwnPath) {
    const auto path = Path::create();
    PathSegmentCollection segments(path, PathSegmentCollection({at(1, {}, 7), at(2), at(3)}));
    segments.reindex();
    EXPECT_EQ(indicesOf(segments), (Indices{0, 1, 2}));
    EXPECT_TRUE(allBelongTo(path, segments));
}

TEST(SegmentCollection, transformsInOrderAndRestoresPathAndIndex) {
    const auto path = pathWithAnchorsAt({1, 2, 3});
    std::vector<CGFloat> visited;
    path->segments().transform([&](PathSegment& segment) {
        visited.push_back(segment.point().x);
        segment = at(segment.point().x * 10, Path::create(), 99);
    });
    EXPECT_THAT(visited, ElementsAre(1, 2, 3));
    EXPECT_THAT(placesOf(path->segments()), ElementsAre(10, 20, 30));
    EXPECT_EQ(indicesOf(path->segments()), (Indices{0, 1, 2}));
    EXPECT_TRUE(allBelongTo(path, path->segments()));
}

TEST(SegmentCollection, showsATransformTheNeighboursAlreadyDone) {
    const auto path = pathWithAnchorsAt({1, 2});
    path->segments().transform([&](PathSegment& segment) {
        const CGFloat before = path->segments()[0].point().x;
        segment.setPoint({segment.point().x + before, 0});
    });
    EXPECT_THAT(placesOf(path->segments()), ElementsAre(2, 4));
}

TEST(SegmentCollection, dropsThePathsCacheAtEveryChange) {
    const auto path = pathWithAnchorsAt({1, 2, 3, 4});
    auto& segments = path->segments();
    EXPECT_TRUE(dropsCache(*path, [&] { segments.append(at(5)); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.prepend(at(0)); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.setAt(0, at(0)); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.removeAt(0); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.removeLast(); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.reindex(); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.transform([](PathSegment&) {}); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.removeAll(); }));
    EXPECT_TRUE(dropsCache(*path, [&] { segments.reindex(); })) << "even when it is empty";
    EXPECT_TRUE(dropsCache(*path, [&] { segments.transform([](PathSegment&) {}); }));
}

TEST(SegmentCollection, keepsThePathsCacheWhenRead) {
    const auto path = pathWithAnchorsAt({1, 2});
    EXPECT_FALSE(dropsCache(*path, [&] {
        path->segments().reserve(100);
        (void)path->segments().first();
        (void)path->segments().segmentAt(0);
        (void)path->segments()[1];
    }));
}

TEST(SegmentCollection, outlivesItsPath) {
    auto path = pathWithAnchorsAt({1, 2});
    PathSegmentCollection segments = path->segments();
    path = nullptr;
    segments.append(at(3));
    EXPECT_EQ(segments.path(), nullptr);
    EXPECT_EQ(indicesOf(segments), (Indices{0, 1, 2}));
}

TEST(SegmentCollection, isEqualWhenAllSegmentsAre) {
    const auto one = pathWithAnchorsAt({1, 2});
    const auto two = pathWithAnchorsAt({1, 2});
    EXPECT_EQ(one->segments(), two->segments());
    EXPECT_NE(one->segments(), pathWithAnchorsAt({1, 2, 3})->segments());
    EXPECT_NE(one->segments(), pathWithAnchorsAt({1, 3})->segments());
    EXPECT_NE(one->segments(), PathSegmentCollection({at(1), at(2)})) << "these have no index";
}

TEST(SegmentCollection, alwaysEqualsItself) {
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    const PathSegmentCollection segments({at(nan)});
    EXPECT_EQ(segments, segments);
    EXPECT_NE(segments, PathSegmentCollection({at(nan)}));
}

RC_GTEST_PROP(SegmentCollection, keepsPathsAndIndicesThroughAnyChanges, ()) {
    const auto path = pathWithAnchorsAt({0});
    auto& segments = path->segments();
    const auto choices = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 6));
    for (const int choice : choices) {
        const std::size_t place = segments.count() / 2;
        if (choice == 0)
            segments.append(at(1, Path::create(), 9));
        else if (choice == 1)
            segments.prepend(at(2, Path::create(), 9));
        else if (choice == 2 && !segments.isEmpty())
            segments.removeAt(place);
        else if (choice == 3 && !segments.isEmpty())
            segments.setAt(place, at(3, Path::create(), 9));
        else if (choice == 4 && !segments.isEmpty())
            segments.removeLast();
        else
            segments.transform([](PathSegment& segment) { segment = segment.reversed(); });
    }
    RC_ASSERT(allBelongTo(path, segments));
    for (std::size_t i = 0; i < segments.count(); ++i)
        RC_ASSERT(segments[i].index() == static_cast<std::ptrdiff_t>(i));
}

}  // namespace
}  // namespace quorin
