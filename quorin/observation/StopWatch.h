#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "quorin/platform/values/MediaTime.h"

namespace quorin {

/// Records laps under titles and prints how long after the start each was.
class StopWatch {
public:
    struct Lap {
        std::string title;
        double time;  ///< seconds on the watch's clock
    };
    /// The present time in seconds.
    using Clock = std::function<double()>;

    /// Starts with a lap of this title. Reports go to standard output.
    static std::shared_ptr<StopWatch> create(std::string title, Clock clock = CACurrentMediaTime);
    /// Reports go to `output`, which has to outlive the watch.
    static std::shared_ptr<StopWatch> create(std::string title, Clock clock, std::ostream& output);

    StopWatch(const StopWatch&) = delete;
    StopWatch& operator=(const StopWatch&) = delete;

    /// The start first.
    const std::vector<Lap>& laps() const { return _laps; }
    void lap(std::string title);

    /// Records a lap first if there is a title. Then takes the first lap away for good, prints its
    /// title, unless that is empty, and the milliseconds from it to each remaining lap:
    ///
    ///     open:
    ///     load: 12.5ms
    ///
    /// So the next report starts where the second lap was; without a lap left it stops the process.
    void report(std::optional<std::string> title = std::nullopt);

private:
    StopWatch(std::string title, Clock timeSource, std::ostream& stream);

    Clock clock;
    std::ostream& output;
    std::vector<Lap> _laps;
};

}  // namespace quorin
