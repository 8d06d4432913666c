#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "quorin/platform/foundation/NSTreeController.h"

namespace quorin {

/// The index of a child at each level, from the top.
using NSIndexPath = std::vector<std::size_t>;

/// Where the given object stands: the first node, a node before those below it, that represents
/// it. An object is only itself, whatever it equals; other values are compared. Nothing when no
/// node does. Any depth will do.
std::optional<NSIndexPath> indexPathOfObject(const Value& object,
                                             std::span<const std::shared_ptr<NSTreeNode>> inNodes);
std::optional<NSIndexPath> indexPathOfObject(const NSTreeController& controller,
                                             const Value& object);

}  // namespace quorin
