#include "quorin/platform/foundation/NSLog.h"

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <string>

namespace quorin {
namespace {

struct Log {
    std::mutex mutex;
    LogSink sink;
};

/// Never destroyed: objects that die after main() may still have something to say.
Log& sharedLog() {
    static Log& log = *new Log;
    return log;
}

/// Messages quote names of files, which must neither break the line nor steer a terminal.
std::string oneLine(std::string_view message) {
    if (message.ends_with('\n'))
        message.remove_suffix(1);  // some bring the end of their line along
    std::string line(message);
    std::replace_if(
        line.begin(), line.end(),
        [](char character) {
            return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
        },
        '?');
    line += '\n';
    return line;
}

}  // namespace

void NSLog(std::string_view message) {
    Log& log = sharedLog();
    const std::lock_guard lock(log.mutex);
    if (log.sink)
        return log.sink(message);
    const std::string line = oneLine(message);
    std::fwrite(line.data(), 1, line.size(), stderr);
}

LogSink setLogSink(LogSink sink) {
    Log& log = sharedLog();
    const std::lock_guard lock(log.mutex);
    std::swap(log.sink, sink);
    return sink;
}

}  // namespace quorin
