#include <cmath>
#include <numbers>

#include "quorin/platform/drawing/CGContext.h"
#include "tests/TestSupport.h"
#include "tests/platform/drawing/Pixels.h"

namespace quorin {
namespace {

using namespace test;

std::shared_ptr<CGContext> bitmap() { return CGContext::createBitmap(60, 60); }

TEST(CGContextOutline, isDrawnByMovesAndLines) {
    const auto context = bitmap();
    context->moveTo({10, 10});
    context->addLineTo({50, 10});
    context->addLineTo({50, 30});
    context->addLineTo({10, 30});
    context->closePath();
    context->addLineTo({0, 20});  // goes on from where the closed contour started
    context->addLineTo({10, 30});
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), 40 * 20 + 10 * 20 / 2.0, 0.5);
}

TEST(CGContextOutline, startsWithALineWhenThereIsNoPoint) {
    const auto context = bitmap();
    context->addLineTo({10, 10});
    context->addLineTo({30, 10});
    context->addLineTo({30, 30});
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), 200, 1);
}

TEST(CGContextArc, touchesBothItsLines) {
    const auto context = bitmap();
    context->moveTo({10, 50});
    context->addArcToPoint({10, 10}, {50, 10}, 20);
    context->addLineTo({50, 10});
    context->addLineTo({50, 50});
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), 40 * 40 - 20 * 20 * (1 - std::numbers::pi / 4), 1);
    EXPECT_EQ(alphaAt(*context, 14, 14), 0);
    EXPECT_EQ(alphaAt(*context, 18, 18), 255);
}

TEST(CGContextArc, isACircleInTheUnitsOfDrawing) {
    const auto context = bitmap();
    context->translateBy(5, 5);
    context->scaleBy(10, -5);
    context->rotateBy(std::numbers::pi);
    context->moveTo({-4, 0});
    context->addArcToPoint({0, 0}, {0, 4}, 2);
    context->addLineTo({0, 4});
    context->addLineTo({-4, 4});
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), (4 * 4 - 2 * 2 * (1 - std::numbers::pi / 4)) * 50, 2);
}

TEST(CGContextArc, isALineToItsCornerWhereThereIsNoCircle) {
    const auto triangle = [](CGPoint tangent2, CGFloat radius) {
        const auto context = bitmap();
        context->moveTo({10, 10});
        context->addArcToPoint({50, 10}, tangent2, radius);
        context->addLineTo({50, 50});
        context->fillPath();
        return coveredArea(*context);
    };
    EXPECT_NEAR(triangle({50, 50}, 0), 800, 2);
    EXPECT_NEAR(triangle({50, 10}, 5), 800, 2);
    EXPECT_NEAR(triangle({90, 10}, 5), 800, 2);
    EXPECT_NEAR(triangle({50, 50}, 10), 800 - 100 * (1 - std::numbers::pi / 4), 2);
}

TEST(CGContextArc, startsThePathAtItsCornerWhenThereIsNoPoint) {
    const auto context = bitmap();
    context->addArcToPoint({10, 10}, {30, 10}, 5);
    context->addLineTo({30, 10});
    context->addLineTo({30, 30});
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), 200, 1);
}

TEST(CGContextArc, isNotDrawnThroughATransformWithoutInverse) {
    const auto context = bitmap();
    context->moveTo({10, 10});
    context->scaleBy(1, 0);
    context->addArcToPoint({30, 10}, {30, 30}, 5);
    context->addArcToPoint({NAN, 10}, {30, 30}, 5);
    context->fillPath();
    EXPECT_EQ(coveredArea(*context), 0);
}

}  // namespace
}  // namespace quorin
