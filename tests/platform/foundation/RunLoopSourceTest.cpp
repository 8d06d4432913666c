#include <unistd.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "quorin/platform/foundation/RunLoop.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(RunLoopSource, firesATimerOnceWhenItDoesNotRepeat) {
    int count = 0;
    RunLoopSource timer = RunLoop::main()->addTimer(0.001, false, [&] { ++count; });
    EXPECT_TRUE(timer.isActive());
    RunLoop::main()->run(0.02);
    EXPECT_EQ(count, 1);
    EXPECT_FALSE(timer.isActive());
}

TEST(RunLoopSource, firesATimerNoEarlierThanAsked) {
    const auto start = std::chrono::steady_clock::now();
    const RunLoopSource timer =
        RunLoop::main()->addTimer(0.0105, false, [] { RunLoop::main()->stop(); });
    RunLoop::main()->run();
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::microseconds(10'500));
}

TEST(RunLoopSource, leavesOutTheTimesARepeatingTimerMissed) {
    int count = 0;
    const RunLoopSource timer = RunLoop::main()->addTimer(0.01, true, [&] {
        if (++count == 1)
            std::this_thread::sleep_for(std::chrono::milliseconds(35));
        if (count == 2)
            RunLoop::main()->stop();
    });
    const auto start = std::chrono::steady_clock::now();
    RunLoop::main()->run();
    // Fired at 10, missed those at 20, 30 and 40, and fires again at 50 or later.
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
}

TEST(RunLoopSource, endsATimerInsideItsOwnClosure) {
    int count = 0;
    RunLoopSource timer;
    timer = RunLoop::main()->addTimer(0, true, [&, kept = std::make_shared<int>(7)] {
        timer.cancel();
        count += *kept;
    });
    RunLoop::main()->run(0.005);
    EXPECT_EQ(count, 7);
    EXPECT_FALSE(timer.isActive());
}

TEST(RunLoopSource, endsATimerWithItsToken) {
    int count = 0;
    {
        const RunLoopSource timer = RunLoop::main()->addTimer(0, true, [&] { ++count; });
    }
    RunLoop::main()->run(0.002);
    EXPECT_EQ(count, 0);
}

TEST(RunLoopSource, watchesDescriptors) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    std::string got;
    const RunLoopSource reader =
        RunLoop::main()->addDescriptor(ends[0], DescriptorEvent::readable, [&] {
            char byte = 0;
            if (read(ends[0], &byte, 1) == 1)
                got += byte;
            else
                RunLoop::main()->stop();
        });
    bool isWritable = false;
    RunLoopSource writer = RunLoop::main()->addDescriptor(ends[1], DescriptorEvent::writable, [&] {
        isWritable = true;
        writer.cancel();
        EXPECT_EQ(write(ends[1], "ab", 2), 2);
        close(ends[1]);
    });
    EXPECT_EQ(RunLoop::main()->run(20), RunLoopResult::stopped);
    EXPECT_TRUE(isWritable);
    EXPECT_EQ(got, "ab");
    close(ends[0]);
}

}  // namespace
}  // namespace quorin
