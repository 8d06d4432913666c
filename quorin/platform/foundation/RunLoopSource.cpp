#include <glib.h>

#include <algorithm>
#include <utility>

#include "quorin/platform/foundation/RunLoop.h"
#include "quorin/platform/foundation/glib/RunLoopState.h"

namespace quorin {
namespace {

using Closure = std::function<void()>;

void setClosure(GSource* source, Closure closure) {
    const GSourceFunc call = [](gpointer kept) -> gboolean {
        (*static_cast<Closure*>(kept))();
        return G_SOURCE_CONTINUE;
    };
    // GLib holds what is being called, so a closure may end its own source.
    g_source_set_callback(source, call, new Closure(std::move(closure)),
                          [](gpointer kept) { delete static_cast<Closure*>(kept); });
}

struct TimerSource {
    GSource base;
    gint64 next, interval;  // microseconds on GLib's clock
    gboolean repeats;
};

gboolean fire(GSource* source, GSourceFunc call, gpointer kept) {
    auto& timer = *reinterpret_cast<TimerSource*>(source);
    if (!timer.repeats) {
        g_source_set_ready_time(source, -1);
        call(kept);
        return G_SOURCE_REMOVE;
    }
    call(kept);
    const gint64 late = std::max<gint64>(g_get_monotonic_time() - timer.next, 0);
    timer.next += timer.interval * (1 + late / timer.interval);
    g_source_set_ready_time(source, timer.next);
    return G_SOURCE_CONTINUE;
}

gboolean callOnce(GSource*, GSourceFunc call, gpointer kept) { return call(kept); }

GSourceFuncs timerFunctions = {nullptr, nullptr, fire, nullptr, nullptr, nullptr};
GSourceFuncs descriptorFunctions = {nullptr, nullptr, callOnce, nullptr, nullptr, nullptr};

gint64 microseconds(double seconds) {
    constexpr double century = 3.2e9;
    return seconds > 0 ? static_cast<gint64>(std::min(seconds, century) * 1e6) : 0;
}

}  // namespace

struct RunLoopSource::Handle {
    explicit Handle(GSource* made) : source(made) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        g_source_destroy(source);
        g_source_unref(source);
    }

    GSource* const source;
};

RunLoopSource::RunLoopSource(std::unique_ptr<Handle> watched) : handle(std::move(watched)) {}
RunLoopSource::RunLoopSource() = default;
RunLoopSource::RunLoopSource(RunLoopSource&& other) noexcept = default;
RunLoopSource& RunLoopSource::operator=(RunLoopSource&& other) noexcept = default;
RunLoopSource::~RunLoopSource() = default;

void RunLoopSource::cancel() {
    // First out of here: what the closure holds may release this token as it goes.
    const std::unique_ptr<Handle> ended = std::move(handle);
}

bool RunLoopSource::isActive() const { return handle && !g_source_is_destroyed(handle->source); }

RunLoopSource RunLoop::addTimer(double seconds, bool repeats, std::function<void()> closure) {
    GSource* const source = g_source_new(&timerFunctions, sizeof(TimerSource));
    auto& timer = *reinterpret_cast<TimerSource*>(source);
    timer.interval = std::max<gint64>(microseconds(seconds), 100);
    timer.next = g_get_monotonic_time() + microseconds(seconds);
    timer.repeats = repeats;
    g_source_set_ready_time(source, timer.next);
    setClosure(source, std::move(closure));
    g_source_attach(source, state->context);
    wakeIfPolling();
    return RunLoopSource(std::make_unique<RunLoopSource::Handle>(source));
}

RunLoopSource RunLoop::addDescriptor(int descriptor, DescriptorEvent event,
                                     std::function<void()> closure) {
    GSource* const source = g_source_new(&descriptorFunctions, sizeof(GSource));
    const GIOCondition wanted = event == DescriptorEvent::readable ? G_IO_IN : G_IO_OUT;
    g_source_add_unix_fd(source, descriptor,
                         static_cast<GIOCondition>(wanted | G_IO_HUP | G_IO_ERR));
    setClosure(source, std::move(closure));
    g_source_attach(source, state->context);
    wakeIfPolling();
    return RunLoopSource(std::make_unique<RunLoopSource::Handle>(source));
}

}  // namespace quorin
