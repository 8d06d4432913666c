#include "quorin/platform/foundation/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <system_error>
#include <utility>

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

[[noreturn]] void fail(const std::string& path, int errorNumber = errno) {
    throw FileError(path, reasonOf(errorNumber));
}

/// Repeats a system call that a signal broke off.
template <typename Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    ~Descriptor() {
        if (number >= 0)
            ::close(number);
    }

    explicit operator bool() const { return number >= 0; }
    int get() const { return number; }
    /// A full disk of another machine may show only here.
    void close(const std::string& path) {
        // After an interruption the number is free already and may be another file's.
        if (::close(std::exchange(number, -1)) != 0 && errno != EINTR)
            fail(path);
    }

private:
    int number;
};

Descriptor open(const std::string& path, int flags, mode_t mode = 0) {
    return Descriptor(
        uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); }));
}

struct stat statusOf(const Descriptor& file, const std::string& path) {
    struct stat status {};
    if (fstat(file.get(), &status) != 0)
        fail(path);
    return status;
}

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0)
        return status;
    return std::nullopt;
}

void writeAll(const Descriptor& file, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(file.get(), bytes.data(), bytes.size()); });
        if (written < 0)
            fail(path);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// The path with its symbolic links followed; as it is when nothing is there yet.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : path;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return path.substr(0, std::max<std::size_t>(slash, 1));
}

/// A new file beside the one it is to replace, removed again unless it took that one's place.
class TemporaryFile {
public:
    /// The mode is subject to the process's mask; `reportedPath` stands in messages.
    TemporaryFile(const std::string& path, mode_t mode, const std::string& reportedPath)
        : target(path), folder(folderOf(path)), shown(reportedPath) {
        std::random_device random;
        do {
            name = folder + "/.quorin-" + std::to_string(random()) + ".tmp";
            file = open(name, O_WRONLY | O_CREAT | O_EXCL, mode);
        } while (!file && errno == EEXIST);
        if (!file && errno == ENOENT)
            throw FileError(shown, "no such folder");
        if (!file)
            fail(shown);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!name.empty())
            unlink(name.c_str());
    }

    void write(std::string_view bytes) { writeAll(file, bytes, shown); }

    void takeOver(const struct stat& original) {
        // Only root may give a file away; for everybody else it stays the writer's.
        if (fchown(file.get(), original.st_uid, original.st_gid) != 0 && errno != EPERM)
            fail(shown);
        if (fchmod(file.get(), original.st_mode & 0777) != 0)
            fail(shown);
    }

    void replaceTarget() {
        if (uninterrupted([&] { return fsync(file.get()); }) != 0)
            fail(shown);
        file.close(shown);
        if (rename(name.c_str(), target.c_str()) != 0)
            fail(shown);
        name.clear();
        // The new file is in place: that its name is not on disk yet is no reason to say it is not.
        if (const Descriptor directory = open(folder, O_RDONLY | O_DIRECTORY))
            (void)fsync(directory.get());
    }

private:
    std::string target, folder, name;
    std::string shown;  // as the caller writes the target, for messages
    Descriptor file{-1};
};

}  // namespace

std::string readFile(const std::string& path, std::size_t maximumSize) {
    const Descriptor file = open(path, O_RDONLY);
    if (!file)
        fail(path);
    const struct stat status = statusOf(file, path);
    if (S_ISDIR(status.st_mode))
        fail(path, EISDIR);

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
            fail(path);
        used += static_cast<std::size_t>(count);
        if (count == 0) {
            bytes.resize(used);
            return bytes;
        }
    }
    throw FileError(path, "larger than the limit of " + std::to_string(maximumSize) + " bytes");
}

void writeFileAtomically(const std::string& path, std::string_view bytes) {
    const std::string target = resolved(path);
    const std::optional<struct stat> original = statusOf(target);
    if (original && S_ISDIR(original->st_mode))
        fail(path, EISDIR);
    // Renaming needs leave for the folder only, but a file protected from writing is meant to stay.
    if (original && faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        fail(path);

    if (original && !S_ISREG(original->st_mode)) {
        const Descriptor device = open(target, O_WRONLY);
        if (!device)
            fail(path);
        writeAll(device, bytes, path);
        return;
    }
    TemporaryFile temporary(target, original ? original->st_mode & 0777 : 0666, path);
    temporary.write(bytes);
    if (original)
        temporary.takeOver(*original);
    temporary.replaceTarget();
}

}  // namespace quorin
