#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quorin {

/// An entry at the top of a document package.
struct PackageEntry {
    std::string package;  ///< path of the folder or archive
    std::string shown;    ///< the package in messages
    const char* name;
    std::size_t maximumSize;  ///< in bytes, unpacked
};

/// The bytes of the entry; nothing when there is none of this name. Both throw `FileError`.
std::optional<std::string> readFolderEntry(const PackageEntry& entry);
std::optional<std::string> readZipEntry(const PackageEntry& entry);

}  // namespace quorin
