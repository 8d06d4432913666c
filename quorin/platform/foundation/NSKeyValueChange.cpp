#include "quorin/platform/foundation/NSKeyValueChange.h"

#include <algorithm>

namespace quorin {

std::size_t NSKeyValueChangeRecord::count() const {
    return static_cast<std::size_t>(std::count_if(
        entries.begin(), entries.end(), [](const Value& entry) { return !entry.isNothing(); }));
}

}  // namespace quorin
