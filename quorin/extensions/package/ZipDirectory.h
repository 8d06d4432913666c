#pragma once

#include <cstdint>
#include <string>

namespace quorin {

/// How many entries a zip archive says it has, and where it says so more than once the most that it
/// says; 0 of what is no archive. Looks at the end of the file alone, so that an archive can be
/// refused before anybody makes room for its directory. Throws `FileError`, with `shown` as the
/// name of the file.
///
/// Source: PKWARE, "APPNOTE.TXT", version 6.3.10, sections 4.3.14 to 4.3.16.
std::uint64_t claimedEntryCount(const std::string& path, const std::string& shown);

}  // namespace quorin
