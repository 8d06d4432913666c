#include "quorin/platform/foundation/FileCoordinator.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/posix/FileLock.h"
#include "quorin/platform/foundation/posix/UserFolders.h"

namespace quorin {
namespace {

std::optional<std::string> resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::optional<std::string>(real.get()) : std::nullopt;
}

/// One text for all ways to name a document, whether it is there or is still to be made.
std::string realPathOf(std::string path) {
    if (path.empty())
        throw FileError(path, "no name of a file");
    if (const auto real = resolved(path))
        return *real;
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    const std::optional<std::string> folder = resolved(folderOf(path));
    if (!folder)
        return path;
    const std::string name = path.substr(path.rfind('/') + 1);
    return *folder + (folder->ends_with('/') ? "" : "/") + name;
}

/// The FNV-1a hash, 62 bits of it, as a byte's place in a file. Documents that share one wait for
/// each other without need. Every process that coordinates has to come to the same place.
std::int64_t byteFor(std::string_view path) {
    std::uint64_t hash = 14'695'981'039'346'656'037u;
    for (const char character : path)
        hash = (hash ^ static_cast<unsigned char>(character)) * 1'099'511'628'211u;
    return static_cast<std::int64_t>(hash >> 2);
}

/// An access that is going on in this thread.
struct Held {
    std::string lockFile;
    std::int64_t byte;
    bool isWriting;
};
thread_local std::vector<Held> heldByThisThread;

/// Notes the access for as long as it lives.
class HeldNote {
public:
    explicit HeldNote(Held held) { heldByThisThread.push_back(std::move(held)); }
    HeldNote(const HeldNote&) = delete;
    HeldNote& operator=(const HeldNote&) = delete;
    ~HeldNote() { heldByThisThread.pop_back(); }
};

}  // namespace

FileCoordinator::FileCoordinator() : FileCoordinator(userRuntimeFolder()) {}

FileCoordinator::FileCoordinator(std::string folderOfLocks)
    : lockFile(std::move(folderOfLocks) + "/coordination.lock") {}

void FileCoordinator::coordinateReadingItem(
    const std::string& path, FunctionRef<void(const std::string& path)> accessor) const {
    coordinate(path, Access::reading, accessor);
}

void FileCoordinator::coordinateWritingItem(
    const std::string& path, FunctionRef<void(const std::string& path)> accessor) const {
    coordinate(path, Access::writing, accessor);
}

void FileCoordinator::coordinate(const std::string& path, Access access,
                                 FunctionRef<void(const std::string& path)> accessor) const {
    const std::string real = realPathOf(path);
    const std::int64_t byte = byteFor(real);
    const bool isWriting = access == Access::writing;
    const auto isThis = [&](const Held& held) {
        return held.byte == byte && held.lockFile == lockFile;
    };
    const auto outer = std::find_if(heldByThisThread.begin(), heldByThisThread.end(), isThis);
    if (outer != heldByThisThread.end()) {
        if (isWriting && !outer->isWriting)
            throw FileError(path, "cannot be written while it is being read here");
        return accessor(real);
    }

    const FileLock lock(lockFile, isWriting ? FileLock::Kind::exclusive : FileLock::Kind::shared,
                        byte);
    const HeldNote note({lockFile, byte, isWriting});
    accessor(real);
}

}  // namespace quorin
