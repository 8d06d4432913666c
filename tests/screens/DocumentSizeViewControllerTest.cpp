#include "quorin/screens/DocumentSizeViewController.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/LocalizedString.h"
#include "quorin/platform/ui/NSApplication.h"
#include "tests/TestSupport.h"
#include "tests/screens/SizePanel.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::fewScreens;
using test::SizePanel;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

struct DocumentSizeViewControllerTest : testing::Test {
    SizePanel panel{};
    DocumentSizeViewController& controller = *panel.controller;
};

using DocumentSizeViewControllerDeathTest = DocumentSizeViewControllerTest;

/// The places of the items in the menu of `fewScreens`.
enum Place { iPhoneHeader, mini, large, firstSeparator, twin = 6, laptop = 11, custom = 13 };

TEST_F(DocumentSizeViewControllerTest, startsWithThePhoneThatDocumentsStartWith) {
    const auto fresh = makeObject<DocumentSizeViewController>();
    EXPECT_EQ(fresh->width(), 375);
    EXPECT_EQ(fresh->height(), 812);
    EXPECT_EQ(fresh->density(), 3);
    EXPECT_EQ(fresh->defaultScreenSize(), (CGSize{375, 812}));
    EXPECT_EQ(fresh->defaultScreenScale(), 3);
    EXPECT_EQ(fresh->screenTemplateMenu(), nullptr);
    EXPECT_EQ(fresh->screenTemplates(), std::nullopt);
    EXPECT_EQ(fresh->templateName(), std::nullopt);
    EXPECT_THAT(DocumentSizeViewController::densityChoices, ElementsAre(1, 2, 3, 4));
}

TEST_F(DocumentSizeViewControllerTest, isMadeWithTheNameOfItsInterfaceFileOrFromADecoder) {
    const auto named = makeObject<DocumentSizeViewController>("DocumentSize", Bundle("/nowhere"));
    EXPECT_EQ(named->nibName(), "DocumentSize");
    std::shared_ptr<DocumentSizeViewController> decoded;
    JSONDecoder().decode(R"({"title": "Size"})", [&](Decoder& coder) {
        decoded = makeObject<DocumentSizeViewController>(coder);
    });
    EXPECT_EQ(decoded->title(), "Size");
    EXPECT_EQ(decoded->width(), 375);
    EXPECT_EQ(decoded->density(), 3);
}

TEST_F(DocumentSizeViewControllerTest, startsWithTheSamePhoneWhateverAnotherOneWasSetTo) {
    controller.setDefaultScreenSize({1, 2});
    controller.setDefaultScreenScale(1);
    const auto fresh = makeObject<DocumentSizeViewController>();
    EXPECT_EQ(fresh->defaultScreenSize(), (CGSize{375, 812}));
    EXPECT_EQ(fresh->defaultScreenScale(), 3);
}

TEST_F(DocumentSizeViewControllerTest, loadsTheCatalogueWhenItWakes) {
    const auto fresh = makeObject<DocumentSizeViewController>();
    fresh->awakeFromNib();
    ASSERT_TRUE(fresh->screenTemplates().has_value());
    EXPECT_EQ(encodeScreenTemplates(*fresh->screenTemplates()),
              encodeScreenTemplates(*libraryScreenTemplates()));
}

TEST_F(DocumentSizeViewControllerTest, loadsTheCatalogueInPlaceOfAnotherOne) {
    controller.awakeFromNib();
    EXPECT_EQ(encodeScreenTemplates(*controller.screenTemplates()),
              encodeScreenTemplates(*libraryScreenTemplates()));
}

TEST_F(DocumentSizeViewControllerTest, fillsItsMenuWithTheCatalogueWhenItsInterfaceFileIsLoaded) {
    const auto menu = NSPopUpButton::create();
    NSApplication::shared().setNibLoader([&](NSViewController& owner) {
        owner.setValueForKey(menu, "screenTemplateMenu");
        return makeObject<NSView>();
    });
    const auto fresh = makeObject<DocumentSizeViewController>("DocumentSize");
    fresh->view();
    NSApplication::shared().setNibLoader({});

    std::size_t count = 1;
    const ScreenCatalogue catalogue = libraryScreenTemplates().value();
    for (const auto& screens : catalogue)
        count += 2 + screens->templates().size();
    EXPECT_EQ(menu->numberOfItems(), count);
    EXPECT_EQ(menu->menu()->itemAt(1)->title(), catalogue[0]->templates()[0]->name());

    fresh->setWidth(375);
    const auto screen = std::dynamic_pointer_cast<const Template>(
        menu->selectedItem()->representedObject().asObject());
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(screen->height(), 812);
    EXPECT_EQ(screen->density(), 3);
}

TEST_F(DocumentSizeViewControllerTest, keepsATemplateNameForWhoeverSetsOne) {
    controller.setTemplateName("mine");
    panel.menu->choose(mini);
    EXPECT_EQ(controller.templateName(), "mine");
}

// The menu.

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

TEST_F(DocumentSizeViewControllerTest, showsAHeaderTheTemplatesAndASeparatorForEachCategory) {
    EXPECT_THAT(
        linesOf(*panel.menu),
        ElementsAre("iPhone", ">mini didChooseTempalte: enabled",
                    ">large didChooseTempalte: enabled", "---", "iPad",
                    ">tablet didChooseTempalte: enabled", ">twin didChooseTempalte: enabled", "---",
                    "TV", "---", "Web", ">laptop didChooseTempalte: enabled", "---",
                    "Custom didChooseTempalte: enabled"));
}

TEST_F(DocumentSizeViewControllerTest, givesTemplatesToTheirItemsAndNothingToTheOthers) {
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

TEST_F(DocumentSizeViewControllerTest, showsCategoriesAndNamesAsOftenAsTheyAreThere) {
    const auto screens = ScreenTemplate::create(
        DeviceCategory::TV, {Template::create(1, 2, 1, "same"), Template::create(3, 4, 1, "same")});
    const SizePanel twice(ScreenCatalogue{screens, screens});
    std::vector<std::string> titles;
    for (const auto& item : twice.menu->menu()->items())
        titles.push_back(item->title());
    EXPECT_THAT(titles, ElementsAre("TV", "same", "same", "", "TV", "same", "same", "", "Custom"));
}

TEST_F(DocumentSizeViewControllerTest, showsOnlyTheCustomItemWithoutScreens) {
    const auto onlyCustom = ElementsAre("Custom didChooseTempalte: enabled");
    EXPECT_THAT(linesOf(*SizePanel(std::nullopt).menu), onlyCustom);
    EXPECT_THAT(linesOf(*SizePanel(ScreenCatalogue()).menu), onlyCustom);
}

TEST_F(DocumentSizeViewControllerTest, offersNoTemplatesWhereTheCatalogueIsMissingOrBroken) {
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

TEST_F(DocumentSizeViewControllerTest, addsToTheItemsThatAreInTheMenuAlready) {
    const auto menu = NSPopUpButton::create();
    menu->menu()->addItem("Pick a screen", std::nullopt);
    const auto fresh = makeObject<DocumentSizeViewController>();
    fresh->setScreenTemplateMenu(menu);
    fresh->view();
    EXPECT_THAT(linesOf(*menu), ElementsAre("Pick a screen", "Custom didChooseTempalte: enabled"));
    EXPECT_EQ(menu->titleOfSelectedItem(), "Pick a screen");
}

TEST_F(DocumentSizeViewControllerTest, selectsTheFirstItemAtTheStartWhichIsNoTemplate) {
    EXPECT_EQ(panel.menu->indexOfSelectedItem(), iPhoneHeader);
    EXPECT_EQ(SizePanel(std::nullopt).selected(), "Custom");
    EXPECT_THAT(panel.during([&] { controller.swap(nullptr); }),
                ElementsAre("will height", "will width", "did height", "did width",
                            "post - 812 × 375 at 3"));
}

TEST_F(DocumentSizeViewControllerTest, postsNothingWhileTheMenuIsBuilt) {
    SizePanel fresh(std::nullopt);
    EXPECT_THAT(fresh.log, IsEmpty());
}

TEST_F(DocumentSizeViewControllerTest, localizesTheCustomItem) {
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

TEST_F(DocumentSizeViewControllerDeathTest, stopsTheProcessWithoutAMenuToBuild) {
    const auto fresh = makeObject<DocumentSizeViewController>();
    fresh->setScreenTemplates(fewScreens());
    EXPECT_DEATH(fresh->view(), "DocumentSizeViewController.* has no screenTemplateMenu");
    EXPECT_DEATH(fresh->viewDidLoad(), "has no screenTemplateMenu");
}

TEST_F(DocumentSizeViewControllerDeathTest, stopsTheProcessWithoutAMenuToSync) {
    const char* const message = "has no screenTemplateMenu";
    controller.setScreenTemplateMenu(nullptr);
    EXPECT_DEATH(controller.setWidth(1), message);
    EXPECT_DEATH(controller.setHeight(1), message);
    EXPECT_DEATH(controller.setDensity(1), message);
    EXPECT_DEATH(controller.setPixelDensityIndex(1), message);
    EXPECT_DEATH(controller.setDefaultScreenSize({1, 1}), message);
    EXPECT_DEATH(controller.setDefaultScreenScale(1), message);
}

TEST_F(DocumentSizeViewControllerTest, needsNoMenuToSwapAndToTakeATemplate) {
    const auto item = panel.menu->menu()->itemAt(large);
    controller.setScreenTemplateMenu(nullptr);
    EXPECT_EQ(panel.during([&] { controller.swap(nullptr); }).back(), "post - 812 × 375 at 3");
    EXPECT_EQ(panel.during([&] { controller.didChooseTempalte(item.get()); }).back(),
              "post - 390 × 844 at 3");
}

TEST_F(DocumentSizeViewControllerTest, doesNotKeepItsMenuAlive) {
    const std::weak_ptr<NSPopUpButton> menu = panel.menu;
    panel.menu.reset();
    EXPECT_TRUE(menu.expired());
    EXPECT_EQ(controller.screenTemplateMenu(), nullptr);
    EXPECT_TRUE(controller.valueForKey("screenTemplateMenu").isNothing());
    controller.swap(nullptr);
    EXPECT_EQ(controller.width(), 812);
}

TEST_F(DocumentSizeViewControllerTest, isNotKeptAliveByItsMenu) {
    SizePanel other;
    std::weak_ptr<DocumentSizeViewController> reference = other.controller;
    other.controller.reset();
    EXPECT_TRUE(reference.expired());
    EXPECT_FALSE(other.menu->menu()->itemAt(mini)->isEnabled());
    EXPECT_FALSE(other.menu->choose(mini));
}

// Typed sizes.

TEST_F(DocumentSizeViewControllerTest, postsATypedSizeThatFitsOnce) {
    EXPECT_THAT(panel.during([&] { controller.setWidth(375); }),
                ElementsAre("will width", "post - 375 × 812 at 3", "did width"));
    EXPECT_EQ(panel.selected(), "mini");
    EXPECT_THAT(panel.during([&] { controller.setHeight(812); }),
                ElementsAre("will height", "post mini 375 × 812 at 3", "did height"))
        << "named after what was selected before";
}

TEST_F(DocumentSizeViewControllerTest, postsATypedSizeThatFitsNothingTwiceFirstWithTheOldName) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { controller.setWidth(812); }),
                ElementsAre("will width", "post mini 812 × 812 at 3", "post - 812 × 812 at 3",
                            "did width"));
    EXPECT_EQ(panel.selected(), "Custom");
    EXPECT_THAT(
        panel.during([&] { controller.setHeight(10); }),
        ElementsAre("will height", "post - 812 × 10 at 3", "post - 812 × 10 at 3", "did height"));
}

TEST_F(DocumentSizeViewControllerTest, postsBeforeItSyncs) {
    panel.menu->choose(mini);
    controller.setHeight(844);
    EXPECT_EQ(panel.selected(), "Custom");
    EXPECT_THAT(panel.during([&] { controller.setWidth(390); }),
                ElementsAre("will width", "post - 390 × 844 at 3", "did width"));
    EXPECT_EQ(panel.selected(), "large");
}

TEST_F(DocumentSizeViewControllerTest, hasTheSameTemplateInEitherOrientation) {
    panel.menu->choose(mini);
    controller.setWidth(812);
    controller.setHeight(375);
    EXPECT_EQ(panel.selected(), "mini");
    EXPECT_EQ(panel.state(), "mini 812 × 375 at 3");
}

TEST_F(DocumentSizeViewControllerTest, selectsTheFirstTemplateThatFits) {
    panel.menu->choose(twin);
    EXPECT_EQ(panel.selected(), "twin");
    EXPECT_EQ(panel.during([&] { controller.setWidth(375); }).at(1), "post twin 375 × 812 at 3");
    EXPECT_EQ(panel.selected(), "mini");
}

TEST_F(DocumentSizeViewControllerTest, comparesSizesAndDensitiesExactly) {
    controller.setWidth(std::nextafter(375, 376));
    EXPECT_EQ(panel.selected(), "Custom");
    controller.setWidth(375);
    EXPECT_EQ(panel.selected(), "mini");
    controller.setDensity(std::nextafter(3, 4));
    EXPECT_EQ(panel.selected(), "Custom");
    controller.setDensity(3);
    controller.setHeight(std::nextafter(812, 0));
    EXPECT_EQ(panel.selected(), "Custom");
}

TEST_F(DocumentSizeViewControllerTest, storesNegativeSidesAsZero) {
    controller.setWidth(-10);
    EXPECT_EQ(controller.width(), 0);
    controller.setHeight(-infinity);
    EXPECT_EQ(controller.height(), 0);
    EXPECT_EQ(panel.log.back(), "did height");
    EXPECT_EQ(panel.state(), "Custom 0 × 0 at 3");
}

TEST_F(DocumentSizeViewControllerTest, storesNegativeZeroAsZero) {
    controller.setWidth(-0.0);
    controller.setHeight(-0.0);
    EXPECT_FALSE(std::signbit(controller.width()));
    EXPECT_FALSE(std::signbit(controller.height()));
    controller.setHeight(-1e-300);
    EXPECT_FALSE(std::signbit(controller.height()));
}

TEST_F(DocumentSizeViewControllerTest, storesWhatIsNoNumberOrInfiniteAsItIs) {
    controller.setWidth(nan);
    EXPECT_TRUE(std::isnan(controller.width()));
    EXPECT_EQ(panel.selected(), "Custom");
    controller.setHeight(infinity);
    EXPECT_EQ(controller.height(), infinity);
    controller.setHeight(nan);
    EXPECT_TRUE(std::isnan(controller.height()));
}

TEST_F(DocumentSizeViewControllerTest, hasNoTemplateForASizeThatIsNoNumber) {
    SizePanel odd(ScreenCatalogue{ScreenTemplate::create(
        DeviceCategory::Web,
        {Template::create(nan, 812, 3, "odd"), Template::create(nan, nan, nan, "odder")})});
    odd.controller->setWidth(nan);
    EXPECT_EQ(odd.selected(), "Custom");
    odd.controller->setHeight(nan);
    odd.controller->setDensity(nan);
    EXPECT_EQ(odd.selected(), "Custom");
}

TEST_F(DocumentSizeViewControllerTest, roundsSizesInTheNotificationOnly) {
    const std::pair<CGFloat, const char*> table[] = {
        {100.5, "101"},   {100.49, "100"}, {2.5, "3"}, {0.5, "1"}, {0.49999999999999994, "0"},
        {1e300, "1e+300"}};
    for (const auto& [width, rounded] : table) {
        std::string expected = "post - ";
        EXPECT_EQ(panel.during([&, typed = width] { controller.setWidth(typed); }).at(1),
                  expected.append(rounded).append(" × 812 at 3"));
        EXPECT_EQ(controller.width(), width);
    }
    EXPECT_EQ(panel.during([&] {
                       controller.setDefaultScreenSize({-2.5, -0.25});
                   })
                  .at(5),
              "post - -3 × -0 at 3")
        << "halves away from zero below it too";
}

TEST_F(DocumentSizeViewControllerTest, postsEveryTypedValueAlsoTheSameAgain) {
    controller.setWidth(375);
    EXPECT_THAT(panel.during([&] { controller.setWidth(375); }),
                ElementsAre("will width", "post mini 375 × 812 at 3", "did width"));
}

TEST_F(DocumentSizeViewControllerTest, announcesAndPostsTheSameWhenSetByKey) {
    EXPECT_THAT(
        panel.during([&] { controller.setValueForKey(744, "width"); }),
        ElementsAre("will width", "post - 744 × 812 at 3", "post - 744 × 812 at 3", "did width"));
    EXPECT_THAT(panel.during([&] { controller.setValueForKey(1133.0, "height"); }),
                ElementsAre("will height", "post - 744 × 1133 at 3", "post - 744 × 1133 at 3",
                            "did height"));
    EXPECT_THAT(panel.during([&] { controller.setValueForKey(2, "density"); }),
                ElementsAre("will density", "post - 744 × 1133 at 2", "did density"));
    EXPECT_EQ(panel.state(), "tablet 744 × 1133 at 2");
    EXPECT_EQ(controller.valueForKey("width"), Value(744.0));
    EXPECT_EQ(controller.valueForKey("height"), Value(1133.0));
    EXPECT_EQ(controller.valueForKey("density"), Value(2.0));
}

TEST_F(DocumentSizeViewControllerTest, selectsTheLastItemOfTheMenuWhateverItIs) {
    panel.menu->menu()->addItem("Added by the host", std::nullopt);
    controller.setWidth(1);
    EXPECT_EQ(panel.selected(), "Added by the host");
    panel.menu->removeAllItems();
    EXPECT_THAT(
        panel.during([&] { controller.setWidth(2); }),
        ElementsAre("will width", "post - 2 × 812 at 3", "post - 2 × 812 at 3", "did width"));
    EXPECT_EQ(panel.menu->selectedItem(), nullptr);
}

TEST_F(DocumentSizeViewControllerTest, looksAtTheItemsOfTheMenuNotAtTheCatalogue) {
    controller.setScreenTemplates(std::nullopt);
    controller.setWidth(375);
    EXPECT_EQ(panel.selected(), "mini");
    panel.menu->menu()->removeItemAt(mini);
    controller.setWidth(375);
    EXPECT_EQ(panel.selected(), "twin");
}

TEST_F(DocumentSizeViewControllerTest, namesNoItemThatStandsForSomethingElse) {
    const auto item = NSMenuItem::create("Paper", "swap:");
    item->setTarget(panel.controller);
    item->setRepresentedObject("A4");
    panel.menu->menu()->addItem(item);
    panel.menu->selectItem(item);
    EXPECT_EQ(panel.during([&] { controller.setWidth(375); }).at(1), "post - 375 × 812 at 3");
}

TEST_F(DocumentSizeViewControllerTest, namesTheTemplateNotTheTitleOfTheItem) {
    panel.menu->menu()->itemAt(mini)->setTitle("Mini");
    panel.menu->choose(mini);
    EXPECT_EQ(panel.log.back(), "post mini 375 × 812 at 3");
}

// Densities.

TEST_F(DocumentSizeViewControllerTest, storesADensityAsItIs) {
    for (const CGFloat density : {-2.0, 0.0, 2.5, infinity}) {
        controller.setDensity(density);
        EXPECT_EQ(controller.density(), density);
        EXPECT_EQ(panel.selected(), "Custom");
    }
    EXPECT_EQ(panel.during([&] { controller.setDensity(2.5); }).at(1), "post - 375 × 812 at 2.5")
        << "nor is it rounded in the notification";
    controller.setDensity(-0.0);
    EXPECT_TRUE(std::signbit(controller.density()));
    controller.setDensity(nan);
    EXPECT_TRUE(std::isnan(controller.density()));
}

TEST_F(DocumentSizeViewControllerTest, postsADensityLikeASizeAndAnnouncesNoIndex) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { controller.setDensity(2); }),
                ElementsAre("will density", "post mini 375 × 812 at 2", "post - 375 × 812 at 2",
                            "did density"));
    EXPECT_THAT(panel.during([&] { controller.setDensity(3); }),
                ElementsAre("will density", "post - 375 × 812 at 3", "did density"));
    EXPECT_EQ(panel.selected(), "mini");
}

TEST_F(DocumentSizeViewControllerTest, readsTheIndexOfADensityOrZero) {
    const std::pair<CGFloat, std::int64_t> table[] = {{1, 0},   {2, 1}, {3, 2},  {4, 3},  {5, 0},
                                                      {2.5, 0}, {0, 0}, {-2, 0}, {nan, 0}};
    for (const auto& [density, index] : table) {
        controller.setDensity(density);
        EXPECT_EQ(controller.pixelDensityIndex(), index) << density;
    }
    EXPECT_EQ(controller.valueForKey("pixelDensityIndex"), Value(0));
}

TEST_F(DocumentSizeViewControllerTest, setsTheDensityOfAnIndex) {
    for (std::int64_t index = 0; index < 4; ++index) {
        controller.setPixelDensityIndex(index);
        EXPECT_EQ(controller.density(), static_cast<CGFloat>(index + 1));
        EXPECT_EQ(controller.pixelDensityIndex(), index);
    }
}

TEST_F(DocumentSizeViewControllerTest, goesThroughTheDensityForAnIndex) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { controller.setPixelDensityIndex(3); }),
                ElementsAre("will pixelDensityIndex", "will density", "post mini 375 × 812 at 4",
                            "post - 375 × 812 at 4", "did density", "did pixelDensityIndex"));
    EXPECT_THAT(panel.during([&] { controller.setValueForKey(2, "pixelDensityIndex"); }),
                ElementsAre("will pixelDensityIndex", "will density", "post - 375 × 812 at 3",
                            "did density", "did pixelDensityIndex"));
    EXPECT_EQ(panel.selected(), "mini");
}

TEST_F(DocumentSizeViewControllerTest, setsTheDensityToOneForAnIndexThatIsNone) {
    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t index :
         {std::int64_t{7}, std::int64_t{4}, std::int64_t{-1}, Limits::max(), Limits::min()}) {
        panel.menu->choose(mini);
        EXPECT_THAT(
            panel.during([&] { controller.setPixelDensityIndex(index); }),
            ElementsAre("will pixelDensityIndex", "will density", "post mini 375 × 812 at 1",
                        "post - 375 × 812 at 1", "did density", "did pixelDensityIndex"));
        EXPECT_EQ(panel.state(), "Custom 375 × 812 at 1");
    }
}

TEST_F(DocumentSizeViewControllerTest, selectsATemplateOfDensityOneForAnIndexThatIsNone) {
    controller.setWidth(900);
    controller.setHeight(1440);
    controller.setPixelDensityIndex(7);
    EXPECT_EQ(panel.selected(), "laptop");
}

// Choosing, swapping, resetting.

TEST_F(DocumentSizeViewControllerTest, takesAChosenTemplateAndPostsItOnce) {
    EXPECT_THAT(panel.during([&] { EXPECT_TRUE(panel.menu->choose(laptop)); }),
                ElementsAre("will width", "will height", "will density", "will pixelDensityIndex",
                            "did width", "did height", "did density", "did pixelDensityIndex",
                            "post laptop 1440 × 900 at 1"));
    EXPECT_EQ(panel.state(), "laptop 1440 × 900 at 1");
    EXPECT_EQ(controller.pixelDensityIndex(), 0);
}

TEST_F(DocumentSizeViewControllerTest, takesATemplateAsAWholeBetweenTheAnnouncements) {
    std::vector<std::string> states;
    KVOController observer;
    observer.observe(controller, {"width", "height", "density", "pixelDensityIndex"},
                     NSKeyValueObservingOptions::prior,
                     [&](const KVONotification&) { states.push_back(panel.state()); });
    panel.menu->choose(laptop);
    const std::string before = "laptop 375 × 812 at 3", after = "laptop 1440 × 900 at 1";
    EXPECT_THAT(states, ElementsAre(before, before, before, before, after, after, after, after));
}

TEST_F(DocumentSizeViewControllerTest, keepsTheChosenOneOfTwoTemplatesAlike) {
    panel.menu->choose(twin);
    EXPECT_EQ(panel.log.back(), "post twin 375 × 812 at 3");
    EXPECT_EQ(panel.selected(), "twin");
}

TEST_F(DocumentSizeViewControllerTest, takesTheSendersTemplateButNamesTheSelectedOne) {
    panel.menu->choose(mini);
    const auto sender = panel.menu->menu()->itemAt(laptop);
    EXPECT_EQ(panel.during([&] { controller.didChooseTempalte(sender.get()); }).back(),
              "post mini 1440 × 900 at 1");
    EXPECT_EQ(panel.selected(), "mini") << "the menu is not synced";
}

TEST_F(DocumentSizeViewControllerTest, takesATemplateAsItIs) {
    const auto item = NSMenuItem::create("odd", "didChooseTempalte:");
    item->setRepresentedObject(Template::create(-1.5, nan, 2.5, "odd"));
    controller.didChooseTempalte(item.get());
    EXPECT_EQ(controller.width(), -1.5);
    EXPECT_TRUE(std::isnan(controller.height()));
    EXPECT_EQ(controller.density(), 2.5);
}

TEST_F(DocumentSizeViewControllerTest, doesNothingForTheCustomItem) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { EXPECT_TRUE(panel.menu->choose(custom)); }), IsEmpty());
    EXPECT_EQ(panel.state(), "Custom 375 × 812 at 3");
}

TEST_F(DocumentSizeViewControllerTest, doesNothingForSendersWithoutATemplate) {
    const auto other = NSMenuItem::create("other", "didChooseTempalte:");
    other->setRepresentedObject(panel.menu);
    const auto header = panel.menu->menu()->itemAt(iPhoneHeader);
    EXPECT_THAT(panel.during([&] {
        controller.didChooseTempalte(nullptr);
        controller.didChooseTempalte(&controller);
        controller.didChooseTempalte(other.get());
        controller.didChooseTempalte(header.get());
    }),
                IsEmpty());
    EXPECT_FALSE(panel.menu->choose(iPhoneHeader));
}

TEST_F(DocumentSizeViewControllerTest, swapsHeightThenWidthAndPostsOnceWithoutSyncing) {
    panel.menu->choose(twin);
    EXPECT_THAT(panel.during([&] { controller.swap(nullptr); }),
                ElementsAre("will height", "will width", "did height", "did width",
                            "post twin 812 × 375 at 3"));
    EXPECT_EQ(panel.selected(), "twin") << "syncing would have selected mini";
    controller.swap(nullptr);
    EXPECT_EQ(panel.state(), "twin 375 × 812 at 3");
}

TEST_F(DocumentSizeViewControllerTest, performsItsActionsByName) {
    const auto& type = controller.objectClass();
    type.requiredAction("swap:")(controller, nullptr);
    EXPECT_EQ(controller.width(), 812);
    type.requiredAction("didChooseTempalte:")(controller, panel.menu->menu()->itemAt(large).get());
    EXPECT_EQ(controller.width(), 390);
}

TEST_F(DocumentSizeViewControllerTest, resetsTheSize) {
    panel.menu->choose(laptop);
    EXPECT_THAT(panel.during([&] {
        controller.setDefaultScreenSize({390, 844});
    }),
                ElementsAre("will defaultScreenSize", "will width", "will height", "did width",
                            "did height", "post laptop 390 × 844 at 1", "post - 390 × 844 at 1",
                            "did defaultScreenSize"));
    EXPECT_EQ(panel.state(), "Custom 390 × 844 at 1");
    EXPECT_EQ(controller.defaultScreenSize(), (CGSize{390, 844}));
    EXPECT_THAT(panel.during([&] { controller.setDefaultScreenScale(3); }),
                ElementsAre("will defaultScreenScale", "will density", "will pixelDensityIndex",
                            "did density", "did pixelDensityIndex", "post - 390 × 844 at 3",
                            "did defaultScreenScale"));
    EXPECT_EQ(panel.state(), "large 390 × 844 at 3");
    EXPECT_EQ(controller.defaultScreenScale(), 3);
}

TEST_F(DocumentSizeViewControllerTest, resetsTheSameWhenSetByKey) {
    EXPECT_THAT(panel.during([&] {
        controller.setValueForKey(CGSize{844, 390}, "defaultScreenSize");
    }),
                ElementsAre("will defaultScreenSize", "will width", "will height", "did width",
                            "did height", "post - 844 × 390 at 3", "did defaultScreenSize"));
    EXPECT_EQ(panel.selected(), "large");
    EXPECT_THAT(panel.during([&] { controller.setValueForKey(1, "defaultScreenScale"); }),
                ElementsAre("will defaultScreenScale", "will density", "will pixelDensityIndex",
                            "did density", "did pixelDensityIndex", "post large 844 × 390 at 1",
                            "post - 844 × 390 at 1", "did defaultScreenScale"));
    EXPECT_EQ(controller.valueForKey("defaultScreenSize"), Value(CGSize{844, 390}));
    EXPECT_EQ(controller.valueForKey("defaultScreenScale"), Value(1.0));
}

TEST_F(DocumentSizeViewControllerTest, resetsToNumbersAsTheyAre) {
    controller.setDefaultScreenSize({-1, -0.0});
    EXPECT_EQ(controller.width(), -1);
    EXPECT_TRUE(std::signbit(controller.height()));
    controller.setDefaultScreenScale(-3);
    EXPECT_EQ(controller.density(), -3);
}

TEST_F(DocumentSizeViewControllerTest, announcesANewMenuAndDoesNotSyncIt) {
    const auto menu = NSPopUpButton::create();
    EXPECT_THAT(panel.during([&] { controller.setValueForKey(menu, "screenTemplateMenu"); }),
                ElementsAre("will screenTemplateMenu", "did screenTemplateMenu"));
    EXPECT_EQ(controller.screenTemplateMenu(), menu);
    EXPECT_EQ(menu->numberOfItems(), 0u);
}

// Observers.

TEST_F(DocumentSizeViewControllerTest, tellsValuesBeforeAndAfter) {
    KVOController observer;
    std::vector<Value> values;
    observer.observe(controller, "width",
                     NSKeyValueObservingOptions::oldValue | NSKeyValueObservingOptions::newValue,
                     [&](const KVONotification& change) {
                         values.push_back(change.oldValue());
                         values.push_back(change.newValue());
                     });
    controller.setWidth(-4);
    controller.swap(nullptr);
    EXPECT_THAT(values, ElementsAre(Value(375.0), Value(0.0), Value(0.0), Value(812.0)));
}

TEST_F(DocumentSizeViewControllerTest, mayBeChangedByThoseWhoAreTold) {
    bool isFirst = true;
    const auto token = startObserving<DocumentSizeDidChangeNotification>(
        nullptr, [&](const DocumentSizeDidChangeNotification&) {
            if (std::exchange(isFirst, false))
                controller.setHeight(844);
        });
    controller.setWidth(390);
    EXPECT_EQ(panel.state(), "large 390 × 844 at 3");
}

TEST_F(DocumentSizeViewControllerTest, isIndependentOfAnotherOne) {
    SizePanel other;
    panel.menu->choose(large);
    other.log.clear();
    EXPECT_THAT(panel.during([&] { controller.setDensity(1); }),
                ElementsAre("will density", "post large 390 × 844 at 1", "post - 390 × 844 at 1",
                            "did density"));
    EXPECT_EQ(other.state(), "iPhone 375 × 812 at 3");
    EXPECT_THAT(other.log, ElementsAre("post large 390 × 844 at 1", "post - 390 × 844 at 1"))
        << "on the centre of the process, but announcing nothing itself";
}

}  // namespace
}  // namespace quorin
