#include "quorin/path/Anchor.h"

#include <string>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

std::int32_t storedIndex(std::ptrdiff_t index) {
    const auto stored = static_cast<std::int32_t>(index);
    if (stored != index || stored == PathAnchor::noIndex)
        fatalError("segment index " + std::to_string(index) + " beyond 32 bits");
    return stored;
}

}  // namespace quorin
