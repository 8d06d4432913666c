#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "quorin/platform/values/FunctionRef.h"

namespace quorin::app {

/// Does `work(index)` for each of `count` files on all processors, in no order, and shows how far
/// it is while it takes long and standard error is a terminal. `work` must not throw.
void forEachFile(std::size_t count, const std::string& doing, FunctionRef<void(std::size_t)> work);

}  // namespace quorin::app
