#pragma once

#include "quorin/path/Path.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin::test {

/// Whether `change` makes `path` forget its platform path.
inline bool dropsCache(Path& path, FunctionRef<void()> change) {
    const auto before = path.cg();  // kept, so that a new one cannot take its place in memory
    change();
    return path.cg() != before;
}

}  // namespace quorin::test
