#include "quorin/transformers/NumericalValueTransformer.h"

#include <cmath>
#include <limits>

#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::DoubleEq;
using testing::Optional;

/// Has nothing but the defaults.
struct PlainTransformer : NumericalValueTransformer {};

struct NumericalValueTransformerTest : testing::Test {
    std::optional<double> stepped(const Value& value, double increments, double scale) const {
        return transformer.incrementValue(value, increments, scale).asDouble();
    }
    std::optional<double> kept(const Value& value, double lower, double upper) const {
        return transformer.clampValue(value, {lower, upper}).asDouble();
    }

    const PlainTransformer transformer{};
};

const std::vector<Value> noNumbers{
    Value(), Value("12"), Value(true), Value(NSNull::null()), Value(Value::List{1.0, 2.0}),
};

TEST_F(NumericalValueTransformerTest, stepsAndSnapsToTheGridOfTheStep) {
    struct Row {
        double value, increments, scale, expected;
    };
    const Row table[] = {
        {10, 1, 1, 11},     {10.2, 1, 1, 11},    {10.2, 1, -1, 9},  {10.6, 1, 1, 12},
        {10, 0.5, 3, 11.5}, {0.3, 0.25, 0, .25}, {-7, 10, 1, 0},    {-8, 10, -1, -20},
        {3, -1, 1, 2},      {3, -1, -2, 5},      {7.75, 0.5, 2, 9},
    };
    for (const auto& [value, increments, scale, expected] : table)
        EXPECT_THAT(stepped(value, increments, scale), Optional(expected))
            << value << " by " << increments << ", " << scale << " times";
}

TEST_F(NumericalValueTransformerTest, snapsHalvesAwayFromZero) {
    EXPECT_THAT(stepped(0.5, 1, 1), Optional(2.0));
    EXPECT_THAT(stepped(-0.5, 1, -1), Optional(-2.0));
    EXPECT_THAT(stepped(2.5, 1, 0), Optional(3.0)) << "not to the even one";
}

TEST_F(NumericalValueTransformerTest, addsTheStepBeforeItCountsSteps) {
    EXPECT_THAT(stepped(4.35, 0.3, 1), Optional(DoubleEq(4.5)))
        << "4.65 is 15.499999999999998 steps; 4.35 is 14.5 of them";
    EXPECT_THAT(stepped(-4.85, 0.1, 1), Optional(DoubleEq(-4.8)));
}

TEST_F(NumericalValueTransformerTest, makesNaNOfStepsOfNothing) {
    EXPECT_TRUE(std::isnan(stepped(5, 0, 1).value()));
    EXPECT_TRUE(std::isnan(stepped(0, 0, 0).value()));
    EXPECT_TRUE(std::isnan(stepped(NAN, 1, 1).value()));
    EXPECT_TRUE(std::isnan(stepped(5, INFINITY, 1).value()));
}

TEST_F(NumericalValueTransformerTest, stepsIntegersToDoubles) {
    EXPECT_THAT(stepped(7, 1, 1), Optional(8.0));
    EXPECT_THAT(kept(7, 0, 3), Optional(3.0));
}

TEST_F(NumericalValueTransformerTest, keepsValuesInTheirRange) {
    EXPECT_THAT(kept(5, 0, 3), Optional(3.0));
    EXPECT_THAT(kept(-5.5, 0, 3), Optional(0.0));
    EXPECT_THAT(kept(1.25, 0, 3), Optional(1.25));
    EXPECT_THAT(kept(INFINITY, 0, 3), Optional(3.0));
    EXPECT_THAT(kept(-INFINITY, 0, 3), Optional(0.0));
    EXPECT_THAT(kept(5, 2, 2), Optional(2.0));
}

TEST_F(NumericalValueTransformerTest, letsNaNThroughTheRange) {
    EXPECT_TRUE(std::isnan(kept(NAN, 0, 3).value()));
}

TEST_F(NumericalValueTransformerTest, givesTheLowerBoundForAnEqualValue) {
    const double zero = kept(-0.0, 0.0, 1).value();
    EXPECT_FALSE(std::signbit(zero)) << "the bound itself, not the equal value";
    EXPECT_TRUE(std::signbit(kept(0.0, -0.0, 1).value()));
}

TEST_F(NumericalValueTransformerTest, keepsAnEqualValueAtTheUpperBound) {
    EXPECT_TRUE(std::signbit(kept(-0.0, -1, 0.0).value()));
}

TEST_F(NumericalValueTransformerTest, asksTheUpperBoundFirst) {
    EXPECT_THAT(kept(5, 4, 3), Optional(4.0)) << "down to 3, which is below the lower bound";
}

TEST_F(NumericalValueTransformerTest, leavesEverythingElseAlone) {
    for (const Value& value : noNumbers) {
        EXPECT_EQ(transformer.incrementValue(value, 1, 1), value);
        EXPECT_EQ(transformer.clampValue(value, {5, 6}), value);
    }
}

}  // namespace
}  // namespace quorin
