#include "quorin/motion/LinearFit.h"

#include <cmath>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

struct Sighting {
    double time;
    CGPoint place;
};

std::optional<LinearFit> fit(const std::vector<Sighting>& sightings) {
    return LinearFit::of(std::span(sightings), &Sighting::time, &Sighting::place);
}

struct TrueFit {
    long double slope, intercept;
};

/// By the normal equations, which share neither means nor the order of sums with the library.
TrueFit normalEquations(const std::vector<Sighting>& sightings, CGFloat CGPoint::*axis) {
    const auto n = static_cast<long double>(sightings.size());
    const long double origin = sightings.back().time;
    long double t = 0, tt = 0, p = 0, tp = 0;
    for (auto each = sightings.rbegin(); each != sightings.rend(); ++each) {
        const long double time = each->time - origin, place = each->place.*axis;
        t += time;
        tt += time * time;
        p += place;
        tp += time * place;
    }
    const long double slope = (n * tp - t * p) / (n * tt - t * t);
    return {slope, (p - slope * t) / n - slope * origin};
}

TEST(LinearFit, findsTheLineThatPointsLieOn) {
    const auto line = fit({{0, {1, 10}}, {1, {3, 9}}, {3, {7, 7}}});
    ASSERT_TRUE(line);
    EXPECT_NEAR(line->slope.x, 2, 1e-15);
    EXPECT_NEAR(line->slope.y, -1, 1e-15);
    EXPECT_NEAR(line->intercept.x, 1, 1e-14);
    EXPECT_NEAR(line->intercept.y, 10, 1e-14);
}

TEST(LinearFit, balancesPointsThatLieOnNone) {
    // Means 1 and 4/3: Σ(t - 1)(p - 4/3) = 1·4/3 + 0 + 1·(3 - 4/3) = 3 over Σ(t - 1)² = 2.
    const auto line = fit({{0, {0, 0}}, {1, {1, 0}}, {2, {3, 0}}});
    ASSERT_TRUE(line);
    EXPECT_DOUBLE_EQ(line->slope.x, 1.5);
    EXPECT_DOUBLE_EQ(line->intercept.x, 4.0 / 3 - 1.5);
    EXPECT_EQ(line->slope.y, 0);
}

TEST(LinearFit, isNothingWithoutSamples) { EXPECT_FALSE(fit({})); }

TEST(LinearFit, isNothingOfASingleSample) { EXPECT_FALSE(fit({{5, {1, 2}}})); }

TEST(LinearFit, isNothingWhenAllTimesAreEqualAlthoughTheirMeanRounds) {
    int offCount = 0;
    for (const double time : {0.1, 0.3, 0.7, 1.1, 12345.678, 98765.4321}) {
        for (std::size_t count = 2; count < 12; ++count) {
            std::vector<Sighting> sightings;
            double sum = 0;
            for (std::size_t i = 0; i < count; ++i) {
                sightings.push_back({time, {static_cast<CGFloat>(i), 1}});
                sum += time;
            }
            offCount += sum / static_cast<double>(count) != time;
            EXPECT_FALSE(fit(sightings)) << count << " at " << time;
        }
    }
    EXPECT_GT(offCount, 0) << "some means have to round for this to be a question";
}

TEST(LinearFit, isNothingWhenTheSquaresOfTheTimesVanish) {
    EXPECT_FALSE(fit({{0, {1, 2}}, {1e-200, {3, 4}}}));
}

RC_GTEST_PROP(LinearFit, isThatOfTheNormalEquations, ()) {
    const auto count = *rc::gen::inRange(2, 40);
    std::vector<Sighting> sightings;
    double time = *rc::gen::inRange(0, 10'000) / 7.0;
    for (int i = 0; i < count; ++i) {
        time += *rc::gen::inRange(1, 30) / 900.0;
        const CGFloat x = *rc::gen::inRange(-20'000, 20'000) / 9.0;
        const CGFloat y = *rc::gen::inRange(-20'000, 20'000) / 9.0;
        sightings.push_back({time, {x, y}});
    }
    const LinearFit line = fit(sightings).value();
    for (const auto axis : {&CGPoint::x, &CGPoint::y}) {
        const TrueFit truth = normalEquations(sightings, axis);
        const auto slope = static_cast<CGFloat>(truth.slope);
        const auto intercept = static_cast<CGFloat>(truth.intercept);
        RC_ASSERT(std::abs(line.slope.*axis - slope) < 1e-8 * (1000 + std::abs(slope)));
        RC_ASSERT(std::abs(line.intercept.*axis - intercept) < 1e-8 * (1e5 + std::abs(intercept)));
    }
}

}  // namespace
}  // namespace quorin
