#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "quorin/platform/foundation/RunLoop.h"

namespace quorin {

/// What stands at the end of a path, closely enough to tell when it has become another.
struct FileState {
    std::uint64_t device = 0, inode = 0;
    std::uint64_t size = 0;     ///< bytes
    std::int64_t modified = 0;  ///< nanoseconds since the start of 1970, UTC

    friend bool operator==(const FileState&, const FileState&) = default;
};

/// Tells on a run loop when the file at a path becomes another one, appears or disappears, however
/// that happens: by writing in place, by another file that takes its name, by a symbolic link on
/// the way that points elsewhere, by folders that are renamed, removed and made again. Changes that
/// come together are told of once, when the file has been left alone for 50 milliseconds, at the
/// latest 500 milliseconds after the first of them. A folder becomes another when a name in it
/// comes or goes.
///
/// What other machines do in a folder that is shared by network, and file systems that are mounted
/// over a folder, the kernel does not tell of. A folder that may be entered but not listed cannot
/// be watched, nor can any when watches have run out meanwhile; the path is looked at every second
/// then.
///
/// Takes one inotify instance of the user, of which there are 128 unless the system is told
/// otherwise. To be used on the thread of its loop.
class FileMonitor {
public:
    /// `now` is what stands there, nothing when the file is missing or cannot be reached.
    using Callback = std::function<void(const std::optional<FileState>& now)>;

    /// Calls `changed` for as long as this lives. A relative path stands for the absolute one that
    /// it has now. The closure must not throw; it may stop or destroy the monitor, and when it runs
    /// the loop it is not called again meanwhile. Throws `FileError` for an empty path and when the
    /// system has no more to watch with.
    FileMonitor(const std::string& path, std::shared_ptr<RunLoop> loop, Callback changed);
    FileMonitor(const FileMonitor&) = delete;
    FileMonitor& operator=(const FileMonitor&) = delete;
    ~FileMonitor();

    /// What stood there when the path was last looked at: at first, or for the last call.
    const std::optional<FileState>& lastSeen() const;

    /// Ends it: the closure is not called any more, and the system's resources are given back.
    void stop();
    /// False once it was stopped.
    bool isActive() const;

private:
    struct State;

    std::shared_ptr<State> state;
};

}  // namespace quorin
