#pragma once

#include <string>

namespace quorin {

/// A new empty folder inside the temporary folder (`$TMPDIR`, else `/tmp`), that only the user may
/// enter; whoever asks for it removes it. Throws `FileError`.
std::string temporaryDirectory();

}  // namespace quorin
