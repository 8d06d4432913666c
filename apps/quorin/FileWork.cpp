#include "apps/quorin/FileWork.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <functional>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace quorin::app {

namespace {

using std::chrono::milliseconds;

/// A line on the terminal that is rewritten, and gone when the work is done.
class ProgressLine {
public:
    ProgressLine(std::string what, std::size_t total)
        : doing(std::move(what)), count(total), isShown(isatty(STDERR_FILENO) != 0 && total > 1) {}
    ~ProgressLine() {
        if (hasPrinted)
            std::fputs("\r\033[K", stderr);
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(std::size_t done) {
        if (!isShown)
            return;
        std::fprintf(stderr, "\r%s %zu of %zu (%zu %%)\033[K", doing.c_str(), done, count,
                     done * 100 / count);
        std::fflush(stderr);
        hasPrinted = true;
    }

private:
    std::string doing;
    std::size_t count;
    bool isShown;
    bool hasPrinted = false;
};

/// A thread for each processor, but not more than there is work for, and fewer or none when the
/// system gives no more.
template <typename Work>
std::vector<std::thread> startThreads(std::size_t workCount, const Work& work) {
    std::vector<std::thread> threads;
    const std::size_t processors = std::max(1u, std::thread::hardware_concurrency());
    try {
        while (threads.size() < std::min(workCount, processors))
            threads.emplace_back(std::cref(work));
    } catch (const std::system_error&) {
        // Those that run do all of it.
    }
    return threads;
}

}  // namespace

void forEachFile(std::size_t count, const std::string& doing, FunctionRef<void(std::size_t)> work) {
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t done = 0;
    const auto workOn = [&] {
        for (std::size_t index = next++; index < count; index = next++) {
            work(index);
            const std::lock_guard lock(mutex);
            ++done;
            changed.notify_one();
        }
    };
    std::vector<std::thread> workers = startThreads(count, workOn);
    if (workers.empty())
        return workOn();

    {
        // Short work needs no line; long work gets a new one a few times a second.
        constexpr milliseconds patience(400), period(100);
        ProgressLine line(doing, count);
        std::unique_lock lock(mutex);
        const auto isDone = [&] { return done == count; };
        for (auto wait = patience; !changed.wait_for(lock, wait, isDone); wait = period)
            line.show(done);
    }
    for (std::thread& worker : workers)
        worker.join();
}

}  // namespace quorin::app
