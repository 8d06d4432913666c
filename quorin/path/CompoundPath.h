#pragma once

#include <memory>
#include <vector>

#include "quorin/path/Path.h"
#include "quorin/platform/cgpath/CGPath.h"

namespace quorin {

/// Several contours that are painted as one, for example a ring.
class CompoundPath {
    struct Token {  // keeps the constructor for create()
        explicit Token() = default;
    };

public:
    explicit CompoundPath(Token) {}
    CompoundPath(const CompoundPath&) = delete;
    CompoundPath& operator=(const CompoundPath&) = delete;

    static std::shared_ptr<CompoundPath> create();
    static std::shared_ptr<CompoundPath> create(std::vector<std::shared_ptr<Path>> children);
    /// A child for each subpath; a move at the very end that draws nothing is left out.
    static std::shared_ptr<CompoundPath> create(const CGPath& cg);

    /// Draws an element of a platform path: a move begins a child, everything else goes to the last
    /// one. An unknown kind of element, or drawing before the first move, is a programming error.
    void addElement(const CGPathElement& element);

    const std::vector<std::shared_ptr<Path>>& children() const { return _children; }
    void setChildren(std::vector<std::shared_ptr<Path>> children);

    /// The children's platform paths one after the other, built anew at each call.
    std::shared_ptr<const CGPath> cg() const;

private:
    std::vector<std::shared_ptr<Path>> _children;
};

}  // namespace quorin
