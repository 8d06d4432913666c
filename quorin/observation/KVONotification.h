#pragma once

#include <memory>
#include <string>

#include "quorin/platform/foundation/NSIndexSet.h"
#include "quorin/platform/foundation/NSKeyValueChange.h"
#include "quorin/platform/values/Value.h"

namespace quorin {

/// One delivered change of an observed object: a value.
struct KVONotification {
    KVONotification(NSKeyValueChangeRecord record, std::string path);
    /// A record of the two values, each only when it is something, and of nothing else: it has no
    /// kind.
    KVONotification(std::string path, Value before, Value after);

    /// What happened. A record without a number for it stops the process.
    NSKeyValueChange kind() const;
    /// Nothing when there is no such entry; NSNull as it stands when the value was missing.
    const Value& oldValue() const { return change[NSKeyValueChangeKey::oldValue]; }
    const Value& newValue() const { return change[NSKeyValueChangeKey::newValue]; }
    /// The places of the elements that came, went or were replaced; null for a plain change.
    std::shared_ptr<const NSIndexSet> indexes() const;
    /// Whether this is delivered before the change.
    bool isPrior() const;

    NSKeyValueChangeRecord change;
    std::string keyPath;
};

}  // namespace quorin
