#include "quorin/path/ClippingState.h"

#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {

void PrintTo(const ClippingState::State& state, std::ostream* stream) {
    *stream << "kind " << static_cast<int>(state.kind()) << ", rect ";
    PrintTo(state.rect(), stream);
}

namespace {

using State = ClippingState::State;

const CGRect box = CGRectMake(0, 0, 10, 10);
const CGRect around = CGRectMake(0, 0, 100, 100);
const CGRect farAway = CGRectMake(500, 500, 10, 10);

TEST(ClippingState, isBornDrawingNothing) {
    const auto clipping = ClippingState::create(box);
    EXPECT_EQ(clipping->state(), State::none());
    EXPECT_EQ(clipping->boundingBox(), box);
}

TEST(ClippingState, ordersItsCases) {
    EXPECT_EQ(static_cast<int>(State::Kind::intersect), 0);
    EXPECT_EQ(static_cast<int>(State::Kind::none), 1);
    EXPECT_EQ(static_cast<int>(State::Kind::contain), 2);
}

TEST(ClippingState, reportsABoxThatComesWhollyIntoViewOnce) {
    const auto clipping = ClippingState::create(box);
    EXPECT_TRUE(clipping->updateClippingState(around));
    EXPECT_EQ(clipping->state(), State::contain());
    EXPECT_FALSE(clipping->updateClippingState(around));
    EXPECT_EQ(clipping->state(), State::contain());
}

TEST(ClippingState, silentlyForgetsABoxOutOfView) {
    for (const State& before : {State::none(), State::contain(), State::intersect(box)}) {
        const auto clipping = ClippingState::create(box);
        clipping->setState(before);
        EXPECT_FALSE(clipping->updateClippingState(farAway));
        EXPECT_EQ(clipping->state(), State::none());
    }
}

/// One update of a box (0, 0, 100, 100).
struct Row {
    const char* says;
    State before;
    CGRect visible;
    bool answer;
    State after;
};

class UpdateClippingState : public ::testing::TestWithParam<Row> {};

TEST_P(UpdateClippingState, answersWhetherToDrawAgain) {
    const auto& [says, before, visible, answer, after] = GetParam();
    SCOPED_TRACE(says);
    const auto clipping = ClippingState::create(CGRectMake(0, 0, 100, 100));
    clipping->setState(before);
    EXPECT_EQ(clipping->updateClippingState(visible), answer);
    EXPECT_EQ(clipping->state(), after);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, UpdateClippingState,
    ::testing::Values(
        Row{"one unit of slack makes the box contained", State::none(), CGRectMake(1, 1, 98, 98),
            true, State::contain()},
        Row{"beyond the slack it is cut", State::none(), CGRectMake(1.5, 1.5, 97, 97), true,
            State::intersect(CGRectMake(0, 0, 100, 100))},
        Row{"contained while something outside the view was drawn: the whole box",
            State::intersect(CGRectMake(-50, 0, 100, 100)), CGRectMake(0, 0, 100, 100), true,
            State::intersect(CGRectMake(0, 0, 100, 100))},
        Row{"contained while what was drawn is in view: nothing to do",
            State::intersect(CGRectMake(20, 20, 10, 10)), CGRectMake(0, 0, 100, 100), false,
            State::intersect(CGRectMake(20, 20, 10, 10))},
        Row{"a box drawn whole sticks out: silently cut", State::contain(),
            CGRectMake(50, 50, 100, 100), false, State::intersect(CGRectMake(0, 0, 100, 100))},
        Row{"cut while what was drawn is within half a view around it: nothing to do",
            State::intersect(CGRectMake(45, 45, 55, 55)), CGRectMake(60, 60, 30, 30), false,
            State::intersect(CGRectMake(45, 45, 55, 55))},
        Row{"cut while what was drawn reaches farther: the part near the view",
            State::intersect(CGRectMake(44, 45, 55, 55)), CGRectMake(60, 60, 30, 30), true,
            State::intersect(CGRectMake(45, 45, 55, 55))},
        Row{"cut for the first time: the part near the view", State::none(),
            CGRectMake(90, 80, 40, 20), true, State::intersect(CGRectMake(70, 70, 30, 30))},
        Row{"within the slack, the part near the view is what half its width leaves", State::none(),
            CGRectMake(100.5, 0, 0.5, 100), true, State::intersect(CGRectNull)},
        Row{"the edge of the slack touches", State::none(), CGRectMake(101, 0, 40, 100), true,
            State::intersect(CGRectMake(81, 0, 19, 100))},
        Row{"beyond the slack there is nothing to see", State::intersect(box),
            CGRectMake(101.5, 0, 40, 100), false, State::none()},
        Row{"a view of negative size is read from its other corner", State::none(),
            CGRectMake(130, 100, -40, -20), true, State::intersect(CGRectMake(70, 70, 30, 30))}));

TEST(ClippingState, containsABoxThatIsNull) {
    const auto clipping = ClippingState::create(CGRectNull);
    EXPECT_TRUE(clipping->updateClippingState(around));
    EXPECT_EQ(clipping->state(), State::contain());
}

TEST(ClippingState, seesNothingThroughANullView) {
    const auto clipping = ClippingState::create(box);
    clipping->setState(State::contain());
    EXPECT_FALSE(clipping->updateClippingState(CGRectNull));
    EXPECT_EQ(clipping->state(), State::none());
}

TEST(ClippingState, measuresTheBoxItHasNow) {
    const auto clipping = ClippingState::create(farAway);
    clipping->setBoundingBox(box);
    EXPECT_TRUE(clipping->updateClippingState(around));
    EXPECT_EQ(clipping->boundingBox(), box);
}

}  // namespace
}  // namespace quorin
