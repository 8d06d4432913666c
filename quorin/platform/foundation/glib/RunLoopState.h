#pragma once

#include <glib.h>

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "quorin/platform/foundation/RunLoop.h"

namespace quorin {

/// One call that runs a loop, linked with the one around it.
struct RunLoop::Frame {
    Frame* outer = nullptr;
    std::atomic<bool> isStopped = false;
    /// Of its own: GLib keeps one array per context, which a nested run would take from the outer.
    std::vector<GPollFD> descriptors;
};

struct RunLoop::State {
    using Observers = std::vector<std::shared_ptr<CFRunLoopObserver>>;

    /// Takes over a reference to the context.
    State(GMainContext* shared, GPollFunc wait);
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State();

    /// Interrupts the wait that is going on or begins next; costs nothing when there is none.
    void wake() const;
    bool hasClosures() const;
    void callClosures();

    GMainContext* const context;
    const GPollFunc pollBefore;
    GSource* closureSource = nullptr;
    /// On the loop's thread: whether observers hear of a wait whose length is settled already.
    bool isSettlingToWait = false;

    mutable std::mutex mutex;  // of all below
    std::deque<std::function<void()>> closures;
    std::shared_ptr<const Observers> observers = std::make_shared<Observers>();
    Frame* innermost = nullptr;
};

}  // namespace quorin
