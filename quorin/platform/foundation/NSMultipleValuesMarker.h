#pragma once

#include <memory>
#include <string>

#include "quorin/platform/values/Object.h"

namespace quorin {

/// The one object that a field shows when its selection has several values, or no common one.
class NSMultipleValuesMarker : public Object {
public:
    static const std::shared_ptr<NSMultipleValuesMarker>& marker();

    std::string description() const override { return "<multiple values>"; }

private:
    NSMultipleValuesMarker() = default;
};

}  // namespace quorin
