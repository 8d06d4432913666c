#pragma once

#include <memory>

#include "quorin/platform/values/Object.h"

namespace quorin {

/// What the class of an object is besides when its objects can be copied.
class NSCopying {
public:
    virtual ~NSCopying() = default;

    /// A new object that is independent of this one.
    virtual std::shared_ptr<Object> copy() const = 0;
};

}  // namespace quorin
