#include "quorin/platform/foundation/posix/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <system_error>

#include "quorin/platform/foundation/AtomicFile.h"

namespace quorin {
namespace {

std::string reasonOf(int errorNumber) {
    switch (errorNumber) {
        case ENOENT:
            return "no such file";
        case EISDIR:
            return "is a directory";
        case EACCES:
        case EPERM:
            return "permission denied";
        default:
            return std::generic_category().message(errorNumber);
    }
}

struct stat statusOf(const Descriptor& file, const std::string& path) {
    struct stat status {};
    if (fstat(file.get(), &status) != 0)
        failWith(path);
    return status;
}

}  // namespace

Descriptor::~Descriptor() {
    if (number >= 0)
        ::close(number);
}

void Descriptor::close(const std::string& path) {
    // After an interruption the number is free already and may be another file's.
    if (::close(std::exchange(number, -1)) != 0 && errno != EINTR)
        failWith(path);
}

Descriptor openFile(const std::string& path, int flags, mode_t mode) {
    return Descriptor(
        uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); }));
}

std::string readAll(const Descriptor& file, const std::string& path, std::size_t maximumSize) {
    const struct stat status = statusOf(file, path);
    if (S_ISDIR(status.st_mode))
        failWith(path, EISDIR);

    // The size is a hint: a pipe has none, and a file may grow while it is read.
    const std::size_t expected =
        status.st_size > 0 ? static_cast<std::size_t>(status.st_size) : 65'536;
    std::string bytes;
    std::size_t used = 0;
    while (used <= maximumSize && static_cast<std::uint64_t>(status.st_size) <= maximumSize) {
        if (used == bytes.size())
            bytes.resize(std::min(std::max(expected, used + used / 2), maximumSize) + 1);
        const ssize_t count = uninterrupted(
            [&] { return ::read(file.get(), bytes.data() + used, bytes.size() - used); });
        if (count < 0)
            failWith(path);
        used += static_cast<std::size_t>(count);
        if (count == 0) {
            bytes.resize(used);
            return bytes;
        }
    }
    throw FileError(path, "larger than the limit of " + std::to_string(maximumSize) + " bytes");
}

void writeAll(const Descriptor& file, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(file.get(), bytes.data(), bytes.size()); });
        if (written < 0)
            failWith(path);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void failWith(const std::string& path, int errorNumber) {
    throw FileError(path, reasonOf(errorNumber));
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return path.substr(0, std::max<std::size_t>(slash, 1));
}

}  // namespace quorin
