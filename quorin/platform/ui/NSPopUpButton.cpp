#include "quorin/platform/ui/NSPopUpButton.h"

#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

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
    changeValues({"menu"}, [&] {
        _menu->owner = nullptr;
        _menu = menu;
        _menu->owner = this;
        isEmptyOnPurpose = false;
        menuDidChangeItems();
    });
}

std::shared_ptr<NSMenuItem> NSPopUpButton::lastItem() const {
    return _menu->items().empty() ? nullptr : _menu->items().back();
}

std::optional<std::size_t> NSPopUpButton::indexOfSelectedItem() const {
    return _selectedItem ? _menu->indexOf(*_selectedItem) : std::nullopt;
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
    select(item);
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

void NSPopUpButton::menuDidChangeItems() {
    if (_selectedItem && _selectedItem->menu() == _menu)
        return;
    if (_menu->items().empty())
        isEmptyOnPurpose = false;
    select(_menu->items().empty() || isEmptyOnPurpose ? nullptr : _menu->items().front());
}

void NSPopUpButton::select(std::shared_ptr<NSMenuItem> item) {
    if (item == _selectedItem)
        return;
    changeValues({"selectedItem", "selectedIndex"}, [&] { _selectedItem = std::move(item); });
}

}  // namespace quorin
