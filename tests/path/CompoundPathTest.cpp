#include "quorin/path/CompoundPath.h"

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

std::shared_ptr<CompoundPath> drawn(FunctionRef<void(CGMutablePath&)> draw) {
    CGMutablePath outline;
    draw(outline);
    return CompoundPath::create(*outline.take());
}

TEST(CompoundPath, isBornWithoutChildren) {
    EXPECT_TRUE(CompoundPath::create()->children().empty());
    EXPECT_TRUE(CompoundPath::create()->cg()->isEmpty());
}

TEST(CompoundPath, hasAChildForEachSubpathButNotForATrailingMove) {
    const auto compound = drawn([](CGMutablePath& outline) {
        outline.moveTo({0, 0});
        outline.addLineTo({10, 0});
        outline.addLineTo({10, 10});
        outline.closeSubpath();
        outline.moveTo({50, 50});
        outline.addCurveTo({60, 50}, {53, 53}, {57, 53});
        outline.moveTo({99, 99});
    });
    ASSERT_EQ(compound->children().size(), 2u);
    const Path& triangle = *compound->children()[0];
    EXPECT_TRUE(triangle.isClosed());
    EXPECT_EQ(triangle.segments().count(), 3u);
    EXPECT_EQ(triangle.segments()[0].behavior(), PointBehavior::straight);
    const Path& arc = *compound->children()[1];
    EXPECT_FALSE(arc.isClosed());
    EXPECT_EQ(arc.segments()[0].controlPointOut(), (CGPoint{53, 53}));
    EXPECT_EQ(arc.segments()[1].controlPointIn(), (CGPoint{57, 53}));
}

TEST(CompoundPath, keepsALoneMoveInTheMiddle) {
    const auto compound = drawn([](CGMutablePath& outline) {
        outline.moveTo({1, 1});
        outline.moveTo({0, 0});
        outline.addLineTo({10, 0});
    });
    ASSERT_EQ(compound->children().size(), 2u);
    EXPECT_EQ(compound->children()[0]->segments().count(), 1u);
}

TEST(CompoundPath, removesOnlyTheLastOfSeveralLoneMoves) {
    const auto compound = drawn([](CGMutablePath& outline) {
        outline.moveTo({1, 1});
        outline.moveTo({0, 0});
    });
    ASSERT_EQ(compound->children().size(), 1u);
    EXPECT_EQ(compound->children()[0]->segments()[0].point(), (CGPoint{1, 1}));
}

TEST(CompoundPath, removesALastChildOfOneAnchorThoughClosed) {
    EXPECT_TRUE(drawn([](CGMutablePath& outline) {
                    outline.moveTo({1, 1});
                    outline.closeSubpath();
                })
                    ->children()
                    .empty());
}

TEST(CompoundPath, bendsQuadraticsAsPathsDo) {
    const auto compound = drawn([](CGMutablePath& outline) {
        outline.moveTo({0, 0});
        outline.addQuadCurveTo({6, 0}, {3, 3});
    });
    EXPECT_EQ(compound->children()[0]->segments()[0].controlPointOut(), (CGPoint{2, 2}));
    EXPECT_EQ(compound->children()[0]->segments()[1].controlPointIn(), (CGPoint{2, 2}));
}

TEST(CompoundPath, goesOnDrawingAfterAClose) {
    const auto compound = drawn([](CGMutablePath& outline) {
        outline.moveTo({0, 0});
        outline.addLineTo({10, 0});
        outline.closeSubpath();
        outline.addLineTo({5, 5});
    });
    ASSERT_EQ(compound->children().size(), 1u);
    EXPECT_EQ(compound->children()[0]->segments().count(), 3u);
}

TEST(CompoundPath, diesOfDrawingBeforeTheFirstMove) {
    const CGPoint points[] = {{1, 1}, {2, 2}, {3, 3}};
    const auto draw = [&](CGPathElementType type, std::size_t count) {
        CompoundPath::create()->addElement({type, std::span(points, count)});
    };
    EXPECT_DEATH(draw(CGPathElementType::addLineToPoint, 1), "kind 1 before the first move");
    EXPECT_DEATH(draw(CGPathElementType::addQuadCurveToPoint, 2), "kind 2 before the first move");
    EXPECT_DEATH(draw(CGPathElementType::addCurveToPoint, 3), "kind 3 before the first move");
    EXPECT_DEATH(draw(CGPathElementType::closeSubpath, 0), "kind 4 before the first move");
}

TEST(CompoundPath, diesOfAnUnknownElement) {
    const auto compound = CompoundPath::create({Path::create()});
    EXPECT_DEATH(compound->addElement({static_cast<CGPathElementType>(5), {}}),
                 "Invalid compound path.*CompoundPath");
}

TEST(CompoundPath, chainsItsChildrensPlatformPathsAnewAtEachCall) {
    const auto first = Path::create();
    first->moveTo({0, 0});
    first->addLineTo({10, 0});
    const auto second = Path::create();
    second->moveTo({5, 5});
    second->addLineTo({6, 6});
    second->closePath();
    const auto compound = CompoundPath::create({first, second});

    CGMutablePath expected;
    expected.addPath(*first->cg());
    expected.addPath(*second->cg());
    EXPECT_TRUE(*compound->cg() == *expected.copy());
    EXPECT_EQ(compound->cg()->elementCount(), 6u);
    EXPECT_NE(compound->cg(), compound->cg());

    first->addLineTo({20, 20});
    EXPECT_EQ(compound->cg()->elementCount(), 7u);
}

TEST(CompoundPath, sharesTheChildrenItIsGiven) {
    const auto child = Path::create();
    const auto compound = CompoundPath::create();
    compound->setChildren({child, child});
    ASSERT_EQ(compound->children().size(), 2u);
    EXPECT_EQ(compound->children()[1], child);
}

}  // namespace
}  // namespace quorin
