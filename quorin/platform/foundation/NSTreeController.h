#pragma once

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "quorin/platform/values/Value.h"

namespace quorin {

/// A place in an outline: what it stands for, and the places below it.
class NSTreeNode {
public:
    /// No node of `children` is null or above itself.
    explicit NSTreeNode(Value represented, std::vector<std::shared_ptr<NSTreeNode>> children = {})
        : _representedObject(std::move(represented)), _childNodes(std::move(children)) {}
    NSTreeNode(const NSTreeNode&) = delete;
    NSTreeNode& operator=(const NSTreeNode&) = delete;
    /// One level after the other, since outlines may be deeper than the stack.
    ~NSTreeNode() {
        std::vector<std::shared_ptr<NSTreeNode>> dying = std::move(_childNodes);
        while (!dying.empty()) {
            const std::shared_ptr<NSTreeNode> node = std::move(dying.back());
            dying.pop_back();
            if (node.use_count() == 1)
                std::move(node->_childNodes.begin(), node->_childNodes.end(),
                          std::back_inserter(dying));
        }
    }

    const Value& representedObject() const { return _representedObject; }
    const std::vector<std::shared_ptr<NSTreeNode>>& childNodes() const { return _childNodes; }

private:
    Value _representedObject;
    std::vector<std::shared_ptr<NSTreeNode>> _childNodes;
};

/// Holds the outline that a view shows.
class NSTreeController {
public:
    /// The nodes at the top; none of them null.
    const std::vector<std::shared_ptr<NSTreeNode>>& arrangedNodes() const { return _arrangedNodes; }
    void setArrangedNodes(std::vector<std::shared_ptr<NSTreeNode>> nodes) {
        _arrangedNodes = std::move(nodes);
    }

private:
    std::vector<std::shared_ptr<NSTreeNode>> _arrangedNodes;
};

}  // namespace quorin
