#include "quorin/observation/RunLoopObserver.h"

#include <limits>
#include <string>
#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

const std::shared_ptr<RunLoopObserver>& RunLoopObserver::shared() {
    // Never destroyed: the main run loop outlives all statics, and so does what it calls.
    static const auto& instance =
        *new std::shared_ptr<RunLoopObserver>(RunLoopObserver::create(RunLoop::main()));
    return instance;
}

std::shared_ptr<RunLoopObserver> RunLoopObserver::create(std::shared_ptr<RunLoop> loop,
                                                         std::int64_t counter) {
    const std::shared_ptr<RunLoopObserver> made(new RunLoopObserver(std::move(loop), counter));
    const auto handler = [weak = std::weak_ptr(made)](CFRunLoopActivity) {
        if (const auto self = weak.lock())
            self->callBack();
    };
    made->_runLoopObserser = CFRunLoopObserver::create(
        kCFRunLoopEntry | kCFRunLoopBeforeWaiting | kCFRunLoopExit, true, 0, handler);
    made->loop->addObserver(made->_runLoopObserser);
    return made;
}

RunLoopObserver::RunLoopObserver(std::shared_ptr<RunLoop> observed, std::int64_t start)
    : loop(std::move(observed)), _counter(start) {}

RunLoopObserver::~RunLoopObserver() {
    observers.clear();
    loop->removeObserver(_runLoopObserser);
}

UUID RunLoopObserver::addObserver(Closure closure) {
    const UUID identifier = UUID::random();
    const auto kept = std::make_shared<const Closure>(std::move(closure));
    observers.emplace(identifier, std::make_shared<Entry>(Entry{kept}));
    _entries.reset();
    return identifier;
}

void RunLoopObserver::removeObserver(const std::optional<UUID>& identifier) {
    const auto found = identifier ? observers.find(*identifier) : observers.end();
    if (found == observers.end())
        return;
    const std::shared_ptr<Entry> removed = found->second;
    observers.erase(found);
    _entries.reset();
    // Last, as what a closure holds may come back here when it goes. One that is being called stays
    // until it returns.
    const std::shared_ptr<const Closure> released = std::move(removed->closure);
}

std::int64_t RunLoopObserver::counter() { return shared()->_counter; }

void RunLoopObserver::callBack() {
    if (_counter == std::numeric_limits<std::int64_t>::max())
        fatalError("no number for a callback after " + std::to_string(_counter));
    ++_counter;
    if (!_entries) {
        auto entries = std::make_shared<Entries>();
        for (const auto& [identifier, entry] : observers)
            entries->push_back(entry);
        _entries = std::move(entries);
    }
    const std::shared_ptr<const Entries> pass = _entries;
    for (const auto& entry : *pass)
        if (const std::shared_ptr<const Closure> closure = entry->closure; closure && *closure)
            (*closure)();
}

}  // namespace quorin
