#pragma once

#include <string>

namespace quorin::test {

/// Reads what a program writes while it runs.
class OutputReader {
public:
    /// From an open descriptor, which has to outlive this.
    explicit OutputReader(int opened) : descriptor(opened) {}

    /// Everything that was written, up to `text` or, failing that, the end.
    const std::string& readUntil(const std::string& text);
    const std::string& readToTheEnd() { return readUntil(std::string(1, '\0')); }
    /// The next line without its end.
    std::string nextLine();

private:
    int descriptor;
    std::string written;
    std::size_t taken = 0;  // as lines
};

}  // namespace quorin::test
