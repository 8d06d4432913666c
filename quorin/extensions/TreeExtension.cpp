#include "quorin/extensions/TreeExtension.h"

namespace quorin {
namespace {

bool represents(const NSTreeNode& node, const Value& object) {
    if (const auto wanted = object.asObject())
        return node.representedObject().asObject() == wanted;
    return node.representedObject() == object;
}

}  // namespace

std::optional<NSIndexPath> indexPathOfObject(const Value& object,
                                             std::span<const std::shared_ptr<NSTreeNode>> inNodes) {
    // Siblings on each level from the top down, and which one is next: no recursion, since outlines
    // may be deeper than the stack.
    std::vector<std::span<const std::shared_ptr<NSTreeNode>>> levels = {inNodes};
    NSIndexPath path = {0};
    while (!levels.empty()) {
        if (path.back() == levels.back().size()) {
            levels.pop_back();
            path.pop_back();
            if (!path.empty())
                ++path.back();
            continue;
        }
        const NSTreeNode& node = *levels.back()[path.back()];
        if (represents(node, object))
            return path;
        levels.emplace_back(node.childNodes());
        path.push_back(0);
    }
    return std::nullopt;
}

std::optional<NSIndexPath> indexPathOfObject(const NSTreeController& controller,
                                             const Value& object) {
    return indexPathOfObject(object, controller.arrangedNodes());
}

}  // namespace quorin
