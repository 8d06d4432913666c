#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace quorin {

class NSObject;

/// What an object does when a control asks for it by name. `sender` is who asks, null for nobody.
using NSAction = std::function<void(NSObject& target, NSObject* sender)>;

using NSActions = std::map<std::string, NSAction, std::less<>>;

/// Where a class names its actions, a name for each argument ending in a colon: "swap:".
template <typename Owner>
class NSActionList {
public:
    explicit NSActionList(NSActions& named) : actions(named) {}

    /// `perform` is a member function or any other callable that takes the owner and the sender.
    template <typename Perform>
    NSActionList& action(std::string_view name, Perform perform) {
        actions.insert_or_assign(std::string(name), [perform](NSObject& target, NSObject* sender) {
            std::invoke(perform, static_cast<Owner&>(target), sender);
        });
        return *this;
    }

private:
    NSActions& actions;
};

}  // namespace quorin
