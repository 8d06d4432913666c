#include "quorin/linear/VectorArrayConvertible.h"

#include <string>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

void failComponentCount(std::string_view type, std::size_t given, std::size_t wanted) {
    fatalError(std::string(type) + " from " + std::to_string(given) + " of " +
               std::to_string(wanted) + " components");
}

}  // namespace quorin
