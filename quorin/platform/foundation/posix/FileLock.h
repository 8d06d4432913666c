#pragma once

#include <cstdint>
#include <string>

#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {

/// Holds a lock on a byte of a file that is there for nothing else, and waits for it if need be.
/// Every holder opens the file anew, so threads of one process keep each other out as processes do;
/// a process that ends in any way gives its locks back.
class FileLock {
public:
    enum class Kind { shared, exclusive };

    /// Makes the file, with the mode 0600, unless it is there. Throws `FileError`.
    FileLock(const std::string& path, Kind kind, std::int64_t byte = 0);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    Descriptor file;
    std::int64_t at;
};

}  // namespace quorin
