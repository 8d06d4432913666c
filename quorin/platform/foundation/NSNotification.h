#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "quorin/platform/foundation/NSNotificationName.h"
#include "quorin/platform/values/Object.h"
#include "quorin/platform/values/Value.h"

namespace quorin {

/// What a notification centre carries from a sender to observers.
class NSNotification {
public:
    using UserInfo = std::optional<Value::Map>;

    explicit NSNotification(NSNotificationName name, std::shared_ptr<Object> object = nullptr,
                            UserInfo userInfo = std::nullopt)
        : _name(name), _object(std::move(object)), _userInfo(std::move(userInfo)) {}

    const NSNotificationName& name() const { return _name; }
    /// The sender; null for none.
    const std::shared_ptr<Object>& object() const { return _object; }
    const UserInfo& userInfo() const { return _userInfo; }

private:
    NSNotificationName _name;
    std::shared_ptr<Object> _object;
    UserInfo _userInfo;
};

}  // namespace quorin
