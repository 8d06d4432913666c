#include "apps/quorin/StopSignals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace quorin::app {

namespace {

bool isIgnored(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

int blockedSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        if (!isIgnored(signal))
            sigaddset(&signals, signal);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    const int descriptor = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "signals");
    return descriptor;
}

}  // namespace

StopSignals::StopSignals(RunLoop& loop)
    : descriptor(blockedSignals()),
      source(loop.addDescriptor(descriptor, DescriptorEvent::readable, [this, &loop] {
          signalfd_siginfo signal;
          if (read(descriptor, &signal, sizeof signal) > 0)
              loop.stop();
      })) {}

StopSignals::~StopSignals() {
    source.cancel();
    close(descriptor);
}

}  // namespace quorin::app
