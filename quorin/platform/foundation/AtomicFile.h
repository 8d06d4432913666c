#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorin {

/// A file cannot be read or written. The message names the file and the reason, as in
/// `icons/a.svg: no such file`.
class FileError : public std::runtime_error {
public:
    FileError(const std::string& path, const std::string& reason)
        : std::runtime_error(path + ": " + reason), _path(path), _reason(reason) {}

    const std::string& path() const { return _path; }
    const std::string& reason() const { return _reason; }

private:
    std::string _path, _reason;
};

inline constexpr std::size_t defaultMaximumFileSize = std::size_t{512} << 20;

/// All bytes of the file. Throws `FileError`, also for a directory and for a file that holds more
/// than `maximumSize` bytes; never reads much beyond that, whatever size the file claims to have.
std::string readFile(const std::string& path, std::size_t maximumSize = defaultMaximumFileSize);

/// Puts a file with these bytes in the place of `path`, at once and only when all of them are on
/// disk: another process sees the old file or the new one, and after a failure still the old one.
/// The mode of an existing file is kept, a symbolic link stays and its target is replaced. A
/// device or a pipe is written to as it is.
/// Throws `FileError`; no temporary file is left behind then.
void writeFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace quorin
