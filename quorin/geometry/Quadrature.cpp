#include "quorin/geometry/Quadrature.h"

#include <string>

#include "quorin/platform/values/FatalError.h"

namespace quorin::scalar {

void failPointCount(int n) {
    fatalError("quadrature with " + std::to_string(n) + " points, not 2 to " +
               std::to_string(greatestPointCount));
}

}  // namespace quorin::scalar
