#include "quorin/platform/ui/NSMenu.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "quorin/platform/foundation/NSIndexSet.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

[[noreturn]] void refuseIndex(std::size_t index, std::size_t count) {
    fatalError(std::string("menu item ")
                   .append(std::to_string(index))
                   .append(" of ")
                   .append(std::to_string(count)));
}

std::string quoted(const NSMenuItem& item) {
    return std::string("menu item \"").append(item.title()).append("\"");
}

}  // namespace

void NSMenu::declareKeys(NSKeyList<NSMenu>& keys) {
    keys.reportingProperty("title", &NSMenu::title, &NSMenu::setTitle)
        .property("items", &NSMenu::items);
}

std::shared_ptr<NSMenu> NSMenu::create(std::string title) {
    return makeObject<NSMenu>(std::move(title));
}

NSMenu::NSMenu(std::string title) : _title(std::move(title)) {}

void NSMenu::setTitle(std::string title) {
    changeValues({"title"}, [&] { _title = std::move(title); });
}

const std::shared_ptr<NSMenuItem>& NSMenu::itemAt(std::size_t index) const {
    if (index >= _items.size())
        refuseIndex(index, _items.size());
    return _items[index];
}

std::optional<std::size_t> NSMenu::indexOf(const NSMenuItem& item) const {
    const auto found = std::find_if(_items.begin(), _items.end(),
                                    [&](const auto& each) { return each.get() == &item; });
    if (found == _items.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - _items.begin());
}

void NSMenu::addItem(const std::shared_ptr<NSMenuItem>& item) { insertItem(item, _items.size()); }

std::shared_ptr<NSMenuItem> NSMenu::addItem(std::string title, std::optional<std::string> action,
                                            std::string keyEquivalent) {
    auto item = NSMenuItem::create(std::move(title), std::move(action), std::move(keyEquivalent));
    addItem(item);
    return item;
}

void NSMenu::insertItem(const std::shared_ptr<NSMenuItem>& item, std::size_t at) {
    if (at > _items.size())
        refuseIndex(at, _items.size());
    if (item->menu())
        fatalError(quoted(*item).append(" is in a menu already"));
    Items items = _items;
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(at), item);
    changeItems(NSKeyValueChange::insertion, {at}, items);
}

void NSMenu::removeItem(const NSMenuItem& item) {
    const auto index = indexOf(item);
    if (!index)
        fatalError(quoted(item).append(" is not in the menu \"").append(_title).append("\""));
    removeItemAt(*index);
}

void NSMenu::removeItemAt(std::size_t index) {
    if (index >= _items.size())
        refuseIndex(index, _items.size());
    Items items = _items;
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
    changeItems(NSKeyValueChange::removal, {index}, items);
}

void NSMenu::removeAllItems() {
    if (_items.empty())
        return;
    std::vector<std::size_t> all(_items.size());
    std::iota(all.begin(), all.end(), 0);
    changeItems(NSKeyValueChange::removal, std::move(all), {});
}

void NSMenu::changeItems(NSKeyValueChange kind, std::vector<std::size_t> indexes,
                         const Items& items) {
    const auto places = NSIndexSet::create(std::move(indexes));
    const auto change = [&] {
        willChange(kind, places, "items");
        for (const auto& item : _items)
            item->_menu.reset();
        _items = items;
        for (const auto& item : _items)
            item->_menu = std::static_pointer_cast<NSMenu>(shared_from_this());
        didChange(kind, places, "items");
    };
    if (owner)
        owner->menuChanges(items, change);
    else
        change();
}

}  // namespace quorin
