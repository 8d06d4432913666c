#include "quorin/platform/ui/RunLoopAnimator.h"

#include "quorin/platform/foundation/RunLoop.h"
#include "quorin/platform/values/MediaTime.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr double patience = 20;  // seconds, on a machine that is busy with other things

TEST(RunLoopAnimator, stepsFromTheBeginningToTheEndAndCompletes) {
    RunLoopAnimator animator(0.001);
    std::vector<double> steps;
    int completions = 0;
    const double begin = CACurrentMediaTime();
    double end = 0;
    animator.animate(
        0.05, [&](double progress) { steps.push_back(progress); },
        [&] {
            ++completions;
            end = CACurrentMediaTime();
            RunLoop::current()->stop();
        });
    EXPECT_THAT(steps, testing::ElementsAre(0));
    EXPECT_EQ(RunLoop::current()->run(patience), RunLoopResult::stopped);
    EXPECT_GE(end - begin, 0.05);
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    EXPECT_EQ(steps.back(), 1);
    EXPECT_EQ(std::count(steps.begin(), steps.end(), 1), 1);
    RunLoop::current()->run(0.02);
    EXPECT_EQ(completions, 1);
}

TEST(RunLoopAnimator, animatesSeveralAndMayBeginMoreInACompletion) {
    RunLoopAnimator animator(0.001);
    std::vector<std::string> ended;
    const auto still = [](double) {};
    animator.animate(0.03, still, [&] {
        ended.push_back("long");
        animator.animate(0.01, still, [&] {
            ended.push_back("last");
            RunLoop::current()->stop();
        });
    });
    animator.animate(0.01, still, [&] { ended.push_back("short"); });
    EXPECT_EQ(RunLoop::current()->run(patience), RunLoopResult::stopped);
    EXPECT_THAT(ended, testing::ElementsAre("short", "long", "last"));
}

TEST(RunLoopAnimator, completesNothingAfterItsEnd) {
    auto animator = std::make_unique<RunLoopAnimator>(0.001);
    const auto kept = std::make_shared<int>();
    bool isCompleted = false;
    animator->animate(
        0.005, [kept](double) {}, [&] { isCompleted = true; });
    animator.reset();
    EXPECT_EQ(kept.use_count(), 1);
    RunLoop::current()->run(0.03);
    EXPECT_FALSE(isCompleted);
}

TEST(RunLoopAnimator, mayEndInACompletion) {
    auto animator = std::make_unique<RunLoopAnimator>(0.02);
    bool isOtherCompleted = false;
    animator->animate(
        0.005, [](double) {},
        [&] {
            animator.reset();
            RunLoop::current()->stop();
        });
    animator->animate(
        0.001, [](double) {}, [&] { isOtherCompleted = true; });  // due as well
    EXPECT_EQ(RunLoop::current()->run(patience), RunLoopResult::stopped);
    RunLoop::current()->run(0.05);
    EXPECT_EQ(animator, nullptr);
    EXPECT_FALSE(isOtherCompleted);
}

}  // namespace
}  // namespace quorin
