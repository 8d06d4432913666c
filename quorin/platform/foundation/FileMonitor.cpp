#include "quorin/platform/foundation/FileMonitor.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "quorin/platform/foundation/posix/PathWatch.h"

namespace quorin {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr Seconds quiet(0.05), patience(0.5), pollInterval(1);

}  // namespace

/// Shared with the closures in the loop, so that the callback may destroy the monitor.
struct FileMonitor::State : std::enable_shared_from_this<State> {
    State(const std::string& path, std::shared_ptr<RunLoop> runLoop, Callback changed)
        : loop(std::move(runLoop)), callback(std::move(changed)), watch(std::in_place, path) {}

    void start();
    void stop();
    void hear();
    void settle();
    void pollUnlessWatched();
    void look();
    bool isActive() const { return watch.has_value(); }

    /// A closure for the loop, which holds this only while it runs.
    std::function<void()> calling(void (State::*member)()) {
        return [weak = weak_from_this(), member] {
            const auto self = weak.lock();
            if (self && self->isActive())
                (*self.*member)();
        };
    }

    const std::shared_ptr<RunLoop> loop;
    const Callback callback;
    std::optional<PathWatch> watch;  // until it is stopped
    std::optional<FileState> lastSeen;
    std::optional<Clock::time_point> firstNews;  // of those that were not looked into yet
    bool isWritten = false;                      // of those
    bool wasStampFresh = false;
    bool isCalling = false;
    RunLoopSource hearing, settling, polling;
};

void FileMonitor::State::start() {
    lastSeen = watch->follow();
    watch->requireResources();
    wasStampFresh = watch->isStampFresh();
    hearing =
        loop->addDescriptor(watch->descriptor(), DescriptorEvent::readable, calling(&State::hear));
    pollUnlessWatched();
}

void FileMonitor::State::stop() {
    hearing.cancel();
    settling.cancel();
    polling.cancel();
    watch.reset();
}

void FileMonitor::State::hear() {
    const PathWatch::News news = watch->read();
    if (!news.isAny)
        return;
    // At once: what is done in a folder that has just been made counts as news already.
    if (news.mayLeadElsewhere)
        watch->follow();
    isWritten |= news.isWritten;
    settle();
}

void FileMonitor::State::settle() {
    if (!firstNews)
        firstNews = Clock::now();
    const Seconds left = patience - (Clock::now() - *firstNews);
    settling = loop->addTimer(std::min(quiet, left).count(), false, calling(&State::look));
}

void FileMonitor::State::pollUnlessWatched() {
    if (!watch->isComplete())
        polling = loop->addTimer(pollInterval.count(), false, calling(&State::settle));
}

void FileMonitor::State::look() {
    if (isCalling)
        return;  // it looks again after the call
    const std::optional<FileState> now = watch->follow();
    const bool mayDiffer = wasStampFresh && isWritten;
    wasStampFresh = watch->isStampFresh();
    isWritten = false;
    firstNews.reset();
    pollUnlessWatched();
    if (now == lastSeen && !mayDiffer)
        return;
    lastSeen = now;
    isCalling = true;
    callback(now);
    isCalling = false;
    if (isActive() && firstNews)
        settle();
}

FileMonitor::FileMonitor(const std::string& path, std::shared_ptr<RunLoop> loop, Callback changed)
    : state(std::make_shared<State>(path, std::move(loop), std::move(changed))) {
    state->start();
}

FileMonitor::~FileMonitor() { state->stop(); }

const std::optional<FileState>& FileMonitor::lastSeen() const { return state->lastSeen; }

void FileMonitor::stop() { state->stop(); }

bool FileMonitor::isActive() const { return state->isActive(); }

}  // namespace quorin
