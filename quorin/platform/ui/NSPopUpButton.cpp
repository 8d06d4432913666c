#include "quorin/platform/ui/NSPopUpButton.h"

#include <algorithm>
#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

std::optional<std::size_t> placeOf(const std::shared_ptr<NSMenuItem>& item,
                                   const std::vector<std::shared_ptr<NSMenuItem>>& items) {
    const auto found = std::find(items.begin(), items.end(), item);
    if (found == items.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - items.begin());
}

}  // namespace

void NSPopUpButton::declareKeys(NSKeyList<NSPopUpButton>& keys) {
    keys.reportingProperty("menu", &NSPopUpButton::menu, &NSPopUpButton::setMenu)
        .reportingProperty("selectedItem", &NSPopUpButton::selectedItem, &NSPopUpButton::selectItem)
        .reportingProperty("selectedIndex", &NSPopUpButton::indexOfSelectedItem,
                           &NSPopUpButton::selectItemAt);
}

std::shared_ptr<NSPopUpButton> NSPopUpButton::create(const CGRect& frame) {
    return makeObject<NSPopUpButton>(frame);
}

NSPopUpButton::NSPopUpButton(const CGRect& frame) : NSView(frame), _menu(NSMenu::create()) {
    _menu->owner = this;
}

NSPopUpButton::~NSPopUpButton() { _menu->owner = nullptr; }

void NSPopUpButton::setMenu(const std::shared_ptr<NSMenu>& menu) {
    if (menu == _menu)
        return;
    if (!menu)
        fatalError("a pop-up button without a menu");
    if (menu->owner)
        fatalError(std::string("the menu \"")
                       .append(menu->title())
                       .append("\" is shown by another pop-up button"));
    isEmptyOnPurpose = false;
    select(selectionAmong(menu->items()), menu->items(), {"menu"}, [&] {
        _menu->owner = nullptr;
        _menu = menu;
        _menu->owner = this;
    });
}

std::shared_ptr<NSMenuItem> NSPopUpButton::lastItem() const {
    return _menu->items().empty() ? nullptr : _menu->items().back();
}

std::optional<std::size_t> NSPopUpButton::indexOfSelectedItem() const {
    return placeOf(_selectedItem, _menu->items());
}

std::string NSPopUpButton::titleOfSelectedItem() const {
    return _selectedItem ? _selectedItem->title() : std::string();
}

void NSPopUpButton::selectItem(const std::shared_ptr<NSMenuItem>& item) {
    if (item && item->menu() != _menu)
        fatalError(std::string("menu item \"")
                       .append(item->title())
                       .append("\" is not in the pop-up button's menu"));
    isEmptyOnPurpose = !item;
    select(item, _menu->items(), {}, [] {});
}

void NSPopUpButton::selectItemAt(std::optional<std::size_t> index) {
    selectItem(index ? _menu->itemAt(*index) : nullptr);
}

bool NSPopUpButton::choose(std::size_t index) {
    const auto item = _menu->itemAt(index);
    if (!item->isEnabled())
        return false;
    selectItem(item);
    return item->performAction();
}

void NSPopUpButton::menuChanges(const Items& items, FunctionRef<void()> change) {
    select(selectionAmong(items), items, {}, change);
}

std::shared_ptr<NSMenuItem> NSPopUpButton::selectionAmong(const Items& items) {
    if (items.empty())
        isEmptyOnPurpose = false;
    if (items.empty() || isEmptyOnPurpose)
        return nullptr;
    return placeOf(_selectedItem, items) ? _selectedItem : items.front();
}

void NSPopUpButton::select(const std::shared_ptr<NSMenuItem>& item, const Items& items,
                           std::vector<std::string> keys, FunctionRef<void()> change) {
    if (item != _selectedItem)
        keys.insert(keys.end(), {"selectedItem", "selectedIndex"});
    else if (placeOf(item, items) != indexOfSelectedItem())
        keys.emplace_back("selectedIndex");
    changeValues(keys, [&] {
        _selectedItem = item;
        change();
    });
}

}  // namespace quorin
