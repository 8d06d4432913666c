#pragma once

#include <functional>
#include <string_view>
#include <utility>

namespace quorin {

/// Tells whoever looks after the program, not the person who uses it, in one line. Goes to standard
/// error unless a sink was set. May be called by several threads at once.
void NSLog(std::string_view message);

using LogSink = std::function<void(std::string_view message)>;

/// Gives every message to `sink` from now on, one at a time, and answers the sink so far. An empty
/// one stands for standard error. A sink must neither log nor set another.
LogSink setLogSink(LogSink sink);

/// Gives messages to another sink for as long as it lives.
class LogRedirection {
public:
    explicit LogRedirection(LogSink sink) : before(setLogSink(std::move(sink))) {}
    LogRedirection(const LogRedirection&) = delete;
    LogRedirection& operator=(const LogRedirection&) = delete;
    ~LogRedirection() { setLogSink(std::move(before)); }

private:
    LogSink before;
};

}  // namespace quorin
