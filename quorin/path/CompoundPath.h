#pragma once

#include <memory>
#include <vector>

#include "quorin/path/Path.h"
#include "quorin/platform/cgpath/CGPath.h"

namespace quorin {

/// Several contours that are painted as one, for example a ring.
class CompoundPath {
    struct Token {};

public:
    explicit CompoundPath(Token) {}
    CompoundPath(const CompoundPath&) = delete;
    CompoundPath& operator=(const CompoundPath&) = delete;

    static std::shared_ptr<CompoundPath> create();
    static std::shared_ptr<CompoundPath> create(std::vector<std::shared_ptr<Path>> children);
    /// A child for each subpath; a move at the very end that draws nothing is left out.
    static std::shared_ptr<CompoundPath> create(const CGPath& cg);

    const std::vector<std::shared_ptr<Path>>& children() const { return _children; }
    void setChildren(std::vector<std::shared_ptr<Path>> children);

    /// The children's platform paths one after the other, built anew at each call.
    std::shared_ptr<const CGPath> cg() const;

private:
    std::vector<std::shared_ptr<Path>> _children;
};

}  // namespace quorin
