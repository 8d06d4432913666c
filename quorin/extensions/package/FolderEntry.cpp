#include <fcntl.h>
#include <sys/stat.h>

#include "quorin/extensions/package/PackageEntry.h"
#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {

std::optional<std::string> readFolderEntry(const PackageEntry& entry) {
    const std::string shown = entry.shown + '/' + entry.name;
    // A link would show a file of the reader's that the package only names; a pipe would never end.
    const Descriptor file =
        openFile(entry.package + '/' + entry.name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!file && errno == ENOENT)
        return std::nullopt;
    if (!file && errno == ELOOP)
        throw FileError(shown, "is a link");
    if (!file)
        failWith(shown);

    struct stat status {};
    if (fstat(file.get(), &status) != 0)
        failWith(shown);
    if (!S_ISREG(status.st_mode))
        throw FileError(shown, "not a file");
    return readAll(file, shown, entry.maximumSize);
}

}  // namespace quorin
