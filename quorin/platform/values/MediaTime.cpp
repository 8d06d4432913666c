#include "quorin/platform/values/MediaTime.h"

#include <chrono>

namespace quorin {

double CACurrentMediaTime() {
    const auto sinceZero = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceZero).count();
}

}  // namespace quorin
