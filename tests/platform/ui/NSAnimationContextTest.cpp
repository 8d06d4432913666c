#include "quorin/platform/ui/NSAnimationContext.h"

#include "quorin/platform/ui/NSApplication.h"
#include "tests/TestSupport.h"
#include "tests/support/HandAnimator.h"

namespace quorin {
namespace {

using test::HandAnimator;

struct NSAnimationContextTest : testing::Test {
    NSAnimationContextTest() { NSApplication::shared().setAnimator(animator); }
    ~NSAnimationContextTest() override { NSApplication::shared().setAnimator(nullptr); }

    std::function<void()> noting(const char* text) {
        return [this, text] { seen.push_back(text); };
    }

    void animate(const char* completion) {
        NSAnimationContext::animate([](double) {}, noting(completion));
    }

    std::vector<std::string> seen;  // outlives the animator, whose end completes what still runs
    std::shared_ptr<HandAnimator> animator = std::make_shared<HandAnimator>();
};

TEST_F(NSAnimationContextTest, lastsAQuarterOfASecondUnlessAGroupingSaysOtherwise) {
    EXPECT_EQ(NSAnimationContext::current().duration(), 0.25);
    NSAnimationContext::runAnimationGroup([](NSAnimationContext& context) {
        EXPECT_EQ(&NSAnimationContext::current(), &context);
        EXPECT_EQ(context.duration(), 0.25);
        context.setDuration(0.33);
        EXPECT_EQ(NSAnimationContext::current().duration(), 0.33);
    });
    EXPECT_EQ(NSAnimationContext::current().duration(), 0.25);
}

TEST_F(NSAnimationContextTest, standsInsideOfOthers) {
    NSAnimationContext::runAnimationGroup([&](NSAnimationContext& outer) {
        outer.setDuration(1);
        NSAnimationContext::runAnimationGroup([&](NSAnimationContext& inner) {
            EXPECT_EQ(inner.duration(), 1);
            inner.setDuration(2);
            animate("");
        });
        EXPECT_EQ(NSAnimationContext::current().duration(), 1);
        animate("");
    });
    EXPECT_THAT(animator->durations(), testing::ElementsAre(2, 1));
}

TEST_F(NSAnimationContextTest, completesWhenAllThatBeganHasEnded) {
    NSAnimationContext::runAnimationGroup(
        [&](NSAnimationContext&) {
            animate("one");
            animate("two");
        },
        noting("group"));
    EXPECT_THAT(seen, testing::IsEmpty());
    animator->finish();
    EXPECT_THAT(seen, testing::ElementsAre("one", "two", "group"));
}

TEST_F(NSAnimationContextTest, completesAfterTheGroupingsInside) {
    NSAnimationContext::runAnimationGroup(
        [&](NSAnimationContext&) {
            NSAnimationContext::runAnimationGroup([&](NSAnimationContext&) { animate("one"); },
                                                  noting("inner"));
            NSAnimationContext::runAnimationGroup([](NSAnimationContext&) {}, noting("empty"));
        },
        noting("outer"));
    EXPECT_THAT(seen, testing::ElementsAre("empty"));
    animator->finish();
    EXPECT_THAT(seen, testing::ElementsAre("empty", "one", "inner", "outer"));
}

TEST_F(NSAnimationContextTest, isOverAtOnceWhenNothingTakesTime) {
    std::vector<double> steps;
    NSAnimationContext::runAnimationGroup(
        [&](NSAnimationContext& context) {
            context.setDuration(0);
            NSAnimationContext::animate([&](double progress) { steps.push_back(progress); },
                                        noting("one"));
            seen.push_back("changes end");
        },
        noting("group"));
    EXPECT_THAT(seen, testing::ElementsAre("one", "changes end", "group"));
    EXPECT_THAT(steps, testing::ElementsAre(1));

    NSApplication::shared().setAnimator(nullptr);
    animate("no animator");
    EXPECT_EQ(seen.back(), "no animator");
}

TEST_F(NSAnimationContextTest, comesToItsEndWhenTheAnimatorDoes) {
    std::vector<double> steps;
    NSAnimationContext::runAnimationGroup(
        [&](NSAnimationContext&) {
            NSAnimationContext::animate([&](double progress) { steps.push_back(progress); },
                                        noting("one"));
        },
        noting("group"));
    animator->step(0.5);
    NSApplication::shared().setAnimator(nullptr);
    EXPECT_THAT(seen, testing::IsEmpty());
    animator.reset();
    EXPECT_THAT(steps, testing::ElementsAre(0.5, 1));
    EXPECT_THAT(seen, testing::ElementsAre("one", "group"));
}

TEST_F(NSAnimationContextTest, endsOnceThoughTheAnimatorEndsAfterwards) {
    std::vector<double> steps;
    NSAnimationContext::animate([&](double progress) { steps.push_back(progress); }, noting("one"));
    NSApplication::shared().setAnimator(nullptr);
    animator->finish();
    animator.reset();
    EXPECT_THAT(steps, testing::ElementsAre(1));
    EXPECT_THAT(seen, testing::ElementsAre("one"));
}

TEST_F(NSAnimationContextTest, completesAroundAGroupingThatThrew) {
    NSAnimationContext::runAnimationGroup(
        [&](NSAnimationContext&) {
            const auto fail = [&](NSAnimationContext&) {
                animate("begun");
                throw 5;
            };
            EXPECT_THROW(NSAnimationContext::runAnimationGroup(fail, noting("inner")), int);
        },
        noting("outer"));
    EXPECT_THAT(seen, testing::IsEmpty());
    animator->finish();
    EXPECT_THAT(seen, testing::ElementsAre("begun", "outer"));
}

TEST_F(NSAnimationContextTest, isLeftWhenTheChangesThrow) {
    EXPECT_THROW(NSAnimationContext::runAnimationGroup([](NSAnimationContext& context) {
                     context.setDuration(5);
                     throw 5;
                 }),
                 int);
    EXPECT_EQ(NSAnimationContext::current().duration(), 0.25);
}

}  // namespace
}  // namespace quorin
