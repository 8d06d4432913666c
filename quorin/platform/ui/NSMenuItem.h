#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

class NSMenu;

/// One line of a menu: a command, a header, or a line that separates. Its properties are observable
/// under their names, so that whoever shows the item follows them.
class NSMenuItem : public NSObject {
public:
    using Class = NSClassOf<NSMenuItem, NSObject>;
    static void declareKeys(NSKeyList<NSMenuItem>& keys);

    /// `action` is the name of an action that the target's class declares, for example "swap:";
    /// nothing makes a header.
    static std::shared_ptr<NSMenuItem> create(std::string title, std::optional<std::string> action,
                                              std::string keyEquivalent = {});
    static std::shared_ptr<NSMenuItem> separatorItem();

    explicit NSMenuItem(std::string title = {}, std::optional<std::string> action = {},
                        std::string keyEquivalent = {});

    const std::string& title() const { return _title; }
    void setTitle(std::string title);

    const std::optional<std::string>& action() const { return _action; }
    void setAction(std::optional<std::string> action);

    /// Whoever performs the action; not kept alive.
    std::shared_ptr<NSObject> target() const { return _target.lock(); }
    void setTarget(const std::shared_ptr<NSObject>& target);

    const std::string& keyEquivalent() const { return _keyEquivalent; }
    void setKeyEquivalent(std::string keyEquivalent);

    /// Steps of indentation in the menu, from 0; more than 15 are 15.
    std::size_t indentationLevel() const { return _indentationLevel; }
    void setIndentationLevel(std::size_t level);

    const Value& representedObject() const { return _representedObject; }
    void setRepresentedObject(Value object);

    bool isSeparatorItem() const { return _isSeparatorItem; }

    /// Whether the user can choose the item. It takes an action and a living target for that,
    /// whatever was set.
    bool isEnabled() const;
    void setIsEnabled(bool isEnabled);

    /// The menu that holds the item; null for none.
    std::shared_ptr<NSMenu> menu() const { return _menu.lock(); }

    /// Has the target perform the action, the item being the sender. False when the item is not
    /// enabled. A target whose class does not declare the action stops the process.
    bool performAction();

private:
    friend class NSMenu;

    std::string _title;
    std::optional<std::string> _action;
    std::string _keyEquivalent;
    std::weak_ptr<NSObject> _target;
    std::size_t _indentationLevel = 0;
    Value _representedObject;
    bool _isSeparatorItem = false;
    bool isAllowed = true;
    std::weak_ptr<NSMenu> _menu;
};

}  // namespace quorin
