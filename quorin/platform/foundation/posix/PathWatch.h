#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "quorin/platform/foundation/FileMonitor.h"
#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {

/// Hears from the kernel of all that may change the file at the end of a path or lead the path
/// elsewhere: it watches each folder that the path goes through, those of symbolic links included,
/// for the one name that it takes there.
class PathWatch {
public:
    /// Throws `FileError`, as `requireResources` does.
    explicit PathWatch(const std::string& path);

    /// Readable when there is something to `read`.
    int descriptor() const { return kernel.get(); }

    struct News {
        bool isAny = false;
        bool isWritten = false;         ///< the file itself
        bool mayLeadElsewhere = false;  ///< so that the path has to be followed anew
    };
    /// What came in and concerns the path.
    News read();

    /// Follows the path anew, watching what it goes through now, and answers what is at its end.
    std::optional<FileState> follow();

    /// The rest is about the path as it was followed last.

    /// False when part of the path cannot be watched, so that only looking helps.
    bool isComplete() const { return failure == 0; }
    /// Throws `FileError` when the reason for that is a limit of the system.
    void requireResources() const;
    /// Whether the file was written so lately that writing to it again may leave the same state:
    /// the clock that files are stamped with moves once in some milliseconds.
    bool isStampFresh() const { return isFresh; }

private:
    using Watches = std::map<int, std::set<std::string>>;

    void watch(const std::string& place, const std::string& name, std::uint32_t events);
    void giveBack(const Watches& before) const;
    std::optional<FileState> endOf(std::string rest);
    std::optional<FileState> stateOf(const std::string& place);

    std::string shown, absolute;
    Descriptor kernel;
    /// The names that count in each folder; an empty one at the end of the path.
    Watches watches;
    int failure = 0;  // an error number
    bool isFresh = false;
};

}  // namespace quorin
