#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "quorin/platform/ui/NSMenu.h"
#include "quorin/platform/ui/NSView.h"

namespace quorin {

/// A button that shows one item of a menu, its selected item. The first item that comes into the
/// menu is selected by itself. When the selected item leaves the menu, the first one is selected.
/// After nothing was selected on purpose, it stays so until the menu is empty.
///
/// Selecting changes what is shown, choosing is what the user does. Whoever shows the button
/// observes "menu", "selectedItem" and "selectedIndex", and the keys of the menu. When items come
/// or go, the menu tells first, and then the button, if another item is selected now or the same
/// one stands at another place.
class NSPopUpButton : public NSView, private NSMenu::Owner {
public:
    using Class = NSClassOf<NSPopUpButton, NSView>;
    static void declareKeys(NSKeyList<NSPopUpButton>& keys);

    static std::shared_ptr<NSPopUpButton> create(const CGRect& frame = CGRect::zero);

    explicit NSPopUpButton(const CGRect& frame = CGRect::zero);
    ~NSPopUpButton() override;

    const std::shared_ptr<NSMenu>& menu() const { return _menu; }
    /// Selects the first item. A menu that another button shows, or none, stops the process.
    void setMenu(const std::shared_ptr<NSMenu>& menu);

    std::size_t numberOfItems() const { return _menu->numberOfItems(); }
    /// Null for an empty menu.
    std::shared_ptr<NSMenuItem> lastItem() const;
    void removeAllItems() { _menu->removeAllItems(); }

    /// Null when nothing is selected.
    std::shared_ptr<NSMenuItem> selectedItem() const { return _selectedItem; }
    std::optional<std::size_t> indexOfSelectedItem() const;
    /// The title of the selected item, empty for none.
    std::string titleOfSelectedItem() const;

    /// Selects any item of the menu, headers included, or nothing. Performs no action. An item of
    /// another menu stops the process, as does an index beyond the last one.
    void selectItem(const std::shared_ptr<NSMenuItem>& item);
    void selectItemAt(std::optional<std::size_t> index);

    /// What the user's choice does: selects the item, then performs its action. False, and nothing
    /// is done, for an item that is not enabled: a header or a separator.
    bool choose(std::size_t index);

private:
    using Items = std::vector<std::shared_ptr<NSMenuItem>>;

    void menuChanges(const Items& items, FunctionRef<void()> change) override;
    /// Selects an item of these, announcing what changes around `change`, by which they come to
    /// stand in the menu.
    void select(const std::shared_ptr<NSMenuItem>& item, const Items& items,
                std::vector<std::string> keys, FunctionRef<void()> change);
    std::shared_ptr<NSMenuItem> selectionAmong(const Items& items);

    std::shared_ptr<NSMenu> _menu;
    std::shared_ptr<NSMenuItem> _selectedItem;
    bool isEmptyOnPurpose = false;
};

}  // namespace quorin
