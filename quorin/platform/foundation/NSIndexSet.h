#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "quorin/platform/values/Object.h"

namespace quorin {

/// Places in a list, each once and in ascending order; never changes.
class NSIndexSet : public Object {
    struct Token {  // keeps the constructor for create()
        explicit Token() = default;
    };

public:
    NSIndexSet(Token, std::vector<std::size_t> indexes);

    /// From places in any order; repeated ones count once.
    static std::shared_ptr<NSIndexSet> create(std::vector<std::size_t> indexes);

    const std::vector<std::size_t>& indexes() const { return _indexes; }
    std::size_t count() const { return _indexes.size(); }
    bool contains(std::size_t index) const;

    /// Equal to another set of the same places.
    bool isEqual(const Object& other) const override;
    /// `{0, 2, 3}`.
    std::string description() const override;

private:
    std::vector<std::size_t> _indexes;
};

}  // namespace quorin
