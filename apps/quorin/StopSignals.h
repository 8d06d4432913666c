#pragma once

#include "quorin/platform/foundation/RunLoop.h"

namespace quorin::app {

/// Takes being asked to end (Ctrl-C, a closed terminal, `kill`) for a wish to stop the run loop, so
/// that what is being written is finished first. What whoever started the program has it ignore, it
/// goes on ignoring. To be made before any thread is started; the signals stay blocked afterwards.
class StopSignals {
public:
    explicit StopSignals(RunLoop& loop);
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    ~StopSignals();

private:
    int descriptor;
    RunLoopSource source;
};

}  // namespace quorin::app
