#include <cmath>

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/support/MemoryRecord.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::decoded;
using test::MemoryRecord;
using test::recordOf;
using ::testing::ElementsAre;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

MemoryRecord::Entry list(CGFloat x, CGFloat y) { return MemoryRecord::Numbers{x, y}; }

PathSegment roundedSegment() {
    PathSegment segment({1, 2}, {3, 4}, {5, 6}, PointBehavior::asymmetric, Path::create(), 7);
    segment.setRadius(8);
    return segment;
}

std::shared_ptr<Path> closedCurve() {
    auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({10, 0}, {3, 3}, {7, 3});
    path->addLineTo({10, 10});
    path->closePath();
    return path;
}

MemoryRecord& segmentRecord(MemoryRecord& path, std::size_t index) {
    return std::get<MemoryRecord::Records>(path["segments"])[index];
}

TEST(SegmentCoding, writesFiveKeysInOrderAndNeitherIndexNorPath) {
    MemoryRecord record = recordOf(roundedSegment());
    EXPECT_THAT(record.keys(), ElementsAre("point", "handleIn", "handleOut", "behavior", "radius"));
    EXPECT_EQ(record["point"], list(1, 2));
    EXPECT_EQ(record["handleIn"], list(3, 4));
    EXPECT_EQ(record["handleOut"], list(5, 6));
    EXPECT_EQ(record["behavior"], MemoryRecord::Entry(std::int64_t{3}));
    EXPECT_EQ(record["radius"], MemoryRecord::Entry(8.0));
}

TEST(SegmentCoding, readsWhatItWroteAsAFreeStandingSegment) {
    const auto segment = decoded<PathSegment>(recordOf(roundedSegment()));
    PathSegment expected({1, 2}, {3, 4}, {5, 6}, PointBehavior::asymmetric);
    expected.setRadius(8);
    EXPECT_EQ(segment, expected);
    EXPECT_EQ(segment.path(), nullptr);
}

TEST(SegmentCoding, readsEveryBehaviorByItsRawValue) {
    for (std::int64_t raw = 0; raw <= 3; ++raw) {
        MemoryRecord record = recordOf(roundedSegment());
        record["behavior"] = raw;
        EXPECT_EQ(decoded<PathSegment>(record).behavior(), pointBehavior(raw));
    }
}

TEST(SegmentCoding, readsHandlesThatTheBehaviorWouldNotAllow) {
    MemoryRecord record = recordOf(roundedSegment());
    record["behavior"] = std::int64_t{0};
    EXPECT_EQ(decoded<PathSegment>(record).handleOut(), (CGPoint{5, 6}));
}

TEST(SegmentCoding, requiresEveryKey) {
    for (const std::string& key : recordOf(roundedSegment()).keys()) {
        MemoryRecord record = recordOf(roundedSegment());
        record.remove(key);
        EXPECT_THAT([&] { decoded<PathSegment>(record); },
                    ThrowsMessage<DecodingError>(key + ": key not found"));
    }
}

TEST(SegmentCoding, refusesABehaviorOutside0To3) {
    for (const std::int64_t raw : {std::int64_t{-1}, std::int64_t{4}, std::int64_t{256}}) {
        MemoryRecord record = recordOf(roundedSegment());
        record["behavior"] = raw;
        EXPECT_THAT([&] { decoded<PathSegment>(record); },
                    ThrowsMessage<DecodingError>("behavior: " + std::to_string(raw) +
                                                 " is not from 0 to 3"));
    }
}

TEST(PathCoding, writesTheFlagThenTheSegments) {
    MemoryRecord record = recordOf(*closedCurve());
    EXPECT_THAT(record.keys(), ElementsAre("isClosed", "segments"));
    EXPECT_EQ(record["isClosed"], MemoryRecord::Entry(true));
    ASSERT_EQ(std::get<MemoryRecord::Records>(record["segments"]).size(), 3u);
    EXPECT_EQ(segmentRecord(record, 1)["point"], list(10, 0));
    EXPECT_EQ(segmentRecord(record, 1)["handleIn"], list(-3, 3));
}

TEST(PathCoding, writesAnEmptyPath) {
    MemoryRecord record = recordOf(*Path::create());
    EXPECT_EQ(record["isClosed"], MemoryRecord::Entry(false));
    EXPECT_EQ(record["segments"], MemoryRecord::Entry(MemoryRecord::Records{}));
    EXPECT_TRUE(decoded<Path>(record)->segments().isEmpty());
}

TEST(PathCoding, readsEqualSegmentsNumberedAndOwned) {
    const auto path = closedCurve();
    const auto read = decoded<Path>(recordOf(*path));
    EXPECT_TRUE(*read == *path);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(read->segments()[i].index(), static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ(read->segments()[i].path(), read);
    }
    EXPECT_EQ(read->segments().path(), read);
    EXPECT_TRUE(*read->cg() == *path->cg());
}

TEST(PathCoding, restoresIndicesThatWereNotPositions) {
    const auto path = Path::create();
    path->setSegments(PathSegmentCollection({roundedSegment(), roundedSegment()}));
    const auto read = decoded<Path>(recordOf(*path));
    EXPECT_EQ(read->segments()[0].index(), 0);
    EXPECT_EQ(read->segments()[1].index(), 1);
}

TEST(PathCoding, keepsTwoAnchorsThatACloseWouldFold) {
    const auto path = Path::create();
    for (const CGFloat x : {0.0, 5.0, 0.0})
        path->addLineTo({x, 0});
    path->setIsClosed(true);
    EXPECT_TRUE(*decoded<Path>(recordOf(*path)) == *path);
}

TEST(PathCoding, requiresBothKeys) {
    for (const char* key : {"isClosed", "segments"}) {
        MemoryRecord record = recordOf(*closedCurve());
        record.remove(key);
        EXPECT_THAT([&] { decoded<Path>(record); },
                    ThrowsMessage<DecodingError>(std::string(key) + ": key not found"));
    }
}

TEST(PathCoding, namesThePlaceOfABadSegment) {
    MemoryRecord record = recordOf(*closedCurve());
    segmentRecord(record, 2).remove("radius");
    EXPECT_THAT([&] { decoded<Path>(record); },
                ThrowsMessage<DecodingError>("segments[2].radius: key not found"));

    record = recordOf(*closedCurve());
    segmentRecord(record, 1)["behavior"] = std::int64_t{9};
    EXPECT_THAT([&] { decoded<Path>(record); },
                ThrowsMessage<DecodingError>(StartsWith("segments[1].behavior: 9")));
}

TEST(PathCoding, refusesAnotherType) {
    MemoryRecord record = recordOf(*closedCurve());
    record["isClosed"] = 1.0;
    EXPECT_THAT([&] { decoded<Path>(record); },
                ThrowsMessage<DecodingError>(StartsWith("isClosed: ")));
}

RC_GTEST_PROP(PathCoding, keepsEveryNumberBitForBit, ()) {
    const auto number = rc::gen::suchThat(rc::gen::arbitrary<CGFloat>(),
                                          [](CGFloat x) { return std::isfinite(x); });
    const auto path = Path::create();
    const int count = *rc::gen::inRange(0, 5);
    for (int i = 0; i < count; ++i) {
        PathSegment segment({*number, *number}, {*number, *number}, {*number, *number},
                            *pointBehavior(*rc::gen::inRange(0, 4)));
        segment.setRadius(*number);
        path->segments().append(segment);
    }
    path->setIsClosed(*rc::gen::arbitrary<bool>());
    RC_ASSERT(*decoded<Path>(recordOf(*path)) == *path);
}

}  // namespace
}  // namespace quorin
