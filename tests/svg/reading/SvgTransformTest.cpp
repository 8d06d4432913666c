#include "quorin/svg/reading/SvgTransform.h"

#include <cmath>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::DoubleNear;

void expectNear(const CGAffineTransform& actual, const CGAffineTransform& expected) {
    EXPECT_NEAR(actual.a, expected.a, 1e-12);
    EXPECT_NEAR(actual.b, expected.b, 1e-12);
    EXPECT_NEAR(actual.c, expected.c, 1e-12);
    EXPECT_NEAR(actual.d, expected.d, 1e-12);
    EXPECT_NEAR(actual.tx, expected.tx, 1e-12);
    EXPECT_NEAR(actual.ty, expected.ty, 1e-12);
}

TEST(SvgTransform, readsEveryFunction) {
    const CGFloat half = std::sqrt(0.5);
    struct Row {
        const char* text;
        CGAffineTransform transform;
    };
    const Row table[] = {
        {"", {}},
        {"none", {}},
        {"matrix(1 2 3 4 5 6)", {1, 2, 3, 4, 5, 6}},
        {"translate(3)", {1, 0, 0, 1, 3, 0}},
        {"translate(3,4)", {1, 0, 0, 1, 3, 4}},
        {"translate(0-1036.36)", {1, 0, 0, 1, 0, -1036.36}},
        {"scale(2)", {2, 0, 0, 2, 0, 0}},
        {"scale(1-1)", {1, 0, 0, -1, 0, 0}},
        {" scale ( 2 , 3 ) ", {2, 0, 0, 3, 0, 0}},
        {"rotate(45)", {half, half, -half, half, 0, 0}},
        {"rotate(50grad)", {half, half, -half, half, 0, 0}},
        {"rotate(.125turn)", {half, half, -half, half, 0, 0}},
        {"rotate(45deg)", {half, half, -half, half, 0, 0}},
        {"rotate(90 10 20)", {0, 1, -1, 0, 30, 10}},
        {"skewX(45)", {1, 0, 1, 1, 0, 0}},
        {"skewY(45)", {1, 1, 0, 1, 0, 0}},
        {"translate(5px,6px)", {1, 0, 0, 1, 5, 6}},
    };
    for (const auto& [text, transform] : table) {
        SCOPED_TRACE(text);
        const SvgTransformResult result = parseSvgTransform(text);
        EXPECT_FALSE(result.error);
        expectNear(result.transform, transform);
    }
}

TEST(SvgTransform, appliesTheLastFunctionFirst) {
    const CGAffineTransform expected{2, 0, 0, 2, 10, 0};
    for (const char* text : {"translate(10) scale(2)", "translate(10),scale(2)",
                             "translate(10)scale(2)", "translate(10)\n,\tscale(2)"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(parseSvgTransform(text).transform, expected);
    }
    EXPECT_EQ(parseSvgTransform("scale(2)translate(10)").transform,
              (CGAffineTransform{2, 0, 0, 2, 20, 0}));
}

TEST(SvgTransform, turnsByQuartersExactly) {
    EXPECT_EQ(parseSvgTransform("rotate(90)").transform, (CGAffineTransform{0, 1, -1, 0, 0, 0}));
    EXPECT_EQ(parseSvgTransform("rotate(-90)").transform, (CGAffineTransform{0, -1, 1, 0, 0, 0}));
    EXPECT_EQ(parseSvgTransform("rotate(180)").transform, (CGAffineTransform{-1, 0, 0, -1, 0, 0}));
    EXPECT_EQ(parseSvgTransform("rotate(-180)").transform, (CGAffineTransform{-1, 0, 0, -1, 0, 0}));
    EXPECT_EQ(parseSvgTransform("rotate(270)").transform, (CGAffineTransform{0, -1, 1, 0, 0, 0}));
    EXPECT_EQ(parseSvgTransform("rotate(720)").transform, CGAffineTransform::identity);
    EXPECT_EQ(parseSvgTransform("rotate(-3690)").transform, (CGAffineTransform{0, -1, 1, 0, 0, 0}));
}

TEST(SvgTransform, ignoresTheWholeListWhenAPartIsWrong) {
    struct Row {
        const char* text;
        const char* error;
        std::size_t offset;
    };
    const Row table[] = {
        {"scale(2) turn(3)", "there is no turn of 1 arguments", 9},
        {"scale(2", "expected a number", 7},
        {"scale 2", "expected '(' after scale", 6},
        {"scale(1 2 3)", "there is no scale of 3 arguments", 0},
        {"scale()", "there is no scale of 0 arguments", 0},
        {"rotate(1 2)", "there is no rotate of 2 arguments", 0},
        {"matrix(1 2 3 4 5 6 7)", "expected ')'", 20},
        {"translate(5em)", "unknown unit", 11},
        {"translate(x)", "expected a number", 10},
        {"(5)", "expected the name of a transform", 0},
        {"scale(2);", "expected the name of a transform", 8},
    };
    for (const auto& [text, error, offset] : table) {
        SCOPED_TRACE(text);
        const SvgTransformResult result = parseSvgTransform(text);
        EXPECT_EQ(result.error, error);
        EXPECT_EQ(result.errorOffset, offset);
        EXPECT_EQ(result.transform, CGAffineTransform::identity);
    }
}

TEST(SvgTransform, hasTheMeanScaleOfItsArea) {
    EXPECT_EQ(meanScale(CGAffineTransform::identity), 1);
    EXPECT_EQ(meanScale({2, 0, 0, 8, 5, 5}), 4);
    EXPECT_EQ(meanScale({0, -3, 3, 0, 0, 0}), 3);
    EXPECT_EQ(meanScale({1, 0, 0, -1, 0, 0}), 1);
}

TEST(SvgTransform, knowsHowUnevenItIs) {
    EXPECT_EQ(unevenness(CGAffineTransform::identity), 1);
    EXPECT_DOUBLE_EQ(unevenness({2, 0, 0, -8, 5, 5}), 4);
    EXPECT_DOUBLE_EQ(unevenness({0, -3, 9, 0, 0, 0}), 3);
    EXPECT_NEAR(unevenness(parseSvgTransform("rotate(33)scale(5)").transform), 1, 1e-15);
    // A shear by 45 degrees stretches by the golden ratio and shrinks by it.
    EXPECT_NEAR(unevenness(parseSvgTransform("skewX(45)").transform), 2.618033988749895, 1e-12);
}

}  // namespace
}  // namespace quorin
