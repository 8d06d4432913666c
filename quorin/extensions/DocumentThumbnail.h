#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/FileCoordinator.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// How a document package is read; packages may come from anybody.
struct ThumbnailOptions {
    /// A preview of more bytes is refused before it is unpacked.
    std::size_t maximumSize = std::size_t{64} << 20;
    /// In whose world the reading is coordinated; null for that of the user's session.
    const FileCoordinator* coordinator = nullptr;
};

/// The bytes of the preview, or nothing, and what went wrong, or nothing. Neither is there when the
/// package has no preview.
using ThumbnailCallback = FunctionRef<void(const std::optional<std::string>& data,
                                           const std::optional<FileError>& error)>;

/// Reads the entry "QuickLookPreview" at the top of a document package, a folder or a zip archive,
/// while no coordinated writer is at work, and then calls `callback` exactly once. An entry that is
/// a link, a folder, encrypted, damaged or too large is an error, and so is a file that is no
/// package or an archive that claims more than 100,000 entries.
void quorinThumbnail(const std::string& path, ThumbnailCallback callback,
                     const ThumbnailOptions& options = {});

}  // namespace quorin
