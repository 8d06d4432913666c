#pragma once

#include <utility>

namespace quorin {

/// Does something at the end of a scope, however that is left.
template <typename Action>
class Finally {
public:
    explicit Finally(Action given) : action(std::move(given)) {}
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;
    ~Finally() { action(); }

private:
    Action action;
};

}  // namespace quorin
