#pragma once

#include <memory>
#include <string>

#include "quorin/platform/values/Object.h"

namespace quorin {

/// The one object that stands for a missing value where an entry has to be present.
class NSNull : public Object {
public:
    static const std::shared_ptr<NSNull>& null();

    std::string description() const override { return "<null>"; }

private:
    NSNull() = default;
};

}  // namespace quorin
