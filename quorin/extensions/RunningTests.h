#pragma once

#include <cstdlib>

namespace quorin {

/// Whether the environment of the process holds "XCInjectBundleInto", by which a test host marks
/// the processes that it starts.
inline bool isRunningTests() { return std::getenv("XCInjectBundleInto") != nullptr; }

}  // namespace quorin
