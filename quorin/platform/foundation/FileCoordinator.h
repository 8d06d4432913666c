#pragma once

#include <string>

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// Keeps readers of a document, a file or a folder, from seeing it half written: readings may
/// overlap each other, a writing overlaps nothing. It holds between the threads of a process and
/// between the processes of a user that coordinate as well; whoever does not is not kept out.
///
/// Nothing is put beside the document: the lock is a byte, chosen by the document's real path, of
/// one file in the user's runtime folder. The document need not exist and a reader needs no leave
/// to write. Documents inside of each other do not know of each other.
class FileCoordinator {
public:
    /// Every folder of locks is a world of its own. By default `quorin` in `$XDG_RUNTIME_DIR`.
    FileCoordinator();
    explicit FileCoordinator(std::string folderOfLocks);

    /// Calls `accessor` with the document's real path, once nobody writes. Inside another access of
    /// the same document by this thread it is called at once. Throws `FileError` when the path is
    /// empty or there is nowhere to lock, and whatever `accessor` throws.
    void coordinateReadingItem(const std::string& path,
                               FunctionRef<void(const std::string& path)> accessor) const;

    /// The same, once nobody reads or writes. Inside a reading of the same document by this thread
    /// it throws `FileError`, since it would wait for itself. Two threads that each hold what the
    /// other one wants wait for ever.
    void coordinateWritingItem(const std::string& path,
                               FunctionRef<void(const std::string& path)> accessor) const;

private:
    enum class Access { reading, writing };
    void coordinate(const std::string& path, Access access,
                    FunctionRef<void(const std::string& path)> accessor) const;

    std::string lockFile;
};

}  // namespace quorin
