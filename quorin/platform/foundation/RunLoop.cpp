#include "quorin/platform/foundation/RunLoop.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdint>
#include <utility>

#include "quorin/platform/foundation/glib/RunLoopState.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

bool isFirstThread() { return syscall(SYS_gettid) == getpid(); }

GMainContext* contextOfThread() {
    if (GMainContext* const context = g_main_context_get_thread_default())
        return g_main_context_ref(context);
    return g_main_context_new();
}

constexpr gint64 never = INT64_MAX;

/// Microseconds on GLib's clock.
gint64 deadlineIn(double seconds) {
    constexpr double century = 3.2e9;
    const double capped = seconds > 0 ? std::min(seconds, century) : 0;
    return g_get_monotonic_time() + static_cast<gint64>(std::ceil(capped * 1e6));
}

/// For a poll: -1 stands for no limit.
int millisecondsUntil(gint64 deadline) {
    if (deadline == never)
        return -1;
    const gint64 left = std::max<gint64>(deadline - g_get_monotonic_time(), 0);
    return static_cast<int>(std::min<gint64>((left + 999) / 1000, INT_MAX));
}

}  // namespace

const std::shared_ptr<RunLoop>& RunLoop::main() {
    static const std::shared_ptr<RunLoop>& loop = *[] {
        GMainContext* const context = g_main_context_ref(g_main_context_default());
        const GPollFunc wait = [](GPollFD* descriptors, guint count, gint timeout) {
            return main()->poll(descriptors, count, timeout);
        };
        return new std::shared_ptr<RunLoop>(new RunLoop(std::make_unique<State>(context, wait)));
    }();
    return loop;
}

const std::shared_ptr<RunLoop>& RunLoop::current() {
    if (isFirstThread())
        return main();
    thread_local const std::shared_ptr<RunLoop> loop = [] {
        const GPollFunc wait = [](GPollFD* descriptors, guint count, gint timeout) {
            return current()->poll(descriptors, count, timeout);
        };
        return std::shared_ptr<RunLoop>(
            new RunLoop(std::make_unique<State>(contextOfThread(), wait)));
    }();
    return loop;
}

RunLoop::RunLoop(std::unique_ptr<State> made) : state(std::move(made)) {}

RunLoop::~RunLoop() {
    for (const auto& observer : *state->observers)
        observer->_isScheduled = false;
}

void RunLoop::run() { runUntil(never, false); }

RunLoopResult RunLoop::run(double seconds, bool returnAfterSourceHandled) {
    return runUntil(deadlineIn(seconds), returnAfterSourceHandled);
}

RunLoopResult RunLoop::runUntil(std::int64_t deadline, bool returnAfterSourceHandled) {
    if (this != current().get() || !g_main_context_acquire(state->context))
        fatalError("a run loop was run on a thread that is not its own");
    const bool wasSettling = std::exchange(state->isSettlingToWait, false);
    Frame frame;
    setInnermost(&frame, frame.outer);
    notify(kCFRunLoopEntry);
    const RunLoopResult result = repeatPasses(frame, deadline, returnAfterSourceHandled);
    notify(kCFRunLoopExit);
    Frame* ended = nullptr;
    setInnermost(frame.outer, ended);
    state->isSettlingToWait = wasSettling;
    wakeIfPolling();
    g_main_context_release(state->context);
    return result;
}

void RunLoop::setInnermost(Frame* frame, Frame*& before) {
    const std::lock_guard lock(state->mutex);
    before = std::exchange(state->innermost, frame);
}

RunLoopResult RunLoop::repeatPasses(Frame& frame, std::int64_t deadline,
                                    bool returnAfterSourceHandled) {
    while (!frame.isStopped) {
        const bool hasHandled = pass(frame, millisecondsUntil(deadline));
        if (frame.isStopped)
            break;
        if (hasHandled && returnAfterSourceHandled)
            return RunLoopResult::handledSource;
        if (g_get_monotonic_time() >= deadline)
            return RunLoopResult::timedOut;
    }
    return RunLoopResult::stopped;
}

bool RunLoop::pass(Frame& frame, int longestWait) {
    GMainContext* const context = state->context;
    std::vector<GPollFD>& descriptors = frame.descriptors;
    int priority = 0, timeout = 0, count = 0;
    g_main_context_prepare(context, &priority);
    const auto query = [&] {
        count = g_main_context_query(context, priority, &timeout, descriptors.data(),
                                     static_cast<int>(descriptors.size()));
        return static_cast<std::size_t>(count);
    };
    while (query() > descriptors.size())
        descriptors.resize(static_cast<std::size_t>(count));
    if (longestWait >= 0 && (timeout < 0 || timeout > longestWait))
        timeout = longestWait;

    const GPollFunc wait = g_main_context_get_poll_func(context);
    wait(descriptors.data(), static_cast<guint>(count), timeout);
    const bool isReady = g_main_context_check(context, priority, descriptors.data(), count) != 0;
    g_main_context_dispatch(context);
    return isReady;
}

int RunLoop::poll(void* descriptors, unsigned count, int timeout) {
    const auto wait = [&] {
        return state->pollBefore(static_cast<GPollFD*>(descriptors), count, timeout);
    };
    if (timeout == 0)
        return wait();

    // The length of the wait is settled: what observers add has to wake it.
    const bool wasSettling = std::exchange(state->isSettlingToWait, true);
    notify(kCFRunLoopBeforeWaiting);
    state->isSettlingToWait = wasSettling;
    const int result = wait();
    const int error = errno;
    notify(kCFRunLoopAfterWaiting);
    errno = error;
    return result;
}

void RunLoop::wakeIfPolling() {
    if (state->isSettlingToWait)
        g_main_context_wakeup(state->context);
}

void RunLoop::stop() {
    const std::lock_guard lock(state->mutex);
    if (!state->innermost)
        return;
    state->innermost->isStopped = true;
    state->wake();
}

void RunLoop::perform(std::function<void()> closure) {
    const std::lock_guard lock(state->mutex);
    state->closures.push_back(std::move(closure));
    state->wake();
}

void RunLoop::notify(CFRunLoopActivity activity) {
    std::shared_ptr<const State::Observers> snapshot;
    {
        const std::lock_guard lock(state->mutex);
        snapshot = state->observers;
    }
    for (const auto& observer : *snapshot) {
        if ((observer->activities() & activity) == 0 || !observer->isScheduled())
            continue;
        if (!observer->doesRepeat())
            removeObserver(observer);
        if (observer->handler)
            observer->handler(activity);
    }
}

void RunLoop::addObserver(const std::shared_ptr<CFRunLoopObserver>& observer) {
    if (!observer || observer->_isScheduled.exchange(true))
        return;
    const std::lock_guard lock(state->mutex);
    auto changed = std::make_shared<State::Observers>(*state->observers);
    const auto isBefore = [](const auto& a, const auto& b) { return a->order() < b->order(); };
    changed->insert(std::upper_bound(changed->begin(), changed->end(), observer, isBefore),
                    observer);
    state->observers = std::move(changed);
}

void RunLoop::removeObserver(const std::shared_ptr<CFRunLoopObserver>& observer) {
    const std::lock_guard lock(state->mutex);
    auto changed = std::make_shared<State::Observers>(*state->observers);
    if (std::erase(*changed, observer) == 0)
        return;
    observer->_isScheduled = false;
    state->observers = std::move(changed);
}

bool RunLoop::containsObserver(const std::shared_ptr<CFRunLoopObserver>& observer) const {
    const std::lock_guard lock(state->mutex);
    return std::find(state->observers->begin(), state->observers->end(), observer) !=
           state->observers->end();
}

}  // namespace quorin
