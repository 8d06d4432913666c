#include "quorin/platform/ui/NSLayoutConstraint.h"

#include "quorin/platform/ui/NSView.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

/// Two views in a container of 300 × 200.
struct NSLayoutConstraintTest : testing::Test {
    NSLayoutConstraintTest() {
        container->addSubview(a);
        container->addSubview(b);
    }

    void constrain(std::initializer_list<const char*> formats) {
        for (const char* format : formats)
            container->addConstraints(
                NSLayoutConstraint::constraints(format, {{"a", a}, {"b", b}}));
    }

    void layOut(CGFloat width, CGFloat height) {
        container->setFrame(CGRectMake(50, 60, width, height));
        container->layoutSubtreeIfNeeded();
    }

    std::shared_ptr<NSView> container = makeObject<NSView>(CGRectMake(50, 60, 300, 200));
    std::shared_ptr<NSView> a = makeObject<NSView>(CGRectMake(1, 2, 10, 20));
    std::shared_ptr<NSView> b = makeObject<NSView>(CGRectMake(3, 4, 30, 40));
};

TEST_F(NSLayoutConstraintTest, fillsTheContainerThatAViewIsPinnedTo) {
    constrain({"H:|-0-[a]-0-|", "V:|-0-[a]-0-|"});
    EXPECT_EQ(a->frame(), CGRectMake(1, 2, 10, 20));
    container->layoutSubtreeIfNeeded();
    EXPECT_EQ(a->frame(), CGRectMake(0, 0, 300, 200));
    layOut(640, 480);
    EXPECT_EQ(a->frame(), CGRectMake(0, 0, 640, 480));
    layOut(0, 0);
    EXPECT_EQ(a->frame(), CGRectMake(0, 0, 0, 0));
    EXPECT_EQ(b->frame(), CGRectMake(3, 4, 30, 40));
}

TEST_F(NSLayoutConstraintTest, placesRowsAndColumns) {
    struct Row {
        const char* format;
        CGRect a, b;
    };
    const Row table[] = {
        {"|-8-[a]", CGRectMake(8, 2, 10, 20), CGRectMake(3, 4, 30, 40)},
        {"H:[a]-8-|", CGRectMake(282, 2, 10, 20), CGRectMake(3, 4, 30, 40)},
        {"H:|[a]|", CGRectMake(0, 2, 300, 20), CGRectMake(3, 4, 30, 40)},
        {"H:|-5-[a(40)]-7.5-[b]-0-|", CGRectMake(5, 2, 40, 20), CGRectMake(52.5, 4, 247.5, 40)},
        {"H:|[a][b(==100)]|", CGRectMake(0, 2, 200, 20), CGRectMake(200, 4, 100, 40)},
        {"H:|-5-[a]-5-[b]", CGRectMake(5, 2, 10, 20), CGRectMake(20, 4, 30, 40)},
        {"H:|-5-[a]-5-[b]-5-|", CGRectMake(5, 2, 10, 20), CGRectMake(20, 4, 275, 40)},
        {"V:|-5-[a(50)]-10-[b]-20-|", CGRectMake(1, 5, 10, 50), CGRectMake(3, 65, 30, 115)},
        {"V:[a(50)]", CGRectMake(1, 2, 10, 50), CGRectMake(3, 4, 30, 40)},
        {"H:[b]-4-[a]", CGRectMake(1, 2, 10, 20), CGRectMake(-33, 4, 30, 40)},
    };
    for (const auto& [format, expectedA, expectedB] : table) {
        SCOPED_TRACE(format);
        a->setFrame(CGRectMake(1, 2, 10, 20));
        b->setFrame(CGRectMake(3, 4, 30, 40));
        container->removeConstraints(std::vector(container->constraints()));
        constrain({format});
        container->layoutSubtreeIfNeeded();
        EXPECT_EQ(a->frame(), expectedA);
        EXPECT_EQ(b->frame(), expectedB);
    }
}

TEST_F(NSLayoutConstraintTest, keepsTheEarlierOneOfTwoThatContradictEachOther) {
    constrain({"H:|-0-[a]-0-|", "H:[a(40)]", "H:|-7-[a]"});
    container->layoutSubtreeIfNeeded();
    EXPECT_EQ(a->frame(), CGRectMake(0, 2, 300, 20));
    container->removeConstraints(std::vector(container->constraints()));
    constrain({"H:[a(40)]", "H:|-0-[a]-0-|"});
    container->layoutSubtreeIfNeeded();
    EXPECT_EQ(a->frame(), CGRectMake(0, 2, 40, 20));
}

TEST_F(NSLayoutConstraintTest, leavesAViewNoNegativeSizeWhereThereIsNoRoom) {
    constrain({"H:|-20-[a]-20-|", "V:|-5-[a][b(10)]-5-|"});
    layOut(30, 12);
    EXPECT_EQ(a->frame(), CGRectMake(20, 5, 0, 0));
    EXPECT_EQ(b->frame().size.height, 10);
    layOut(100, 120);
    EXPECT_EQ(a->frame(), CGRectMake(20, 5, 60, 100));
}

TEST_F(NSLayoutConstraintTest, canBeWrittenWithoutAPicture) {
    using enum NSLayoutAttribute;
    const std::vector constraints = {
        NSLayoutConstraint::create(a, leading, container, leading, 10),
        NSLayoutConstraint::create(a, width, b, width, 5),
        NSLayoutConstraint::create(b, width, 50),
        NSLayoutConstraint::create(a, bottom, container, bottom, -10),
    };
    container->addConstraints(constraints);
    container->layoutSubtreeIfNeeded();
    EXPECT_EQ(a->frame(), CGRectMake(10, 170, 55, 20));
    EXPECT_EQ(constraints[1]->firstItem(), a);
    EXPECT_EQ(constraints[1]->firstAttribute(), width);
    EXPECT_EQ(constraints[1]->secondItem(), b);
    EXPECT_EQ(constraints[1]->secondAttribute(), width);
    EXPECT_EQ(constraints[1]->constant(), 5);
    EXPECT_EQ(constraints[2]->secondItem(), nullptr);
}

TEST_F(NSLayoutConstraintTest, isDroppedWithTheViewThatItIsAbout) {
    constrain({"H:|[a][b]|", "V:|[b]|"});
    EXPECT_EQ(container->constraints().size(), 5u);
    a->removeFromSuperview();
    EXPECT_EQ(container->constraints().size(), 3u);
    container->layoutSubtreeIfNeeded();
    EXPECT_EQ(a->frame(), CGRectMake(1, 2, 10, 20));
    EXPECT_EQ(b->frame(), CGRectMake(270, 0, 30, 200));
}

TEST_F(NSLayoutConstraintTest, holdsNoView) {
    constrain({"H:|[a]|"});
    const std::weak_ptr<NSView> weak = container;
    const auto kept = container->constraints();
    container.reset();
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(kept[0]->secondItem(), nullptr);
}

using NSLayoutConstraintDeathTest = NSLayoutConstraintTest;

TEST_F(NSLayoutConstraintDeathTest, namesThePlaceWhereAPictureIsNone) {
    const std::pair<const char*, const char*> table[] = {
        {"", "visual format \"\": \"\\[\" expected at 0"},
        {"H:", "visual format \"H:\": \"\\[\" expected at 2"},
        {"H:|", "\"\\[\" expected at 3"},
        {"H:||", "\"\\[\" expected at 3"},
        {"H:|-0-", "\"\\[\" expected at 6"},
        {"H:|-0[a]", "\"-\" expected at 5"},
        {"H:|-[a]", "a number expected at 4"},
        {"H:|--1-[a]", "a number expected at 4"},
        {"H:|-inf-[a]", "a number expected at 4"},
        {"H:[]", "a name expected at 3"},
        {"H:[a", "\"\\]\" expected at 4"},
        {"H:[a(]", "a number expected at 5"},
        {"H:[a(5]", "\"\\)\" expected at 6"},
        {"H:[a(>=5)]", "a number expected at 5"},
        {"H:[a]-0-", "\"\\[\" expected at 8"},
        {"H:[a]|[b]", "the end expected at 6"},
        {"H:[a] ", "\"\\[\" expected at 5"},
        {"Z:[a]", "\"\\[\" expected at 0"},
    };
    for (const auto& [format, message] : table)
        EXPECT_DEATH(constrain({format}), message) << format;
}

TEST_F(NSLayoutConstraintDeathTest, namesTheViewThatIsMissing) {
    EXPECT_DEATH(constrain({"H:[c]"}), "a visual format names \"c\", no view does");
    a->removeFromSuperview();
    EXPECT_DEATH(constrain({"H:|[a]"}),
                 "a visual format brings \"a\" to the edge of its superview, but it has none");
    EXPECT_DEATH(constrain({"H:[a(5)]"}),
                 "a constraint on <NSView: 0x[0-9a-f]+>, which is not in <NSView");
}

TEST_F(NSLayoutConstraintDeathTest, refusesAttributesThatDoNotMatch) {
    using enum NSLayoutAttribute;
    EXPECT_DEATH(NSLayoutConstraint::create(a, leading, b, top, 0), "attributes that do not match");
    EXPECT_DEATH(NSLayoutConstraint::create(a, width, b, height, 0),
                 "attributes that do not match");
    EXPECT_DEATH(NSLayoutConstraint::create(a, leading, 5), "with no other edge");
}

}  // namespace
}  // namespace quorin
