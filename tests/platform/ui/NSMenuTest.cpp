#include "quorin/platform/ui/NSMenu.h"

#include "tests/TestSupport.h"
#include "tests/support/ToldKeys.h"

namespace quorin {
namespace {

std::vector<std::string> titles(const NSMenu& menu) {
    std::vector<std::string> titles;
    for (const auto& item : menu.items())
        titles.push_back(item->title());
    return titles;
}

std::shared_ptr<NSMenu> menuOf(std::initializer_list<const char*> titles) {
    const auto menu = NSMenu::create("Screens");
    for (const char* title : titles)
        menu->addItem(title, std::nullopt);
    return menu;
}

TEST(NSMenu, holdsItemsInTheOrderInWhichTheyCome) {
    const auto menu = menuOf({"one", "three"});
    menu->insertItem(NSMenuItem::create("two", std::nullopt), 1);
    menu->insertItem(NSMenuItem::create("four", std::nullopt), 3);
    EXPECT_THAT(titles(*menu), testing::ElementsAre("one", "two", "three", "four"));
    EXPECT_EQ(menu->numberOfItems(), 4u);
    EXPECT_EQ(menu->itemAt(2)->title(), "three");
    EXPECT_EQ(menu->indexOf(*menu->itemAt(2)), 2u);
    EXPECT_EQ(menu->itemAt(2)->menu(), menu);
}

TEST(NSMenu, letsItemsGo) {
    const auto menu = menuOf({"one", "two", "three", "four"});
    const auto two = menu->itemAt(1);
    menu->removeItem(*two);
    menu->removeItemAt(2);
    EXPECT_THAT(titles(*menu), testing::ElementsAre("one", "three"));
    EXPECT_EQ(two->menu(), nullptr);
    EXPECT_EQ(menu->indexOf(*two), std::nullopt);
    menu->addItem(two);
    menu->removeAllItems();
    EXPECT_EQ(menu->numberOfItems(), 0u);
    EXPECT_EQ(two->menu(), nullptr);
    menu->removeAllItems();
}

TEST(NSMenu, tellsWhereItemsCameAndWent) {
    const auto menu = menuOf({"one", "two"});
    const auto observer = makeObject<test::Recorder>();
    menu->addObserver(*observer, "items", NSKeyValueObservingOptions::newValue);
    menu->insertItem(NSMenuItem::create("new", std::nullopt), 1);
    menu->removeItemAt(0);
    menu->removeAllItems();
    ASSERT_EQ(observer->told.size(), 3u);
    const auto expectRecord = [&](std::size_t at, NSKeyValueChange kind,
                                  std::vector<std::size_t> places) {
        const auto& change = observer->told[at].change;
        EXPECT_EQ(change[NSKeyValueChangeKey::kind], Value(static_cast<std::int64_t>(kind)));
        EXPECT_EQ(change[NSKeyValueChangeKey::indexes],
                  Value(NSIndexSet::create(std::move(places))));
    };
    expectRecord(0, NSKeyValueChange::insertion, {1});
    expectRecord(1, NSKeyValueChange::removal, {0});
    expectRecord(2, NSKeyValueChange::removal, {0, 1});
}

TEST(NSMenu, letsItsItemsLiveOnWithoutIt) {
    const auto item = NSMenuItem::create("one", std::nullopt);
    {
        const auto menu = NSMenu::create();
        menu->addItem(item);
    }
    EXPECT_EQ(item->menu(), nullptr);
    NSMenu::create()->addItem(item);
}

TEST(NSMenuDeathTest, refusesPlacesThatItDoesNotHave) {
    const auto menu = menuOf({"one", "two"});
    EXPECT_DEATH(menu->itemAt(2), "menu item 2 of 2");
    EXPECT_DEATH(menu->removeItemAt(2), "menu item 2 of 2");
    EXPECT_DEATH(menu->insertItem(NSMenuItem::create("new", std::nullopt), 3), "menu item 3 of 2");
}

TEST(NSMenuDeathTest, refusesItemsOfOtherMenus) {
    const auto menu = menuOf({"one"});
    const auto other = menuOf({"two"});
    EXPECT_DEATH(menu->addItem(other->itemAt(0)), "menu item \"two\" is in a menu already");
    EXPECT_DEATH(menu->removeItem(*other->itemAt(0)),
                 "menu item \"two\" is not in the menu \"Screens\"");
}

}  // namespace
}  // namespace quorin
