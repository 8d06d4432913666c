#include "quorin/platform/ui/NSPopUpButton.h"

#include "tests/TestSupport.h"
#include "tests/support/ActionTargets.h"
#include "tests/support/ToldKeys.h"

namespace quorin {
namespace {

using test::ActionTarget;

struct NSPopUpButtonTest : testing::Test {
    NSMenu& menu() { return *button->menu(); }

    std::shared_ptr<NSMenuItem> addHeader(const char* title) {
        return menu().addItem(title, std::nullopt);
    }

    std::shared_ptr<NSMenuItem> addCommand(const char* title) {
        auto item = menu().addItem(title, "note:");
        item->setTarget(target);
        return item;
    }

    std::shared_ptr<NSPopUpButton> button = NSPopUpButton::create();
    std::shared_ptr<ActionTarget> target = makeObject<ActionTarget>();
};

TEST_F(NSPopUpButtonTest, showsNothingWithoutItems) {
    EXPECT_EQ(button->numberOfItems(), 0u);
    EXPECT_EQ(button->selectedItem(), nullptr);
    EXPECT_EQ(button->indexOfSelectedItem(), std::nullopt);
    EXPECT_EQ(button->titleOfSelectedItem(), "");
    EXPECT_EQ(button->lastItem(), nullptr);
}

TEST_F(NSPopUpButtonTest, selectsTheFirstItemThatComes) {
    const auto first = addHeader("first");
    const auto last = addHeader("last");
    EXPECT_EQ(button->selectedItem(), first);
    EXPECT_EQ(button->indexOfSelectedItem(), 0u);
    EXPECT_EQ(button->titleOfSelectedItem(), "first");
    EXPECT_EQ(button->lastItem(), last);
    menu().insertItem(NSMenuItem::create("new", std::nullopt), 0);
    EXPECT_EQ(button->selectedItem(), first);
    EXPECT_EQ(button->indexOfSelectedItem(), 1u);
}

TEST_F(NSPopUpButtonTest, selectsAnyItemOfItsMenuWithoutPerformingIt) {
    addHeader("header");
    const auto command = addCommand("command");
    button->selectItem(command);
    EXPECT_EQ(button->selectedItem(), command);
    button->selectItemAt(0);
    EXPECT_EQ(button->titleOfSelectedItem(), "header");
    EXPECT_TRUE(target->senders.empty());
}

TEST_F(NSPopUpButtonTest, selectsTheFirstItemWhenTheSelectedOneGoes) {
    addHeader("one");
    addHeader("two");
    addHeader("three");
    button->selectItemAt(1);
    menu().removeItemAt(1);
    EXPECT_EQ(button->titleOfSelectedItem(), "one");
    button->removeAllItems();
    EXPECT_EQ(button->selectedItem(), nullptr);
    EXPECT_EQ(button->numberOfItems(), 0u);
    addHeader("new");
    EXPECT_EQ(button->titleOfSelectedItem(), "new");
}

TEST_F(NSPopUpButtonTest, staysWithoutASelectionThatWasTakenAway) {
    addHeader("one");
    button->selectItem(nullptr);
    EXPECT_EQ(button->selectedItem(), nullptr);
    addHeader("two");
    EXPECT_EQ(button->selectedItem(), nullptr);
    button->selectItemAt(0);
    button->selectItemAt(std::nullopt);
    EXPECT_EQ(button->indexOfSelectedItem(), std::nullopt);
    button->removeAllItems();
    addHeader("three");
    EXPECT_EQ(button->titleOfSelectedItem(), "three");
}

TEST_F(NSPopUpButtonTest, performsWhatTheUserChoosesOnceItIsSelected) {
    addHeader("header");
    const auto command = addCommand("command");
    const auto observer = makeObject<test::Recorder>();
    button->addObserver(*observer, "selectedItem", NSKeyValueObservingOptions::newValue);
    std::size_t toldBefore = 0;
    observer->then = [&] { toldBefore = target->senders.size(); };
    EXPECT_TRUE(button->choose(1));
    EXPECT_EQ(button->selectedItem(), command);
    EXPECT_EQ(observer->told.size(), 1u);
    EXPECT_EQ(toldBefore, 0u);
    EXPECT_THAT(target->senders, testing::ElementsAre(command.get()));
    EXPECT_TRUE(button->choose(1));
    EXPECT_EQ(target->senders.size(), 2u);
}

TEST_F(NSPopUpButtonTest, letsNobodyChooseHeadersAndSeparators) {
    addCommand("command");
    addHeader("header");
    menu().addItem(NSMenuItem::separatorItem());
    EXPECT_FALSE(button->choose(1));
    EXPECT_FALSE(button->choose(2));
    EXPECT_EQ(button->titleOfSelectedItem(), "command");
    EXPECT_TRUE(target->senders.empty());
}

TEST_F(NSPopUpButtonTest, tellsOfItsSelectionOnlyWhenThatChanges) {
    const auto observer = makeObject<test::Recorder>();
    for (const char* key : {"selectedItem", "selectedIndex"})
        button->addObserver(*observer, key, NSKeyValueObservingOptions::newValue);
    addHeader("one");
    EXPECT_THAT(test::toldKeys(*observer), testing::ElementsAre("selectedItem", "selectedIndex"));
    EXPECT_EQ(observer->lastNew(), Value(0));
    addHeader("two");
    button->selectItemAt(0);
    EXPECT_EQ(observer->told.size(), 2u);
    button->setValueForKey(1, "selectedIndex");
    EXPECT_EQ(observer->told.size(), 4u);
    EXPECT_EQ(observer->lastNew(), Value(1));
    EXPECT_EQ(button->titleOfSelectedItem(), "two");
}

TEST_F(NSPopUpButtonTest, hasLetGoOfARemovedItemWhenObserversOfItsMenuAreTold) {
    addHeader("one");
    addHeader("two");
    const auto observer = makeObject<test::Recorder>();
    menu().addObserver(*observer, "items", NSKeyValueObservingOptions::newValue);
    std::string shown;
    observer->then = [&] { shown = button->titleOfSelectedItem(); };
    menu().removeItemAt(0);
    EXPECT_EQ(shown, "two");
}

/// What observers of the button and of its menu are told, in order, and what is selected then.
struct ToldByBoth {
    explicit ToldByBoth(const std::shared_ptr<NSPopUpButton>& button)
        : selected(*button), menu(button->menu()) {
        const auto options =
            NSKeyValueObservingOptions::oldValue | NSKeyValueObservingOptions::newValue;
        for (const char* key : {"menu", "selectedItem", "selectedIndex"})
            button->addObserver(*observer, key, options);
        menu->addObserver(*observer, "items", options);
        observer->then = [this] { shown.push_back(selected.indexOfSelectedItem()); };
    }
    std::vector<std::string> keys() {
        auto keys = test::toldKeys(*observer);
        observer->told.clear();
        return keys;
    }

    NSPopUpButton& selected;
    std::shared_ptr<NSMenu> menu;
    std::shared_ptr<test::Recorder> observer = makeObject<test::Recorder>();
    std::vector<std::optional<std::size_t>> shown;
};

TEST_F(NSPopUpButtonTest, tellsOfItsSelectionAfterTheMenuHasToldOfItsItems) {
    ToldByBoth told(button);
    addHeader("one");
    EXPECT_THAT(told.keys(), testing::ElementsAre("items", "selectedItem", "selectedIndex"));
    EXPECT_THAT(told.shown, testing::Each(std::optional<std::size_t>(0)));
    addHeader("two");
    EXPECT_THAT(told.keys(), testing::ElementsAre("items"));
    menu().removeItemAt(0);
    EXPECT_EQ(told.observer->lastOld(), Value(0));
    EXPECT_THAT(told.keys(), testing::ElementsAre("items", "selectedItem", "selectedIndex"));
    button->removeAllItems();
    EXPECT_EQ(told.observer->lastOld(), Value(0));
    EXPECT_EQ(told.shown.back(), std::nullopt);
    EXPECT_THAT(told.keys(), testing::ElementsAre("items", "selectedItem", "selectedIndex"));
}

TEST_F(NSPopUpButtonTest, tellsWhereTheSelectedItemStandsWhenOthersComeOrGoBeforeIt) {
    addHeader("selected");
    ToldByBoth told(button);
    menu().insertItem(NSMenuItem::create("new", std::nullopt), 0);
    EXPECT_EQ(told.observer->lastOld(), Value(0));
    EXPECT_EQ(told.observer->lastNew(), Value(1));
    EXPECT_THAT(told.keys(), testing::ElementsAre("items", "selectedIndex"));
    menu().removeItemAt(0);
    EXPECT_EQ(told.observer->lastOld(), Value(1));
    EXPECT_EQ(told.observer->lastNew(), Value(0));
    EXPECT_THAT(told.keys(), testing::ElementsAre("items", "selectedIndex"));
    EXPECT_EQ(button->titleOfSelectedItem(), "selected");
}

TEST_F(NSPopUpButtonTest, tellsOfAnotherMenuBeforeTheSelectionThere) {
    addHeader("one");
    ToldByBoth told(button);
    const auto other = NSMenu::create();
    other->addItem("first", std::nullopt);
    button->setMenu(other);
    EXPECT_THAT(told.keys(), testing::ElementsAre("menu", "selectedItem", "selectedIndex"));
    button->setMenu(NSMenu::create());
    EXPECT_THAT(told.keys(), testing::ElementsAre("menu", "selectedItem", "selectedIndex"));
    button->setMenu(NSMenu::create());
    EXPECT_THAT(told.keys(), testing::ElementsAre("menu"));
    EXPECT_EQ(button->selectedItem(), nullptr);
}

TEST_F(NSPopUpButtonTest, tellsItemsOfTheSameTitleApart) {
    for (int i = 0; i < 3; ++i)
        addCommand("same");
    EXPECT_TRUE(button->choose(2));
    EXPECT_EQ(button->indexOfSelectedItem(), 2u);
    menu().removeItemAt(1);
    EXPECT_EQ(button->indexOfSelectedItem(), 1u);
    EXPECT_THAT(target->senders, testing::ElementsAre(menu().itemAt(1).get()));
}

TEST_F(NSPopUpButtonTest, showsAnotherMenuFromItsFirstItemOn) {
    addHeader("old");
    const auto old = button->menu();
    const auto other = NSMenu::create();
    other->addItem("first", std::nullopt);
    other->addItem("second", std::nullopt);
    button->selectItem(nullptr);  // holds for the old menu only
    button->setMenu(other);
    EXPECT_EQ(button->menu(), other);
    EXPECT_EQ(button->titleOfSelectedItem(), "first");
    old->removeAllItems();
    old->addItem("newer", std::nullopt);
    EXPECT_EQ(button->titleOfSelectedItem(), "first");
    other->removeItemAt(0);
    EXPECT_EQ(button->titleOfSelectedItem(), "second");
}

TEST_F(NSPopUpButtonTest, leavesItsMenuToOthersAtItsEnd) {
    const auto kept = button->menu();
    button.reset();
    kept->addItem("alone", std::nullopt);
    const auto other = NSPopUpButton::create();
    other->setMenu(kept);
    EXPECT_EQ(other->titleOfSelectedItem(), "alone");
}

using NSPopUpButtonDeathTest = NSPopUpButtonTest;

TEST_F(NSPopUpButtonDeathTest, refusesWhatIsNotInItsMenu) {
    addHeader("one");
    EXPECT_DEATH(button->selectItem(NSMenuItem::create("other", std::nullopt)),
                 "menu item \"other\" is not in the pop-up button's menu");
    EXPECT_DEATH(button->selectItemAt(1), "menu item 1 of 1");
    EXPECT_DEATH(button->choose(1), "menu item 1 of 1");
    EXPECT_DEATH(button->setMenu(nullptr), "a pop-up button without a menu");
    const auto other = NSPopUpButton::create();
    other->menu()->setTitle("Screens");
    EXPECT_DEATH(button->setMenu(other->menu()),
                 "the menu \"Screens\" is shown by another pop-up button");
}

}  // namespace
}  // namespace quorin
