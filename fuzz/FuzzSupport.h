#pragma once

#include <cstdio>
#include <cstdlib>

namespace quorin::fuzz {

/// Stops at a broken promise, which the fuzzer takes for a crash and keeps the input of.
inline void expect(bool holds, const char* promise) {
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

}  // namespace quorin::fuzz
