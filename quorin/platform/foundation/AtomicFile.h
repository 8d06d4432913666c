#pragma once

#include <cstddef>
#include <optional>
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

/// The same, or nothing when there is no such file or folder.
std::optional<std::string> readFileIfThere(const std::string& path,
                                           std::size_t maximumSize = defaultMaximumFileSize);

struct AtomicWriteOptions {
    /// The mode becomes 0600, whatever it was.
    bool privateToOwner = false;
    /// For writers that keep each other out by a lock: the temporary file is called as the target
    /// with ".tmp" behind it, and one that a killed writer left there goes away first.
    bool isSoleWriter = false;
};

/// Puts a file with these bytes in the place of `path`, at once and only when all of them are on
/// disk: another process sees the old file or the new one, and after a failure still the old one.
/// The mode of an existing file is kept, a symbolic link stays and its target is replaced. A
/// device or a pipe is written to as it is.
/// Throws `FileError`; no temporary file is left behind then.
void writeFileAtomically(const std::string& path, std::string_view bytes,
                         const AtomicWriteOptions& options = {});

}  // namespace quorin
