#pragma once

#include <cstddef>

namespace quorin::test {

/// How often the whole program has asked for memory with `new` so far.
std::size_t allocationCount();

}  // namespace quorin::test
