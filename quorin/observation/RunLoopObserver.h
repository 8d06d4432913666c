#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "quorin/platform/foundation/CFRunLoopObserver.h"
#include "quorin/platform/foundation/RunLoop.h"
#include "quorin/platform/foundation/UUID.h"

namespace quorin {

/// Closures that are called whenever the main run loop is entered, is about to wait, or is left, in
/// nested runs too. For the main thread alone; closures must not throw, and their order is nobody's
/// to rely on.
class RunLoopObserver {
public:
    using Closure = std::function<void()>;

    /// The one of the process, on the main run loop from its first use on, which may be on any
    /// thread.
    static const std::shared_ptr<RunLoopObserver>& shared();
    /// One on another loop, which counts on from `counter`.
    static std::shared_ptr<RunLoopObserver> create(std::shared_ptr<RunLoop> loop,
                                                   std::int64_t counter = 0);

    RunLoopObserver(const RunLoopObserver&) = delete;
    RunLoopObserver& operator=(const RunLoopObserver&) = delete;
    ~RunLoopObserver();

    /// Keeps the closure and calls it from the next pass on: one that is added inside a closure has
    /// to wait for the pass after this one.
    UUID addObserver(Closure closure);
    /// Releases that closure, which is not called any more, also not in the pass going on. Nothing
    /// happens for an unknown one or none.
    void removeObserver(const std::optional<UUID>& identifier);

    /// How often the main run loop has called back so far, with or without closures. Running out of
    /// numbers stops the process.
    static std::int64_t counter();

    const std::shared_ptr<CFRunLoopObserver>& runLoopObserser() const { return _runLoopObserser; }

private:
    /// Null once it was removed.
    struct Entry {
        std::shared_ptr<const Closure> closure;
    };
    using Entries = std::vector<std::shared_ptr<Entry>>;

    RunLoopObserver(std::shared_ptr<RunLoop> observed, std::int64_t start);

    void callBack();

    std::shared_ptr<RunLoop> loop;
    std::shared_ptr<CFRunLoopObserver> _runLoopObserser;
    std::int64_t _counter;
    std::map<UUID, std::shared_ptr<Entry>> observers;
    /// What the next pass calls; null when `observers` has changed since.
    std::shared_ptr<const Entries> _entries;
};

}  // namespace quorin
