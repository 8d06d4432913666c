#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/LocalizedString.h"
#include "tests/TestSupport.h"
#include "tests/screens/SizePanel.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using DocumentSizeMenuTest = test::SizePanelTest;

using DocumentSizeMenuTestDeathTest = test::SizePanelTest;

using test::fewScreens;
using test::SizePanel;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string lineOf(const NSMenuItem& item) {
    std::string line(item.indentationLevel(), '>');
    line.append(item.isSeparatorItem() ? "---" : item.title());
    if (item.action())
        line.append(" ").append(*item.action());
    if (item.isEnabled())
        line.append(" enabled");
    return line;
}

std::vector<std::string> linesOf(const NSPopUpButton& button) {
    std::vector<std::string> lines;
    for (const auto& item : button.menu()->items())
        lines.push_back(lineOf(*item));
    return lines;
}

TEST_F(DocumentSizeMenuTest, showsAHeaderTheTemplatesAndASeparatorForEachCategory) {
    EXPECT_THAT(
        linesOf(*panel.menu),
        ElementsAre("iPhone", ">mini didChooseTempalte: enabled",
                    ">large didChooseTempalte: enabled", "---", "iPad",
                    ">tablet didChooseTempalte: enabled", ">twin didChooseTempalte: enabled", "---",
                    "TV", "---", "Web", ">laptop didChooseTempalte: enabled", "---",
                    "Custom didChooseTempalte: enabled"));
}

TEST_F(DocumentSizeMenuTest, givesTemplatesToTheirItemsAndNothingToTheOthers) {
    const auto& items = panel.menu->menu()->items();
    const auto& screens = *controller.screenTemplates();
    EXPECT_EQ(items[mini]->representedObject().asObject(), screens[0]->templates()[0]);
    EXPECT_EQ(items[laptop]->representedObject().asObject(), screens[3]->templates()[0]);
    for (const Place place : {iPhoneHeader, firstSeparator, custom})
        EXPECT_TRUE(items[place]->representedObject().isNothing()) << place;
    for (const auto& item : items) {
        EXPECT_EQ(item->keyEquivalent(), "");
        EXPECT_EQ(item->target(), item->action() ? panel.controller : nullptr) << item->title();
    }
}

TEST_F(DocumentSizeMenuTest, showsCategoriesAndNamesAsOftenAsTheyAreThere) {
    const auto screens = ScreenTemplate::create(
        DeviceCategory::TV, {Template::create(1, 2, 1, "same"), Template::create(3, 4, 1, "same")});
    const SizePanel twice(ScreenCatalogue{screens, screens});
    std::vector<std::string> titles;
    for (const auto& item : twice.menu->menu()->items())
        titles.push_back(item->title());
    EXPECT_THAT(titles, ElementsAre("TV", "same", "same", "", "TV", "same", "same", "", "Custom"));
}

TEST_F(DocumentSizeMenuTest, showsOnlyTheCustomItemWithoutScreens) {
    const auto onlyCustom = ElementsAre("Custom didChooseTempalte: enabled");
    EXPECT_THAT(linesOf(*SizePanel(std::nullopt).menu), onlyCustom);
    EXPECT_THAT(linesOf(*SizePanel(ScreenCatalogue()).menu), onlyCustom);
}

TEST_F(DocumentSizeMenuTest, offersNoTemplatesWhereTheCatalogueIsMissingOrBroken) {
    const test::TemporaryFolder folder;
    const auto menuOf = [&] {
        return linesOf(*SizePanel(readScreenTemplates(Bundle(folder.path()))).menu);
    };
    const auto onlyCustom = ElementsAre("Custom didChooseTempalte: enabled");
    EXPECT_THAT(menuOf(), onlyCustom);
    folder.file("ScreenTemplates.json", R"([{"category": "TV", "templates": []}, {}])");
    EXPECT_THAT(menuOf(), onlyCustom);
    folder.file("ScreenTemplates.json", R"([{"category": "TV", "templates": []}])");
    EXPECT_THAT(menuOf(), ElementsAre("TV", "---", "Custom didChooseTempalte: enabled"));
}

TEST_F(DocumentSizeMenuTest, addsToTheItemsThatAreInTheMenuAlready) {
    const auto menu = NSPopUpButton::create();
    menu->menu()->addItem("Pick a screen", std::nullopt);
    const auto fresh = makeObject<DocumentSizeViewController>();
    fresh->setScreenTemplateMenu(menu);
    fresh->view();
    EXPECT_THAT(linesOf(*menu), ElementsAre("Pick a screen", "Custom didChooseTempalte: enabled"));
    EXPECT_EQ(menu->titleOfSelectedItem(), "Pick a screen");
}

TEST_F(DocumentSizeMenuTest, selectsTheFirstItemAtTheStartWhichIsNoTemplate) {
    EXPECT_EQ(panel.menu->indexOfSelectedItem(), iPhoneHeader);
    EXPECT_EQ(SizePanel(std::nullopt).selected(), "Custom");
    EXPECT_THAT(panel.during([&] { controller.swap(nullptr); }),
                ElementsAre("will height", "will width", "did height", "did width",
                            "post - 812 × 375 at 3"));
}

TEST_F(DocumentSizeMenuTest, postsNothingWhileTheMenuIsBuilt) {
    SizePanel fresh(std::nullopt);
    EXPECT_THAT(fresh.log, IsEmpty());
}

TEST_F(DocumentSizeMenuTest, localizesTheCustomItem) {
    std::vector<std::string> comments;
    setMainLocalizedStrings([&](std::string_view key, std::string_view comment) {
        comments.emplace_back(comment);
        return key == "Custom" ? std::optional<std::string>("Eigene") : std::nullopt;
    });
    const SizePanel german;
    setMainLocalizedStrings(nullptr);
    EXPECT_EQ(german.menu->lastItem()->title(), "Eigene");
    EXPECT_EQ(german.menu->menu()->itemAt(iPhoneHeader)->title(), "iPhone");
    EXPECT_THAT(comments, ElementsAre("Custom screen template label"));
}

TEST_F(DocumentSizeMenuTestDeathTest, stopsTheProcessWithoutAMenuToBuild) {
    const auto fresh = makeObject<DocumentSizeViewController>();
    fresh->setScreenTemplates(fewScreens());
    EXPECT_DEATH(fresh->view(), "DocumentSizeViewController.* has no screenTemplateMenu");
    EXPECT_DEATH(fresh->viewDidLoad(), "has no screenTemplateMenu");
}

TEST_F(DocumentSizeMenuTestDeathTest, stopsTheProcessWithoutAMenuToSync) {
    const char* const message = "has no screenTemplateMenu";
    controller.setScreenTemplateMenu(nullptr);
    EXPECT_DEATH(controller.setWidth(1), message);
    EXPECT_DEATH(controller.setHeight(1), message);
    EXPECT_DEATH(controller.setDensity(1), message);
    EXPECT_DEATH(controller.setPixelDensityIndex(1), message);
    EXPECT_DEATH(controller.setDefaultScreenSize({1, 1}), message);
    EXPECT_DEATH(controller.setDefaultScreenScale(1), message);
}

TEST_F(DocumentSizeMenuTest, needsNoMenuToSwapAndToTakeATemplate) {
    const auto item = panel.menu->menu()->itemAt(large);
    controller.setScreenTemplateMenu(nullptr);
    EXPECT_EQ(panel.during([&] { controller.swap(nullptr); }).back(), "post - 812 × 375 at 3");
    EXPECT_EQ(panel.during([&] { controller.didChooseTempalte(item.get()); }).back(),
              "post - 390 × 844 at 3");
}

TEST_F(DocumentSizeMenuTest, doesNotKeepItsMenuAlive) {
    const std::weak_ptr<NSPopUpButton> menu = panel.menu;
    panel.menu.reset();
    EXPECT_TRUE(menu.expired());
    EXPECT_EQ(controller.screenTemplateMenu(), nullptr);
    EXPECT_TRUE(controller.valueForKey("screenTemplateMenu").isNothing());
    controller.swap(nullptr);
    EXPECT_EQ(controller.width(), 812);
}

TEST_F(DocumentSizeMenuTest, isNotKeptAliveByItsMenu) {
    SizePanel other;
    std::weak_ptr<DocumentSizeViewController> reference = other.controller;
    other.controller.reset();
    EXPECT_TRUE(reference.expired());
    EXPECT_FALSE(other.menu->menu()->itemAt(mini)->isEnabled());
    EXPECT_FALSE(other.menu->choose(mini));
}

}  // namespace
}  // namespace quorin
