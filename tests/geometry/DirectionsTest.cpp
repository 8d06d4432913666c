#include "quorin/geometry/Directions.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(Axis, isHorizontalAlongX) {
    EXPECT_TRUE(isHorizontal(Axis::x));
    EXPECT_FALSE(isVertical(Axis::x));
    EXPECT_FALSE(isHorizontal(Axis::y));
    EXPECT_TRUE(isVertical(Axis::y));
}

TEST(Orientation, isWhatItSays) {
    EXPECT_TRUE(isHorizontal(Orientation::horizontal));
    EXPECT_FALSE(isVertical(Orientation::horizontal));
    EXPECT_FALSE(isHorizontal(Orientation::vertical));
    EXPECT_TRUE(isVertical(Orientation::vertical));
}

TEST(Direction, liesAlongAnAxisAndAscendsRightAndDown) {
    struct Row {
        Direction direction;
        bool isHorizontal, isAscendant;
    };
    const Row table[] = {
        {Direction::left, true, false},
        {Direction::right, true, true},
        {Direction::up, false, false},
        {Direction::down, false, true},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(static_cast<int>(row.direction));
        EXPECT_EQ(isHorizontal(row.direction), row.isHorizontal);
        EXPECT_EQ(isVertical(row.direction), !row.isHorizontal);
        EXPECT_EQ(isAscendant(row.direction), row.isAscendant);
    }
}

}  // namespace
}  // namespace quorin
