#include <cmath>

#include "quorin/path/Path.h"
#include "quorin/platform/values/Value.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;

const CGRect frame = CGRectMake(0, 0, 100, 50);

Value pointAt(CGFloat x, CGFloat y) { return Value::Map{{"x", x}, {"y", y}}; }

Value::Map dictionaryOf(Value::List segments) { return {{"segments", std::move(segments)}}; }

std::shared_ptr<Path> read(const Value& value) { return Path::create(value, frame); }

/// The one segment of a path whose frame is centred on the origin, where nothing is rounded.
PathSegment readSegment(const Value::Map& segment, CGFloat rotation = 0) {
    Value::Map map = dictionaryOf({segment});
    map["pathRotation"] = rotation;
    return Path::create(map, CGRectMake(-1, -1, 2, 2))->segments()[0];
}

std::vector<CGPoint> pointsOf(const Path& path) {
    std::vector<CGPoint> points;
    for (const PathAnchor& anchor : path.segments().anchors())
        points.push_back(anchor.point);
    return points;
}

TEST(PathDictionary, readsAllEntriesOfASegment) {
    const PathSegment segment = readSegment({{"point", pointAt(3, 4)},
                                             {"curveTo", pointAt(1, 1)},
                                             {"curveFrom", pointAt(9, 5)},
                                             {"behaviorMode", 4},
                                             {"hasTo", true},
                                             {"hasFrom", true},
                                             {"radius", 2.5}});
    PathSegment expected({3, 4}, {-2, -3}, {6, 1}, PointBehavior::disconnected, {}, 0);
    expected.setRadius(2.5);
    EXPECT_EQ(segment, expected);
}

TEST(PathDictionary, readsAClosedPathInOrder) {
    Value::Map map =
        dictionaryOf({Value::Map{{"point", pointAt(0, 0)}}, Value::Map{{"point", pointAt(10, 0)}},
                      Value::Map{{"point", pointAt(10, 10)}}});
    map["isClosed"] = true;
    const auto path = read(map);
    EXPECT_TRUE(path->isClosed());
    EXPECT_THAT(pointsOf(*path), ElementsAre(CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{10, 10}));
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(path->segments()[i].index(), static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ(path->segments()[i].path(), path);
    }
}

TEST(PathDictionary, isEmptyAndOpenForAnythingButAMap) {
    for (const Value& value : {Value(), Value(5), Value("isClosed"), Value(true),
                               Value(Value::List{Value::Map{{"isClosed", true}}})}) {
        const auto path = read(value);
        EXPECT_TRUE(path->segments().isEmpty());
        EXPECT_FALSE(path->isClosed());
    }
    EXPECT_TRUE(read(Value::Map{})->segments().isEmpty());
}

TEST(PathDictionary, keepsTheDefaultsOfWhatIsMissing) {
    const PathSegment plain({0, 0}, {}, {}, PointBehavior::straight, {}, 0);
    EXPECT_EQ(readSegment({}), plain);
    EXPECT_EQ(readSegment({{"point", Value::Map{{"y", 7}}}}).point(), (CGPoint{0, 7}));
    EXPECT_EQ(readSegment({{"point", Value::Map{{"x", 7}}}}).point(), (CGPoint{7, 0}));
    EXPECT_FALSE(read(dictionaryOf({}))->isClosed());
}

TEST(PathDictionary, keepsTheDefaultsOfWhatHasAnotherType) {
    const PathSegment plain({0, 0}, {}, {}, PointBehavior::straight, {}, 0);
    EXPECT_EQ(readSegment({{"point", CGPoint{3, 4}},
                           {"curveTo", Value::List{1, 2}},
                           {"curveFrom", "9 5"},
                           {"behaviorMode", "2"},
                           {"hasTo", 0},
                           {"hasFrom", 0.0},
                           {"radius", "2.5"}}),
              plain);
    EXPECT_EQ(readSegment({{"behaviorMode", 2.5}}).behavior(), PointBehavior::straight);
    EXPECT_EQ(readSegment({{"behaviorMode", true}}).behavior(), PointBehavior::straight);
    EXPECT_EQ(readSegment({{"radius", true}}).radius(), 0);
    EXPECT_EQ(readSegment({{"point", Value::Map{{"x", true}, {"y", "4"}}}}).point(), CGPoint::zero);
    EXPECT_FALSE(read(Value::Map{{"isClosed", 1}})->isClosed());
    EXPECT_EQ(readSegment({{"point", pointAt(1, 2)}, {"curveTo", pointAt(2, 2)}, {"hasTo", 0}})
                  .handleIn(),
              (CGPoint{1, 0}));
}

TEST(PathDictionary, readsNumbersOfAnyNumericType) {
    const PathSegment segment =
        readSegment({{"point", Value::Map{{"x", 3}, {"y", 4.5f}}}, {"radius", std::int64_t{6}}});
    EXPECT_EQ(segment.point(), (CGPoint{3, 4.5}));
    EXPECT_EQ(segment.radius(), 6);
    EXPECT_EQ(readSegment({{"behaviorMode", 2.0}}).behavior(), PointBehavior::mirrored);

    Value::Map whole =
        dictionaryOf({Value::Map{{"point", pointAt(1, 0)}}, Value::Map{{"point", pointAt(2, 5)}}});
    Value::Map real = whole;
    whole["pathRotation"] = 90;
    real["pathRotation"] = 90.0;
    EXPECT_TRUE(*read(whole) == *read(real));
    real["pathRotation"] = true;
    EXPECT_EQ(read(real)->segments()[0].point(), (CGPoint{1, 0})) << "a Boolean is no angle";
}

TEST(PathDictionary, hasNoSegmentsUnlessAllAreMaps) {
    const Value segment = Value::Map{{"point", pointAt(3, 4)}};
    EXPECT_EQ(read(dictionaryOf({segment, segment}))->segments().count(), 2u);
    EXPECT_EQ(read(dictionaryOf({segment, 5, segment}))->segments().count(), 0u);
    EXPECT_EQ(read(Value::Map{{"segments", segment}})->segments().count(), 0u);
    EXPECT_TRUE(read(Value::Map{{"segments", 5}, {"isClosed", true}})->isClosed());
}

TEST(PathDictionary, crossesThreeAndFourInBehaviors) {
    const std::pair<std::int64_t, PointBehavior> table[] = {
        {0, PointBehavior::straight},     {1, PointBehavior::straight},
        {2, PointBehavior::mirrored},     {3, PointBehavior::asymmetric},
        {4, PointBehavior::disconnected}, {5, PointBehavior::straight},
        {-1, PointBehavior::straight},    {std::int64_t{1} << 40, PointBehavior::straight},
    };
    for (const auto& [mode, behavior] : table)
        EXPECT_EQ(readSegment({{"behaviorMode", mode}}).behavior(), behavior) << mode;
}

TEST(PathDictionary, storesHandlesWithoutCoupling) {
    const PathSegment segment =
        readSegment({{"point", pointAt(0, 0)}, {"curveTo", pointAt(1, 2)}, {"behaviorMode", 2}});
    EXPECT_EQ(segment.handleIn(), (CGPoint{1, 2}));
    EXPECT_EQ(segment.handleOut(), CGPoint::zero);
    EXPECT_EQ(readSegment({{"curveFrom", pointAt(1, 2)}, {"behaviorMode", 1}}).handleOut(),
              (CGPoint{1, 2}));
}

TEST(PathDictionary, clearsTheHandlesThatAreSaidNotToBeThere) {
    Value::Map map = {
        {"point", pointAt(3, 4)}, {"curveTo", pointAt(1, 1)}, {"curveFrom", pointAt(9, 5)}};
    map["hasTo"] = false;
    EXPECT_EQ(readSegment(map).handleIn(), CGPoint::zero);
    EXPECT_EQ(readSegment(map).handleOut(), (CGPoint{6, 1}));
    map["hasTo"] = true;
    map["hasFrom"] = false;
    EXPECT_EQ(readSegment(map).handleIn(), (CGPoint{-2, -3}));
    EXPECT_EQ(readSegment(map).handleOut(), CGPoint::zero);
}

TEST(PathDictionary, measuresHandlesFromTheOriginWithoutAnAnchor) {
    EXPECT_EQ(readSegment({{"curveTo", pointAt(1, 2)}}).handleIn(), (CGPoint{1, 2}));
}

TEST(PathDictionary, turnsAgainstTheAngleAboutTheMiddleOfTheFrame) {
    // 90 degrees take (60, 25), at (10, 0) from the middle, to (0, -10) from it.
    Value::Map map =
        dictionaryOf({Value::Map{{"point", pointAt(50, 25)}},
                      Value::Map{{"point", pointAt(60, 25)}, {"curveTo", pointAt(60, 20)}}});
    map["pathRotation"] = 90.0;
    const auto path = read(map);
    const CGPoint step = path->segments()[1].point();
    const CGPoint start = path->segments()[0].point();
    EXPECT_NEAR(step.x - start.x, 0, 1e-12);
    EXPECT_NEAR(step.y - start.y, -10, 1e-12);
    EXPECT_NEAR(path->segments()[1].handleIn().x, -5, 1e-12);
    EXPECT_NEAR(path->segments()[1].handleIn().y, 0, 1e-12);
}

TEST(PathDictionary, turnsAboutTheMiddleOfTheFrameHoweverFarAway) {
    // The sine of a full turn is 2.4e-16 in doubles: about the origin y would be off by 0.24.
    Value::Map map = dictionaryOf({Value::Map{{"point", pointAt(1e15 + 60, 25)}}});
    map["pathRotation"] = 360;
    const CGPoint point = Path::create(map, CGRectMake(1e15, 0, 100, 50))->segments()[0].point();
    EXPECT_EQ(point.x, 1e15 + 60);
    EXPECT_NEAR(point.y, 25, 1e-12);
}

TEST(PathDictionary, movesATurnedPathToTheOrigin) {
    Value::Map map = dictionaryOf({Value::Map{{"point", pointAt(20, 10)}},
                                   Value::Map{{"point", pointAt(80, 10)}},
                                   Value::Map{{"point", pointAt(50, 45)}}});
    map["isClosed"] = true;
    map["pathRotation"] = 90;
    const CGRect box = read(map)->boundingBox();
    EXPECT_NEAR(box.origin.x, 0, 1e-12);
    EXPECT_NEAR(box.origin.y, 0, 1e-12);
    EXPECT_NEAR(box.size.width, 35, 1e-12);
    EXPECT_NEAR(box.size.height, 60, 1e-12);

    map["pathRotation"] = 30;
    const CGRect tilted = read(map)->boundingBox();
    EXPECT_NEAR(tilted.origin.x, 0, 1e-12);
    EXPECT_NEAR(tilted.origin.y, 0, 1e-12);
}

TEST(PathDictionary, leavesAPathOfWholeTurnsWhereItIs) {
    Value::Map map = dictionaryOf(
        {Value::Map{{"point", pointAt(20, 10)}}, Value::Map{{"point", pointAt(80, 30)}}});
    for (const CGFloat rotation : {0.0, 360.0, -720.0, 1e-11}) {
        map["pathRotation"] = rotation;
        const CGRect box = read(map)->boundingBox();
        EXPECT_NEAR(box.origin.x, 20, 1e-9) << rotation;
        EXPECT_NEAR(box.origin.y, 10, 1e-9) << rotation;
    }
    map["pathRotation"] = 1e-10;  // 1.7e-12 radians
    EXPECT_NEAR(read(map)->boundingBox().origin.x, 0, 1e-9);
}

TEST(PathDictionary, readsTheMiddleOfAFrameWithANegativeSize) {
    Value::Map map =
        dictionaryOf({Value::Map{{"point", pointAt(20, 10)}, {"curveFrom", pointAt(30, 10)}},
                      Value::Map{{"point", pointAt(80, 30)}}});
    map["pathRotation"] = 180;
    EXPECT_TRUE(*Path::create(map, CGRectMake(100, 50, -100, -50)) == *read(map));
}

TEST(PathDictionary, answersForRotationsThatAreNotFinite) {
    Value::Map map = dictionaryOf({Value::Map{{"point", pointAt(20, 10)}}});
    map["pathRotation"] = std::nan("");
    EXPECT_EQ(read(map)->segments().count(), 1u);
    map["pathRotation"] = HUGE_VAL;
    EXPECT_EQ(read(map)->segments().count(), 1u);
    map["segments"] = Value::List();
    map["pathRotation"] = 45;
    EXPECT_TRUE(read(map)->segments().isEmpty());
}

TEST(PathDictionary, putsATurnedPathOfOneAnchorAtTheOrigin) {
    Value::Map map = dictionaryOf({Value::Map{{"point", pointAt(20, 10)}}});
    map["pathRotation"] = 45;
    EXPECT_EQ(read(map)->segments()[0].point(), CGPoint::zero);
}

}  // namespace
}  // namespace quorin
