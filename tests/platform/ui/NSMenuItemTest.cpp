#include "quorin/platform/ui/NSMenuItem.h"

#include "quorin/platform/ui/NSMenu.h"
#include "tests/TestSupport.h"
#include "tests/support/ActionTargets.h"
#include "tests/support/ToldKeys.h"

namespace quorin {
namespace {

using test::ActionTarget;

TEST(NSMenuItem, isMadeFromTitleActionAndKey) {
    const auto item = NSMenuItem::create("Swap", "swap:", "s");
    EXPECT_EQ(item->title(), "Swap");
    EXPECT_EQ(item->action(), "swap:");
    EXPECT_EQ(item->keyEquivalent(), "s");
    EXPECT_EQ(item->target(), nullptr);
    EXPECT_EQ(item->indentationLevel(), 0u);
    EXPECT_TRUE(item->representedObject().isNothing());
    EXPECT_FALSE(item->isSeparatorItem());
    EXPECT_EQ(item->menu(), nullptr);
}

TEST(NSMenuItem, isEnabledWithAnActionAndALivingTarget) {
    auto target = makeObject<ActionTarget>();
    const auto item = NSMenuItem::create("iPhone", std::nullopt);
    EXPECT_FALSE(item->isEnabled());
    item->setTarget(target);
    EXPECT_FALSE(item->isEnabled());
    item->setAction("note:");
    EXPECT_TRUE(item->isEnabled());
    item->setIsEnabled(false);
    EXPECT_FALSE(item->isEnabled());
    item->setIsEnabled(true);
    target.reset();
    EXPECT_FALSE(item->isEnabled());
}

TEST(NSMenuItem, canSeparateAndIsNeverEnabledThen) {
    const auto target = makeObject<ActionTarget>();
    const auto item = NSMenuItem::separatorItem();
    EXPECT_TRUE(item->isSeparatorItem());
    EXPECT_EQ(item->title(), "");
    item->setAction("note:");
    item->setTarget(target);
    EXPECT_FALSE(item->isEnabled());
}

TEST(NSMenuItem, isIndentedByFifteenStepsAtMost) {
    const auto item = NSMenuItem::create("iPhone X", std::nullopt);
    item->setIndentationLevel(1);
    EXPECT_EQ(item->indentationLevel(), 1u);
    item->setIndentationLevel(16);
    EXPECT_EQ(item->indentationLevel(), 15u);
}

TEST(NSMenuItem, hasItsTargetPerformTheAction) {
    const auto target = makeObject<ActionTarget>();
    const auto item = NSMenuItem::create("Note", "note:");
    EXPECT_FALSE(item->performAction());
    item->setTarget(target);
    EXPECT_TRUE(item->performAction());
    EXPECT_THAT(target->senders, testing::ElementsAre(item.get()));
    item->setIsEnabled(false);
    EXPECT_FALSE(item->performAction());
    EXPECT_EQ(target->senders.size(), 1u);
}

TEST(NSMenuItem, outlivesAnActionThatTakesItOutOfItsMenu) {
    const auto target = makeObject<ActionTarget>();
    const auto menu = NSMenu::create();
    NSMenuItem& item = *menu->addItem("Remove", "removeFromMenu:");
    item.setTarget(target);
    EXPECT_TRUE(item.performAction());
    EXPECT_EQ(menu->numberOfItems(), 0u);
    EXPECT_EQ(target->titles, std::vector<std::string>{"Remove"});
}

TEST(NSMenuItem, tellsObserversOfItsKeys) {
    const auto item = NSMenuItem::create("One", std::nullopt);
    const auto observer = makeObject<test::Recorder>();
    for (const char* key : {"title", "enabled", "representedObject"})
        item->addObserver(*observer, key, NSKeyValueObservingOptions::newValue);
    item->setTitle("Two");
    item->setRepresentedObject(5);
    item->setAction("note:");
    item->setValueForKey("Three", "title");
    EXPECT_EQ(item->title(), "Three");
    EXPECT_THAT(test::toldKeys(*observer),
                testing::ElementsAre("title", "representedObject", "enabled", "title"));
}

TEST(NSMenuItemDeathTest, cannotPerformWhatItsTargetsClassDoesNotDeclare) {
    const auto target = makeObject<ActionTarget>();
    const auto item = NSMenuItem::create("Note", "notes:");
    item->setTarget(target);
    EXPECT_DEATH(item->performAction(), "ActionTarget has no action \"notes:\"");
}

}  // namespace
}  // namespace quorin
