#include "quorin/platform/foundation/glib/RunLoopState.h"

#include <utility>

namespace quorin {
namespace {

struct ClosureSource {
    GSource base;
    RunLoop::State* state;
};

RunLoop::State& stateOf(GSource* source) {
    return *reinterpret_cast<ClosureSource*>(source)->state;
}

gboolean areClosuresReady(GSource* source) { return stateOf(source).hasClosures(); }

gboolean prepareClosures(GSource* source, gint* timeout) {
    *timeout = -1;
    return areClosuresReady(source);
}

gboolean callClosures(GSource* source, GSourceFunc, gpointer) {
    stateOf(source).callClosures();
    return G_SOURCE_CONTINUE;
}

GSourceFuncs closureFunctions = {prepareClosures, areClosuresReady, callClosures,
                                 nullptr,         nullptr,          nullptr};

}  // namespace

RunLoop::State::State(GMainContext* shared, GPollFunc wait)
    : context(shared),
      pollBefore(g_main_context_get_poll_func(shared)),
      closureSource(g_source_new(&closureFunctions, sizeof(ClosureSource))) {
    reinterpret_cast<ClosureSource*>(closureSource)->state = this;
    // A closure may run the loop and wait there for those behind it.
    g_source_set_can_recurse(closureSource, TRUE);
    g_source_attach(closureSource, context);
    g_main_context_set_poll_func(context, wait);
}

RunLoop::State::~State() {
    g_main_context_set_poll_func(context, pollBefore);
    g_source_destroy(closureSource);
    g_source_unref(closureSource);
    g_main_context_unref(context);
}

void RunLoop::State::wake() const {
    if (!g_main_context_is_owner(context) || isSettlingToWait)
        g_main_context_wakeup(context);
}

bool RunLoop::State::hasClosures() const {
    const std::lock_guard lock(mutex);
    return !closures.empty();
}

void RunLoop::State::callClosures() {
    std::unique_lock lock(mutex);
    // Those added meanwhile wait for the next pass, or timers would starve behind a closure that
    // performs itself. One at a time, so that a nested run finds the others.
    for (std::size_t count = closures.size(); count > 0 && !closures.empty(); --count) {
        std::function<void()> closure = std::move(closures.front());
        closures.pop_front();
        lock.unlock();
        if (closure)
            closure();
        closure = nullptr;
        lock.lock();
    }
}

}  // namespace quorin
