#include "quorin/platform/foundation/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>

#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {
namespace {

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0)
        return status;
    return std::nullopt;
}

/// The path with its symbolic links followed; as it is when nothing is there yet.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : path;
}

/// A new file beside the one it is to replace, removed again unless it took that one's place.
class TemporaryFile {
public:
    /// The mode is subject to the process's mask; `reportedPath` stands in messages.
    TemporaryFile(const std::string& path, mode_t mode, const std::string& reportedPath,
                  bool isSoleWriter)
        : target(path), folder(folderOf(path)), shown(reportedPath) {
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL;
        if (isSoleWriter) {
            name = target + ".tmp";
            unlink(name.c_str());  // left by a writer that was killed
            file = openFile(name, flags, mode);
        } else {
            std::random_device random;
            do {
                name = folder + "/.quorin-" + std::to_string(random()) + ".tmp";
                file = openFile(name, flags, mode);
            } while (!file && errno == EEXIST);
        }
        if (!file && errno == ENOENT)
            throw FileError(shown, "no such folder");
        if (!file)
            failWith(shown);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!name.empty())
            unlink(name.c_str());
    }

    void write(std::string_view bytes) { writeAll(file, bytes, shown); }

    void setMode(mode_t mode) {
        if (fchmod(file.get(), mode) != 0)
            failWith(shown);
    }
    void takeOver(const struct stat& original) {
        // Only root may give a file away; for everybody else it stays the writer's.
        if (fchown(file.get(), original.st_uid, original.st_gid) != 0 && errno != EPERM)
            failWith(shown);
        setMode(original.st_mode & 0777);
    }

    void replaceTarget() {
        if (uninterrupted([&] { return fsync(file.get()); }) != 0)
            failWith(shown);
        file.close(shown);
        if (rename(name.c_str(), target.c_str()) != 0)
            failWith(shown);
        name.clear();
        // The new file is in place: that its name is not on disk yet is no reason to say it is not.
        if (const Descriptor directory = openFile(folder, O_RDONLY | O_DIRECTORY))
            (void)fsync(directory.get());
    }

private:
    std::string target, folder, name;
    std::string shown;  // as the caller writes the target, for messages
    Descriptor file{-1};
};

}  // namespace

std::string readFile(const std::string& path, std::size_t maximumSize) {
    const Descriptor file = openFile(path, O_RDONLY);
    if (!file)
        failWith(path);
    return readAll(file, path, maximumSize);
}

std::optional<std::string> readFileIfThere(const std::string& path, std::size_t maximumSize) {
    const Descriptor file = openFile(path, O_RDONLY);
    if (!file && errno == ENOENT)
        return std::nullopt;
    if (!file)
        failWith(path);
    return readAll(file, path, maximumSize);
}

void writeFileAtomically(const std::string& path, std::string_view bytes,
                         const AtomicWriteOptions& options) {
    const std::string target = resolved(path);
    const std::optional<struct stat> original = statusOf(target);
    if (original && S_ISDIR(original->st_mode))
        failWith(path, EISDIR);
    // Renaming needs leave for the folder only, but a file protected from writing is meant to stay.
    if (original && faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        failWith(path);

    if (original && !S_ISREG(original->st_mode)) {
        const Descriptor device = openFile(target, O_WRONLY);
        if (!device)
            failWith(path);
        writeAll(device, bytes, path);
        return;
    }
    const mode_t mode = options.privateToOwner ? 0600 : 0666;
    TemporaryFile temporary(target, original ? original->st_mode & mode : mode, path,
                            options.isSoleWriter);
    temporary.write(bytes);
    if (original)
        temporary.takeOver(*original);
    if (options.privateToOwner)
        temporary.setMode(0600);
    temporary.replaceTarget();
}

}  // namespace quorin
