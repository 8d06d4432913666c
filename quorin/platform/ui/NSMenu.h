#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/ui/NSMenuItem.h"

namespace quorin {

/// A list of items, each of which is in one menu only. Whoever shows the menu observes the key
/// "items", which tells where items came and went.
class NSMenu : public NSObject {
public:
    using Class = NSClassOf<NSMenu, NSObject>;
    static void declareKeys(NSKeyList<NSMenu>& keys);

    static std::shared_ptr<NSMenu> create(std::string title = {});

    explicit NSMenu(std::string title = {});

    const std::string& title() const { return _title; }
    void setTitle(std::string title);

    const std::vector<std::shared_ptr<NSMenuItem>>& items() const { return _items; }
    std::size_t numberOfItems() const { return _items.size(); }
    /// Stops the process when there is none.
    const std::shared_ptr<NSMenuItem>& itemAt(std::size_t index) const;
    std::optional<std::size_t> indexOf(const NSMenuItem& item) const;

    void addItem(const std::shared_ptr<NSMenuItem>& item);
    /// Makes the item, adds it and hands it out.
    std::shared_ptr<NSMenuItem> addItem(std::string title, std::optional<std::string> action,
                                        std::string keyEquivalent = {});
    /// The item comes to stand at `index`, which is at most the number of items. One that is in a
    /// menu already stops the process.
    void insertItem(const std::shared_ptr<NSMenuItem>& item, std::size_t at);

    /// An item that is not in the menu stops the process.
    void removeItem(const NSMenuItem& item);
    void removeItemAt(std::size_t index);
    void removeAllItems();

private:
    friend class NSPopUpButton;

    using Items = std::vector<std::shared_ptr<NSMenuItem>>;

    /// Has a say around a change of the items.
    class Owner {
    public:
        /// Runs `change`, which announces the change and makes these the items.
        virtual void menuChanges(const Items& items, FunctionRef<void()> change) = 0;

    protected:
        ~Owner() = default;
    };

    void changeItems(NSKeyValueChange kind, std::vector<std::size_t> indexes, const Items& items);

    std::string _title;
    Items _items;
    Owner* owner = nullptr;  // the pop-up button that shows the menu, which takes itself out
};

}  // namespace quorin
