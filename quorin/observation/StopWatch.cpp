#include "quorin/observation/StopWatch.h"

#include <charconv>
#include <iostream>
#include <limits>
#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

/// As "%.1f" writes it, with a point in every locale.
std::string withOneDecimal(double number) {
    char text[std::numeric_limits<double>::max_exponent10 + 8];
    const auto end =
        std::to_chars(std::begin(text), std::end(text), number, std::chars_format::fixed, 1).ptr;
    return std::string(text, end);
}

}  // namespace

std::shared_ptr<StopWatch> StopWatch::create(std::string title, Clock clock) {
    return create(std::move(title), std::move(clock), std::cout);
}

std::shared_ptr<StopWatch> StopWatch::create(std::string title, Clock clock, std::ostream& output) {
    return std::shared_ptr<StopWatch>(new StopWatch(std::move(title), std::move(clock), output));
}

StopWatch::StopWatch(std::string title, Clock timeSource, std::ostream& stream)
    : clock(std::move(timeSource)), output(stream) {
    lap(std::move(title));
}

void StopWatch::lap(std::string title) { _laps.push_back({std::move(title), clock()}); }

void StopWatch::report(std::optional<std::string> title) {
    if (title)
        lap(*std::move(title));
    if (_laps.empty())
        fatalError("report of a watch with 0 laps");

    const Lap start = std::move(_laps.front());
    _laps.erase(_laps.begin());
    if (!start.title.empty())
        output << start.title << ":\n";
    for (const Lap& lap : _laps)
        output << lap.title << ": " << withOneDecimal((lap.time - start.time) * 1000) << "ms\n";
}

}  // namespace quorin
