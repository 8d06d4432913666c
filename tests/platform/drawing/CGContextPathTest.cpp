#include <array>
#include <cmath>
#include <numbers>

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/drawing/CGContext.h"
#include "tests/TestSupport.h"
#include "tests/platform/drawing/Pixels.h"

namespace quorin {
namespace {

using namespace test;

TEST(CGContextFill, coversPixelsByTheirArea) {
    const auto context = CGContext::createBitmap(6, 4);
    context->fillRect(CGRectMake(1.5, 1.25, 3, 1.75));
    EXPECT_EQ(alphaAt(*context, 0, 1), 0);
    EXPECT_NEAR(alphaAt(*context, 1, 2), 128, 1);          // half in x
    EXPECT_NEAR(alphaAt(*context, 3, 1), 191, 1);          // three quarters in y
    EXPECT_NEAR(alphaAt(*context, 4, 1), 0.375 * 255, 1);  // half of three quarters
    EXPECT_EQ(alphaAt(*context, 2, 2), 255);
    EXPECT_EQ(alphaAt(*context, 2, 3), 0);
}

TEST(CGContextFill, hasItsOriginAtTheTopLeft) {
    const auto context = CGContext::createBitmap(3, 2);
    context->fillRect(CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(alphaAt(*context, 0, 0), 255);
    EXPECT_EQ(coveredArea(*context), 1);
}

TEST(CGContextFill, takesRectsWithNegativeSizes) {
    const auto context = CGContext::createBitmap(4, 4);
    context->fillRect(CGRectMake(3, 3, -2, -2));
    EXPECT_EQ(alphaAt(*context, 1, 1), 255);
    EXPECT_EQ(coveredArea(*context), 4);
}

TEST(CGContextFill, leavesTheHoleOpenByTheEvenOddRuleOnly) {
    const auto area = [](CGPathFillRule rule) {
        const auto context = CGContext::createBitmap(10, 10);
        context->addRect(CGRectMake(1, 1, 8, 8));
        context->addRect(CGRectMake(3, 3, 4, 4));
        context->fillPath(rule);
        return std::pair(alphaAt(*context, 5, 5), coveredArea(*context));
    };
    EXPECT_EQ(area(CGPathFillRule::evenOdd), std::pair(0, 48.0));
    EXPECT_EQ(area(CGPathFillRule::winding), std::pair(255, 64.0));
}

TEST(CGContextFill, closesOpenContours) {
    const auto context = CGContext::createBitmap(10, 10);
    context->addPath(*polyline({{0, 0}, {10, 0}, {10, 10}}));
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), 50, 1);
}

TEST(CGContextFill, drawsCurvesOfBothDegrees) {
    const auto quadratic = CGContext::createBitmap(60, 60);
    CGMutablePath path;
    path.moveTo({0, 60});
    path.addQuadCurveTo({60, 60}, {30, 0});
    quadratic->addPath(*path.take());
    quadratic->fillPath();
    EXPECT_NEAR(coveredArea(*quadratic), 2.0 / 3 * 30 * 60, 3);  // two thirds of the box around

    const auto ellipse = CGContext::createBitmap(60, 60);
    ellipse->fillEllipse(CGRectMake(5, 10, 50, 40));
    EXPECT_NEAR(coveredArea(*ellipse), std::numbers::pi * 25 * 20, 4);
    EXPECT_EQ(alphaAt(*ellipse, 6, 30), 255);
    EXPECT_EQ(alphaAt(*ellipse, 4, 30), 0);
    EXPECT_EQ(alphaAt(*ellipse, 8, 13), 0);
}

TEST(CGContextFill, usesThePathUp) {
    const auto context = CGContext::createBitmap(4, 4);
    context->addRect(CGRectMake(0, 0, 2, 2));
    context->fillPath();
    context->clearRect(CGRectMake(0, 0, 4, 4));
    context->fillPath();
    EXPECT_EQ(coveredArea(*context), 0);
    context->addRect(CGRectMake(0, 0, 2, 2));
    context->beginPath();
    context->fillPath();
    EXPECT_EQ(coveredArea(*context), 0);
}

TEST(CGContextStroke, isAsWideAsTheLine) {
    const auto context = CGContext::createBitmap(20, 20);
    context->setLineWidth(3);
    context->addPath(*polyline({{2, 10.5}, {18, 10.5}}));
    context->strokePath();
    for (const std::size_t y : {9u, 10u, 11u})
        EXPECT_EQ(alphaAt(*context, 10, y), 255);
    EXPECT_EQ(alphaAt(*context, 10, 8), 0);
    EXPECT_EQ(alphaAt(*context, 10, 12), 0);
    EXPECT_EQ(coveredArea(*context), 16 * 3);
}

TEST(CGContextStroke, isOneUnitWideAtFirst) {
    const auto context = CGContext::createBitmap(20, 4);
    context->addPath(*polyline({{0, 2}, {20, 2}}));
    context->strokePath();
    EXPECT_NEAR(alphaAt(*context, 10, 1), 128, 1);
    EXPECT_NEAR(alphaAt(*context, 10, 2), 128, 1);
}

TEST(CGContextStroke, endsAsTheCapSays) {
    struct Row {
        CGLineCap cap;
        double area;
        double tolerance;
    };
    const Row table[] = {
        {CGLineCap::butt, 20 * 8, 0.01},
        {CGLineCap::square, 28 * 8, 0.01},
        {CGLineCap::round, 20 * 8 + std::numbers::pi * 16, 0.5},
    };
    for (const auto& [cap, area, tolerance] : table) {
        const auto context = CGContext::createBitmap(40, 20);
        context->setLineWidth(8);
        context->setLineCap(cap);
        context->addPath(*polyline({{10, 10}, {30, 10}}));
        context->strokePath();
        EXPECT_NEAR(coveredArea(*context), area, tolerance);
    }
}

TEST(CGContextStroke, turnsAsTheJoinSays) {
    // A right angle of width 8: outside of both legs lies a square of 4 by 4.
    struct Row {
        CGLineJoin join;
        CGFloat miterLimit;
        double corner;
        double tolerance;
    };
    const Row table[] = {
        {CGLineJoin::miter, 10, 16, 0.1},
        {CGLineJoin::miter, 1.4, 8, 0.3},  // the square root of 2 would be needed
        {CGLineJoin::bevel, 10, 8, 0.3},
        {CGLineJoin::round, 10, std::numbers::pi * 4, 0.3},
    };
    for (const auto& [join, miterLimit, corner, tolerance] : table) {
        const auto context = CGContext::createBitmap(40, 40);
        context->setLineWidth(8);
        context->setLineJoin(join);
        context->setMiterLimit(miterLimit);
        context->addPath(*polyline({{10, 30}, {10, 10}, {30, 10}}));
        context->strokePath();
        EXPECT_NEAR(coveredArea(*context), 20 * 8 * 2 - 16 + corner, tolerance);
    }
}

TEST(CGContextStroke, dashesFromThePhaseOn) {
    const auto context = CGContext::createBitmap(20, 3);
    context->setLineDash(1, std::array{3.0, 2.0});
    context->addPath(*polyline({{0, 1.5}, {20, 1.5}}));
    context->strokePath();
    const std::string drawn = [&] {
        std::string row;
        for (std::size_t x = 0; x < 20; ++x)
            row += alphaAt(*context, x, 1) == 255 ? '-' : ' ';
        return row;
    }();
    EXPECT_EQ(drawn, "--  ---  ---  ---  -");
}

TEST(CGContextStroke, isSolidWithDashesThatAreNone) {
    const std::vector<std::vector<CGFloat>> none = {
        {}, {0, 0}, {3, -1}, {std::nan(""), 2}, {INFINITY, 1}, {1e-9, 1e-9}};
    for (const auto& dashes : none) {
        const auto context = CGContext::createBitmap(20, 3);
        context->setLineDash(0, std::array{1.0, 5.0});
        context->setLineDash(0, dashes);
        context->addPath(*polyline({{0, 1.5}, {20, 1.5}}));
        context->strokePath();
        EXPECT_EQ(coveredArea(*context), 20) << testing::PrintToString(dashes);
    }
}

TEST(CGContextStroke, shapesThePenByTheTransform) {
    const auto context = CGContext::createBitmap(40, 40);
    context->scaleBy(4, 2);
    context->setLineWidth(2);
    context->addPath(*polyline({{5, 2}, {5, 18}}));
    context->addPath(*polyline({{1, 10}, {9, 10}}));
    context->strokePath();
    EXPECT_EQ(alphaAt(*context, 16, 10), 255);  // the vertical line is 8 pixels wide
    EXPECT_EQ(alphaAt(*context, 23, 10), 255);
    EXPECT_EQ(alphaAt(*context, 24, 10), 0);
    EXPECT_EQ(alphaAt(*context, 8, 18), 255);  // the horizontal one 4
    EXPECT_EQ(alphaAt(*context, 8, 21), 255);
    EXPECT_EQ(alphaAt(*context, 8, 22), 0);
}

TEST(CGContextStroke, scalesDashesWithTheTransform) {
    const auto context = CGContext::createBitmap(40, 4);
    context->scaleBy(4, 4);
    context->setLineDash(0, std::array{2.0, 1.0});
    context->addPath(*polyline({{0, 0.5}, {10, 0.5}}));
    context->strokePath();
    EXPECT_EQ(alphaAt(*context, 7, 2), 255);
    EXPECT_EQ(alphaAt(*context, 8, 2), 0);
    EXPECT_EQ(alphaAt(*context, 12, 2), 255);
}

TEST(CGContextStroke, drawsNoLineWithoutWidth) {
    const auto context = CGContext::createBitmap(20, 20);
    for (const CGFloat width : {0.0, -1.0, std::nan("")}) {
        context->setLineWidth(width);
        context->strokeRect(CGRectMake(5, 5, 10, 10));
    }
    EXPECT_EQ(coveredArea(*context), 0);
    context->setLineWidth(2);
    context->strokeRect(CGRectMake(5, 5, 10, 10));
    EXPECT_EQ(coveredArea(*context), 12 * 12 - 8 * 8);
}

TEST(CGContextStroke, goesRoundAnEllipse) {
    const auto context = CGContext::createBitmap(60, 60);
    context->setLineWidth(4);
    context->strokeEllipse(CGRectMake(10, 10, 40, 40));
    EXPECT_NEAR(coveredArea(*context), std::numbers::pi * (22 * 22 - 18 * 18), 3);
}

}  // namespace
}  // namespace quorin
