#include "quorin/geometry/RootFinding.h"

#include <string>

#include "quorin/platform/values/FatalError.h"

namespace quorin::scalar {

void failIterationCount(int n) {
    fatalError("root finding in " + std::to_string(n) + " iterations");
}

}  // namespace quorin::scalar
