#include "tests/apps/OutputReader.h"

#include <poll.h>
#include <unistd.h>

#include <array>

namespace quorin::test {
namespace {

/// False at the end, and when nothing comes.
bool readMore(int descriptor, std::string& text) {
    constexpr int patience = 60'000;  // milliseconds, for the slowest of machines
    pollfd waiting{descriptor, POLLIN, 0};
    if (poll(&waiting, 1, patience) != 1)
        return false;
    std::array<char, 256> buffer;
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count <= 0)
        return false;
    text.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

}  // namespace

const std::string& OutputReader::readUntil(const std::string& text) {
    while (written.find(text) == std::string::npos && readMore(descriptor, written))
        continue;
    return written;
}

std::string OutputReader::nextLine() {
    while (written.find('\n', taken) == std::string::npos && readMore(descriptor, written))
        continue;
    const std::size_t end = written.find('\n', taken);
    std::string line = written.substr(taken, end - taken);
    taken = end == std::string::npos ? written.size() : end + 1;
    return line;
}

}  // namespace quorin::test
