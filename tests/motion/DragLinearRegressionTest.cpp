#include "quorin/motion/DragLinearRegression.h"

#include <cmath>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

/// A drag whose clock stands until it is told to move on.
class Drag {
public:
    explicit Drag(std::ptrdiff_t numberOfSamples, double start = 0) : seconds(start) {
        regression = DragLinearRegression::create(numberOfSamples, [this] { return seconds; });
    }

    void moveTo(CGPoint point, double after) {
        seconds += after;
        regression->update(point);
    }

    double seconds;
    std::shared_ptr<DragLinearRegression> regression;
};

CGFloat slopeByLongDouble(std::span<const DragLinearRegression::Sample> samples,
                          CGPoint DragLinearRegression::Sample::*series, CGFloat CGPoint::*axis) {
    // The mean slope of all pairs, each weighed by the square of its time apart.
    long double rises = 0, squares = 0;
    for (const auto& a : samples)
        for (const auto& b : samples) {
            const long double apart = static_cast<long double>(b.time) - a.time;
            rises += (static_cast<long double>(b.*series.*axis) - a.*series.*axis) * apart;
            squares += apart * apart;
        }
    return static_cast<CGFloat>(rises / squares);
}

TEST(DragLinearRegression, startsEmptyWithoutSlopes) {
    const auto regression = DragLinearRegression::create(5);
    EXPECT_EQ(regression->numberOfSamples(), 5);
    EXPECT_TRUE(regression->points().empty());
    EXPECT_EQ(regression->velocity(), CGPoint::zero);
    EXPECT_EQ(regression->gradient(), CGPoint::zero);
}

TEST(DragLinearRegression, hasNoSlopesAfterOneUpdate) {
    Drag drag(5, 100);
    drag.moveTo({30, 40}, 0);
    EXPECT_EQ(drag.regression->velocity(), CGPoint::zero);
    EXPECT_EQ(drag.regression->gradient(), CGPoint::zero);
    ASSERT_EQ(drag.regression->points().size(), 1u);
    EXPECT_EQ(drag.regression->points()[0].time, 100);
    EXPECT_EQ(drag.regression->points()[0].point, (CGPoint{30, 40}));
    EXPECT_EQ(drag.regression->points()[0].distance, CGPoint::zero);
}

TEST(DragLinearRegression, keepsItsSlopesAfterTwoUpdatesInOneTick) {
    Drag drag(2);
    drag.moveTo({0, 0}, 1);
    drag.moveTo({10, 20}, 0);
    EXPECT_EQ(drag.regression->velocity(), CGPoint::zero);
    EXPECT_EQ(drag.regression->gradient(), CGPoint::zero);

    drag.moveTo({20, 60}, 0.5);
    const CGPoint velocity = drag.regression->velocity(), gradient = drag.regression->gradient();
    EXPECT_EQ(velocity, (CGPoint{20, 80}));
    EXPECT_EQ(gradient, (CGPoint{0, 40}));
    drag.moveTo({99, 99}, 0);
    EXPECT_EQ(drag.regression->velocity(), velocity);
    EXPECT_EQ(drag.regression->gradient(), gradient);
}

TEST(DragLinearRegression, keepsItsSlopesInOneTickAlsoWhereTheMeanTimeRounds) {
    ASSERT_NE((0.1 + 0.1 + 0.1) / 3, 0.1);
    Drag drag(3, 0.1);
    for (const CGFloat x : {1.0, 2.0, 5.0})
        drag.moveTo({x, x}, 0);
    EXPECT_EQ(drag.regression->velocity(), CGPoint::zero);
    EXPECT_EQ(drag.regression->gradient(), CGPoint::zero);
}

TEST(DragLinearRegression, seesAStraightSteadyDrag) {
    Drag drag(6, 5000);
    for (int i = 0; i < 20; ++i)
        drag.moveTo({i * 4.0, 7}, 1.0 / 64);
    EXPECT_DOUBLE_EQ(drag.regression->velocity().x, 256);
    EXPECT_EQ(drag.regression->velocity().y, 0);
    EXPECT_NEAR(drag.regression->gradient().x, 0, 1e-9);
    EXPECT_EQ(drag.regression->gradient().y, 0);
}

TEST(DragLinearRegression, takesDistancesWithoutSign) {
    Drag drag(5);
    drag.moveTo({10, 10}, 1);
    drag.moveTo({7, 14}, 1);
    drag.moveTo({9, 8}, 1);
    EXPECT_EQ(drag.regression->points()[1].distance, (CGPoint{3, 4}));
    EXPECT_EQ(drag.regression->points()[2].distance, (CGPoint{2, 6}));
}

TEST(DragLinearRegression, fitsTheLastThreeSamplesOnly) {
    Drag drag(3), lastThree(3);
    const CGPoint places[] = {{500, -90}, {3, 77}, {4, 5}, {6, 1}, {11, 0}};
    for (std::size_t i = 0; i < 5; ++i)
        drag.moveTo(places[i], 0.25);
    lastThree.seconds = 0.5;
    for (std::size_t i = 2; i < 5; ++i)
        lastThree.moveTo(places[i], 0.25);
    ASSERT_EQ(drag.regression->points().size(), 3u);
    EXPECT_EQ(drag.regression->velocity(), lastThree.regression->velocity());
    // The distance of the third sample is still that from the second, which is gone.
    EXPECT_EQ(drag.regression->points()[0].distance, (CGPoint{1, 72}));
    EXPECT_EQ(drag.regression->gradient(), (CGPoint{(5 - 1) / 0.5, (1 - 72) / 0.5}));
}

TEST(DragLinearRegression, neverFitsWithALimitOfZeroOrLess) {
    for (const std::ptrdiff_t limit : {0, -1, -100}) {
        Drag drag(limit);
        for (int i = 0; i < 5; ++i) {
            drag.moveTo({i * 10.0, 3}, 0.1);
            EXPECT_EQ(drag.regression->points().size(), 1u);
        }
        EXPECT_EQ(drag.regression->velocity(), CGPoint::zero);
        EXPECT_EQ(drag.regression->gradient(), CGPoint::zero);
    }
}

TEST(DragLinearRegression, dropsOneSampleAnUpdateHoweverFarAboveTheLimit) {
    Drag drag(6);
    for (int i = 0; i < 6; ++i)
        drag.moveTo({i * 10.0, 3}, 0.1);
    drag.regression->setNumberOfSamples(2);
    EXPECT_EQ(drag.regression->points().size(), 6u) << "the limit is for later updates";
    const double secondTime = drag.regression->points()[1].time;
    drag.moveTo({70, 3}, 0.1);
    EXPECT_EQ(drag.regression->points().size(), 6u) << "one came and one went";
    EXPECT_EQ(drag.regression->points()[0].time, secondTime);

    drag.regression->setNumberOfSamples(7);
    drag.moveTo({80, 3}, 0.1);
    EXPECT_EQ(drag.regression->points().size(), 7u);
}

TEST(DragLinearRegression, answersWithoutLookingAtTheClock) {
    int readings = 0;
    const auto regression = DragLinearRegression::create(5, [&] { return 1.0 * ++readings; });
    regression->update({0, 0});
    regression->update({6, 8});
    EXPECT_EQ(regression->velocity(), (CGPoint{6, 8}));
    EXPECT_EQ(regression->gradient(), (CGPoint{6, 8}));
    EXPECT_EQ(readings, 2);
}

TEST(DragLinearRegression, goesByTheMediaClockByDefault) {
    const auto regression = DragLinearRegression::create(5);
    const double before = CACurrentMediaTime();
    regression->update({0, 0});
    EXPECT_GE(regression->points()[0].time, before);
    EXPECT_LE(regression->points()[0].time, CACurrentMediaTime());
}

RC_GTEST_PROP(DragLinearRegression, fitsLeastSquares, ()) {
    Drag drag(*rc::gen::inRange(2, 12), *rc::gen::inRange(0, 100'000) / 3.0);
    for (int i = 0; i < 30; ++i) {
        const CGFloat x = *rc::gen::inRange(0, 20'000) / 9.0;
        const CGFloat y = *rc::gen::inRange(0, 20'000) / 9.0;
        drag.moveTo({x, y}, *rc::gen::inRange(1, 30) / 900.0);
        if (i == 0)
            continue;
        using Sample = DragLinearRegression::Sample;
        const auto samples = drag.regression->points();
        for (const auto axis : {&CGPoint::x, &CGPoint::y}) {
            const CGFloat velocity = slopeByLongDouble(samples, &Sample::point, axis);
            const CGFloat gradient = slopeByLongDouble(samples, &Sample::distance, axis);
            const auto tolerance = [](CGFloat truth) { return 1e-7 * (1000 + std::abs(truth)); };
            RC_ASSERT(std::abs(drag.regression->velocity().*axis - velocity) < tolerance(velocity));
            RC_ASSERT(std::abs(drag.regression->gradient().*axis - gradient) < tolerance(gradient));
        }
    }
}

TEST(DragLinearRegression, doesNotAllocateOnceItsListIsFull) {
    Drag drag(6);
    for (int i = 0; i < 7; ++i)
        drag.moveTo({i * 10.0, 3}, 0.1);
    const std::size_t before = test::allocationCount();
    for (int i = 0; i < 100; ++i)
        drag.moveTo({i * 10.0, 3}, 0.1);
    EXPECT_EQ(test::allocationCount(), before);
}

}  // namespace
}  // namespace quorin
