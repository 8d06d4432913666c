#pragma once

#include "quorin/platform/foundation/URL.h"

namespace quorin {

/// A new empty folder inside the temporary folder (`$TMPDIR`, else `/tmp`), that only the user may
/// enter; whoever asks for it removes it. Throws `FileError`.
URL temporaryDirectory();

}  // namespace quorin
