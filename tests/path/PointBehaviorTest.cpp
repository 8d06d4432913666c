#include "quorin/path/PointBehavior.h"

#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using std::nullopt;

TEST(PointBehavior, comesFromARawValueFrom0To3) {
    EXPECT_EQ(pointBehavior(0), PointBehavior::straight);
    EXPECT_EQ(pointBehavior(1), PointBehavior::mirrored);
    EXPECT_EQ(pointBehavior(2), PointBehavior::disconnected);
    EXPECT_EQ(pointBehavior(3), PointBehavior::asymmetric);
    EXPECT_EQ(pointBehavior(-1), nullopt);
    EXPECT_EQ(pointBehavior(4), nullopt);
    EXPECT_EQ(pointBehavior(256), nullopt) << "cut to a byte this would be 0";
    EXPECT_EQ(pointBehavior(std::numeric_limits<std::int64_t>::min()), nullopt);
}

TEST(PointBehavior, crossesTheLastTwoSketchRawValues) {
    EXPECT_EQ(pointBehaviorWithSketchRawValue(1), PointBehavior::straight);
    EXPECT_EQ(pointBehaviorWithSketchRawValue(2), PointBehavior::mirrored);
    EXPECT_EQ(pointBehaviorWithSketchRawValue(3), PointBehavior::asymmetric);
    EXPECT_EQ(pointBehaviorWithSketchRawValue(4), PointBehavior::disconnected);
}

TEST(PointBehavior, hasNoSketchRawValueBelow1OrAbove4) {
    EXPECT_EQ(pointBehaviorWithSketchRawValue(0), nullopt);
    EXPECT_EQ(pointBehaviorWithSketchRawValue(5), nullopt);
    EXPECT_EQ(pointBehaviorWithSketchRawValue(-3), nullopt);
}

TEST(PointBehavior, describesItself) {
    EXPECT_EQ(description(PointBehavior::straight), "Straight");
    EXPECT_EQ(description(PointBehavior::mirrored), "Mirrored");
    EXPECT_EQ(description(PointBehavior::disconnected), "Disconnected");
    EXPECT_EQ(description(PointBehavior::asymmetric), "Asymmetric");
}

TEST(HandleType, knowsTheOtherHandle) {
    EXPECT_EQ(opposite(HandleType::handleIn), HandleType::handleOut);
    EXPECT_EQ(opposite(HandleType::handleOut), HandleType::handleIn);
    EXPECT_EQ(static_cast<int>(HandleType::handleIn), 0);
    EXPECT_EQ(static_cast<int>(HandleType::handleOut), 1);
}

}  // namespace
}  // namespace quorin
