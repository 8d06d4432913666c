#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "quorin/platform/foundation/CFRunLoopObserver.h"

namespace quorin {

/// Why a call of `RunLoop::run` with a time limit came back.
enum class RunLoopResult { stopped, timedOut, handledSource };

/// Something a run loop watches, for as long as this token lives. To be released on the thread of
/// the loop; inside its own closure it may.
class RunLoopSource {
public:
    RunLoopSource();
    RunLoopSource(RunLoopSource&& other) noexcept;
    RunLoopSource& operator=(RunLoopSource&& other) noexcept;
    ~RunLoopSource();

    /// Ends it: the closure is not called any more.
    void cancel();
    /// False for an empty token, and once it was cancelled or a timer has fired for the last time.
    bool isActive() const;

private:
    friend class RunLoop;
    struct Handle;
    explicit RunLoopSource(std::unique_ptr<Handle> watched);

    std::unique_ptr<Handle> handle;
};

/// What is waited for on a file descriptor. Errors and a closed far end wake both.
enum class DescriptorEvent { readable, writable };

/// The loop of a thread: waits for timers, file descriptors and closures from other threads, and
/// calls what belongs to them on its own thread. All that is added is in the common modes: nested
/// runs serve it too. Closures must not throw.
///
/// Rests on GLib's main context, so a host whose own loop runs there (Qt's does on Debian) serves
/// all of it as well, and observers hear of every wait. Entry and exit come with runs of this
/// class. An observer that is called before a wait may run the loop too, but only by this class:
/// GLib keeps one array of descriptors per context, which another iteration inside a wait of the
/// host's would take away from under it.
///
/// Everything but `perform`, `stop` and the two operations on observers is to be called on the
/// loop's own thread.
class RunLoop {
public:
    /// That of the process's first thread, on GLib's default context. Never destroyed.
    static const std::shared_ptr<RunLoop>& main();
    /// That of the calling thread, on the context that is the thread's default, if there is one.
    static const std::shared_ptr<RunLoop>& current();

    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;
    ~RunLoop();

    /// Serves the loop until it is stopped. May be called from a closure that the loop calls; the
    /// closure that calls it is not called again meanwhile, all others are.
    void run();
    /// The same for at most so many seconds: with 0 a single pass that does not wait. When
    /// `returnAfterSourceHandled`, comes back after the first pass that called something.
    RunLoopResult run(double seconds, bool returnAfterSourceHandled = false);
    /// Ends the innermost run, soon and from any thread. Does nothing when none is going on: who
    /// wants to stop a run that may not have begun yet performs a closure that stops it.
    void stop();

    /// Calls `closure` on the loop's thread in its next pass, in order. From any thread.
    void perform(std::function<void()> closure);

    /// Calls `closure` in so many seconds, at once for what is not positive. A repeating timer
    /// keeps to its first schedule: times that were missed are left out, not made up for.
    [[nodiscard]] RunLoopSource addTimer(double seconds, bool repeats,
                                         std::function<void()> closure);
    /// Calls `closure` in every pass that finds the open descriptor ready, which has to outlive the
    /// token.
    [[nodiscard]] RunLoopSource addDescriptor(int descriptor, DescriptorEvent event,
                                              std::function<void()> closure);

    /// Takes effect at the next activity. Added or removed inside a call of an observer, it counts
    /// for the rest of that activity: one that was removed is not called, one that was added is not
    /// called yet. From any thread.
    void addObserver(const std::shared_ptr<CFRunLoopObserver>& observer);
    void removeObserver(const std::shared_ptr<CFRunLoopObserver>& observer);
    bool containsObserver(const std::shared_ptr<CFRunLoopObserver>& observer) const;

    struct State;  ///< the library's own

private:
    struct Frame;

    explicit RunLoop(std::unique_ptr<State> made);

    RunLoopResult runUntil(std::int64_t deadline, bool returnAfterSourceHandled);
    RunLoopResult repeatPasses(Frame& frame, std::int64_t deadline, bool returnAfterSourceHandled);
    void setInnermost(Frame* frame, Frame*& before);
    bool pass(Frame& frame, int longestWait);
    void notify(CFRunLoopActivity activity);
    void wakeIfPolling();
    int poll(void* descriptors, unsigned count, int timeout);

    std::unique_ptr<State> state;
};

}  // namespace quorin
