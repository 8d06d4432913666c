#include "quorin/observation/KVONotification.h"

#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

using Key = NSKeyValueChangeKey;

KVONotification::KVONotification(NSKeyValueChangeRecord record, std::string path)
    : change(std::move(record)), keyPath(std::move(path)) {}

KVONotification::KVONotification(std::string path, Value before, Value after)
    : keyPath(std::move(path)) {
    change.set(Key::newValue, std::move(after));
    change.set(Key::oldValue, std::move(before));
}

NSKeyValueChange KVONotification::kind() const {
    const NSNumber* number = change[Key::kind].asNSNumber();
    if (!number)
        fatalError(std::string("the change record of \"").append(keyPath).append("\" has no kind"));
    return static_cast<NSKeyValueChange>(number->integerValue());
}

std::shared_ptr<const NSIndexSet> KVONotification::indexes() const {
    return std::dynamic_pointer_cast<const NSIndexSet>(change[Key::indexes].asObject());
}

bool KVONotification::isPrior() const {
    return change[Key::notificationIsPrior].asBool().value_or(false);
}

}  // namespace quorin
