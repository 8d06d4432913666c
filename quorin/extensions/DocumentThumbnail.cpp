#include "quorin/extensions/DocumentThumbnail.h"

#include <sys/stat.h>

#include "quorin/extensions/package/PackageEntry.h"
#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {
namespace {

constexpr const char* previewName = "QuickLookPreview";

/// `shown` is the package as the caller calls it, for messages.
std::optional<std::string> readPreview(const std::string& path, const std::string& shown,
                                       std::size_t maximumSize) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        failWith(shown);
    const PackageEntry entry{path, shown, previewName, maximumSize};
    if (S_ISDIR(status.st_mode))
        return readFolderEntry(entry);
    if (S_ISREG(status.st_mode))
        return readZipEntry(entry);
    throw FileError(shown, "not a document package");
}

}  // namespace

void quorinThumbnail(const std::string& path, ThumbnailCallback callback,
                     const ThumbnailOptions& options) {
    std::optional<std::string> data;
    std::optional<FileError> error;
    const auto read = [&](const std::string& realPath) {
        data = readPreview(realPath, path, options.maximumSize);
    };
    try {
        if (options.coordinator)
            options.coordinator->coordinateReadingItem(path, read);
        else
            FileCoordinator().coordinateReadingItem(path, read);
    } catch (const FileError& caught) {
        error = caught;
    }
    // Called after the reading, so that it may write the document.
    callback(data, error);
}

}  // namespace quorin
