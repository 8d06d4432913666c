#include "quorin/platform/ui/NSMenuItem.h"

#include <algorithm>
#include <utility>

#include "quorin/platform/ui/NSApplication.h"
#include "quorin/platform/ui/NSMenu.h"

namespace quorin {

namespace {

constexpr std::size_t deepestIndentation = 15;

}  // namespace

void NSMenuItem::declareKeys(NSKeyList<NSMenuItem>& keys) {
    keys.reportingProperty("title", &NSMenuItem::title, &NSMenuItem::setTitle)
        .reportingProperty("action", &NSMenuItem::action, &NSMenuItem::setAction)
        .reportingProperty("target", &NSMenuItem::target, &NSMenuItem::setTarget)
        .reportingProperty("keyEquivalent", &NSMenuItem::keyEquivalent,
                           &NSMenuItem::setKeyEquivalent)
        .reportingProperty("indentationLevel", &NSMenuItem::indentationLevel,
                           &NSMenuItem::setIndentationLevel)
        .reportingProperty("representedObject", &NSMenuItem::representedObject,
                           &NSMenuItem::setRepresentedObject)
        .property("separatorItem", &NSMenuItem::isSeparatorItem)
        .reportingProperty("enabled", &NSMenuItem::isEnabled, &NSMenuItem::setIsEnabled);
}

std::shared_ptr<NSMenuItem> NSMenuItem::create(std::string title, std::optional<std::string> action,
                                               std::string keyEquivalent) {
    return makeObject<NSMenuItem>(std::move(title), std::move(action), std::move(keyEquivalent));
}

std::shared_ptr<NSMenuItem> NSMenuItem::separatorItem() {
    auto item = makeObject<NSMenuItem>();
    item->_isSeparatorItem = true;
    return item;
}

NSMenuItem::NSMenuItem(std::string title, std::optional<std::string> action,
                       std::string keyEquivalent)
    : _title(std::move(title)),
      _action(std::move(action)),
      _keyEquivalent(std::move(keyEquivalent)) {}

void NSMenuItem::setTitle(std::string title) {
    changeValues({"title"}, [&] { _title = std::move(title); });
}

void NSMenuItem::setAction(std::optional<std::string> action) {
    changeValues({"action", "enabled"}, [&] { _action = std::move(action); });
}

void NSMenuItem::setTarget(const std::shared_ptr<NSObject>& target) {
    changeValues({"target", "enabled"}, [&] { _target = target; });
}

void NSMenuItem::setKeyEquivalent(std::string keyEquivalent) {
    changeValues({"keyEquivalent"}, [&] { _keyEquivalent = std::move(keyEquivalent); });
}

void NSMenuItem::setIndentationLevel(std::size_t level) {
    changeValues({"indentationLevel"},
                 [&] { _indentationLevel = std::min(level, deepestIndentation); });
}

void NSMenuItem::setRepresentedObject(Value object) {
    changeValues({"representedObject"}, [&] { _representedObject = std::move(object); });
}

bool NSMenuItem::isEnabled() const {
    return isAllowed && !_isSeparatorItem && _action && !_target.expired();
}

void NSMenuItem::setIsEnabled(bool isEnabled) {
    changeValues({"enabled"}, [&] { isAllowed = isEnabled; });
}

bool NSMenuItem::performAction() {
    if (!isEnabled())
        return false;
    // Both have to outlive what the action does to the menu, the name as well.
    const auto self = shared_from_this();
    const auto performer = target();
    performer->objectClass().requiredAction (*_action)(*performer, this);
    return true;
}

}  // namespace quorin
