#include "quorin/platform/values/FatalError.h"

#include <cstdio>
#include <cstdlib>

namespace quorin {

void fatalError(std::string_view message, const char* file, int line) {
    std::fprintf(stderr, "fatal error: %.*s (%s:%d)\n", static_cast<int>(message.size()),
                 message.data(), file, line);
    std::fflush(stderr);
    std::abort();
}

}  // namespace quorin
