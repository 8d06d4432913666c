/// A pass of the run loop that tells ten observers, beside GLib's own.
#include <glib.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "bench/PeerReport.h"
#include "quorin/observation/RunLoopObserver.h"

using namespace quorin;
using namespace quorin::bench;

int main(int argumentCount, char** arguments) {
    const std::string work = "pass of the run loop with 10 observers";
    const auto loop = RunLoop::main();
    const auto passes = RunLoopObserver::create(loop);
    std::size_t told = 0;
    for (int i = 0; i < 10; ++i)
        passes->addObserver([&told] { ++told; });

    loop->run(0);
    if (told != 20) {  // entry and exit; a pass that does not wait has nothing else to tell
        std::fprintf(stderr, "a pass has told %zu times instead of 20\n", told);
        return EXIT_FAILURE;
    }
    compare(work, ours, 1, [&] { loop->run(0); });
    compare(work, "GLib", 1, [] { g_main_context_iteration(nullptr, FALSE); });
    return runComparison(argumentCount, arguments);
}
