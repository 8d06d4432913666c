#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "tests/TestSupport.h"
#include "tests/screens/SizePanel.h"

namespace quorin {
namespace {

using DocumentSizeTypingTest = test::SizePanelTest;

using test::SizePanel;
using ::testing::ElementsAre;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST_F(DocumentSizeTypingTest, postsATypedSizeThatFitsOnce) {
    EXPECT_THAT(panel.during([&] { controller.setWidth(375); }),
                ElementsAre("will width", "post - 375 × 812 at 3", "did width"));
    EXPECT_EQ(panel.selected(), "mini");
    EXPECT_THAT(panel.during([&] { controller.setHeight(812); }),
                ElementsAre("will height", "post mini 375 × 812 at 3", "did height"))
        << "named after what was selected before";
}

TEST_F(DocumentSizeTypingTest, postsATypedSizeThatFitsNothingTwiceFirstWithTheOldName) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { controller.setWidth(812); }),
                ElementsAre("will width", "post mini 812 × 812 at 3", "post - 812 × 812 at 3",
                            "did width"));
    EXPECT_EQ(panel.selected(), "Custom");
    EXPECT_THAT(
        panel.during([&] { controller.setHeight(10); }),
        ElementsAre("will height", "post - 812 × 10 at 3", "post - 812 × 10 at 3", "did height"));
}

TEST_F(DocumentSizeTypingTest, postsBeforeItSyncs) {
    panel.menu->choose(mini);
    controller.setHeight(844);
    EXPECT_EQ(panel.selected(), "Custom");
    EXPECT_THAT(panel.during([&] { controller.setWidth(390); }),
                ElementsAre("will width", "post - 390 × 844 at 3", "did width"));
    EXPECT_EQ(panel.selected(), "large");
}

TEST_F(DocumentSizeTypingTest, hasTheSameTemplateInEitherOrientation) {
    panel.menu->choose(mini);
    controller.setWidth(812);
    controller.setHeight(375);
    EXPECT_EQ(panel.selected(), "mini");
    EXPECT_EQ(panel.state(), "mini 812 × 375 at 3");
}

TEST_F(DocumentSizeTypingTest, selectsTheFirstTemplateThatFits) {
    panel.menu->choose(twin);
    EXPECT_EQ(panel.selected(), "twin");
    EXPECT_EQ(panel.during([&] { controller.setWidth(375); }).at(1), "post twin 375 × 812 at 3");
    EXPECT_EQ(panel.selected(), "mini");
}

TEST_F(DocumentSizeTypingTest, comparesSizesAndDensitiesExactly) {
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

TEST_F(DocumentSizeTypingTest, storesNegativeSidesAsZero) {
    controller.setWidth(-10);
    EXPECT_EQ(controller.width(), 0);
    controller.setHeight(-infinity);
    EXPECT_EQ(controller.height(), 0);
    EXPECT_EQ(panel.log.back(), "did height");
    EXPECT_EQ(panel.state(), "Custom 0 × 0 at 3");
}

TEST_F(DocumentSizeTypingTest, storesNegativeZeroAsZero) {
    controller.setWidth(-0.0);
    controller.setHeight(-0.0);
    EXPECT_FALSE(std::signbit(controller.width()));
    EXPECT_FALSE(std::signbit(controller.height()));
    controller.setHeight(-1e-300);
    EXPECT_FALSE(std::signbit(controller.height()));
}

TEST_F(DocumentSizeTypingTest, storesWhatIsNoNumberOrInfiniteAsItIs) {
    controller.setWidth(nan);
    EXPECT_TRUE(std::isnan(controller.width()));
    EXPECT_EQ(panel.selected(), "Custom");
    controller.setHeight(infinity);
    EXPECT_EQ(controller.height(), infinity);
    controller.setHeight(nan);
    EXPECT_TRUE(std::isnan(controller.height()));
}

TEST_F(DocumentSizeTypingTest, hasNoTemplateForASizeThatIsNoNumber) {
    SizePanel odd(ScreenCatalogue{ScreenTemplate::create(
        DeviceCategory::Web,
        {Template::create(nan, 812, 3, "odd"), Template::create(nan, nan, nan, "odder")})});
    odd.controller->setWidth(nan);
    EXPECT_EQ(odd.selected(), "Custom");
    odd.controller->setHeight(nan);
    odd.controller->setDensity(nan);
    EXPECT_EQ(odd.selected(), "Custom");
}

TEST_F(DocumentSizeTypingTest, roundsSizesInTheNotificationOnly) {
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

TEST_F(DocumentSizeTypingTest, postsEveryTypedValueAlsoTheSameAgain) {
    controller.setWidth(375);
    EXPECT_THAT(panel.during([&] { controller.setWidth(375); }),
                ElementsAre("will width", "post mini 375 × 812 at 3", "did width"));
}

TEST_F(DocumentSizeTypingTest, announcesAndPostsTheSameWhenSetByKey) {
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

TEST_F(DocumentSizeTypingTest, selectsTheLastItemOfTheMenuWhateverItIs) {
    panel.menu->menu()->addItem("Added by the host", std::nullopt);
    controller.setWidth(1);
    EXPECT_EQ(panel.selected(), "Added by the host");
    panel.menu->removeAllItems();
    EXPECT_THAT(
        panel.during([&] { controller.setWidth(2); }),
        ElementsAre("will width", "post - 2 × 812 at 3", "post - 2 × 812 at 3", "did width"));
    EXPECT_EQ(panel.menu->selectedItem(), nullptr);
}

TEST_F(DocumentSizeTypingTest, looksAtTheItemsOfTheMenuNotAtTheCatalogue) {
    controller.setScreenTemplates(std::nullopt);
    controller.setWidth(375);
    EXPECT_EQ(panel.selected(), "mini");
    panel.menu->menu()->removeItemAt(mini);
    controller.setWidth(375);
    EXPECT_EQ(panel.selected(), "twin");
}

TEST_F(DocumentSizeTypingTest, namesNoItemThatStandsForSomethingElse) {
    const auto item = NSMenuItem::create("Paper", "swap:");
    item->setTarget(panel.controller);
    item->setRepresentedObject("A4");
    panel.menu->menu()->addItem(item);
    panel.menu->selectItem(item);
    EXPECT_EQ(panel.during([&] { controller.setWidth(375); }).at(1), "post - 375 × 812 at 3");
}

TEST_F(DocumentSizeTypingTest, namesTheTemplateNotTheTitleOfTheItem) {
    panel.menu->menu()->itemAt(mini)->setTitle("Mini");
    panel.menu->choose(mini);
    EXPECT_EQ(panel.log.back(), "post mini 375 × 812 at 3");
}

TEST_F(DocumentSizeTypingTest, storesADensityAsItIs) {
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

TEST_F(DocumentSizeTypingTest, postsADensityLikeASizeAndAnnouncesNoIndex) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { controller.setDensity(2); }),
                ElementsAre("will density", "post mini 375 × 812 at 2", "post - 375 × 812 at 2",
                            "did density"));
    EXPECT_THAT(panel.during([&] { controller.setDensity(3); }),
                ElementsAre("will density", "post - 375 × 812 at 3", "did density"));
    EXPECT_EQ(panel.selected(), "mini");
}

TEST_F(DocumentSizeTypingTest, readsTheIndexOfADensityOrZero) {
    const std::pair<CGFloat, std::int64_t> table[] = {{1, 0},   {2, 1}, {3, 2},  {4, 3},  {5, 0},
                                                      {2.5, 0}, {0, 0}, {-2, 0}, {nan, 0}};
    for (const auto& [density, index] : table) {
        controller.setDensity(density);
        EXPECT_EQ(controller.pixelDensityIndex(), index) << density;
    }
    EXPECT_EQ(controller.valueForKey("pixelDensityIndex"), Value(0));
}

TEST_F(DocumentSizeTypingTest, setsTheDensityOfAnIndex) {
    for (std::int64_t index = 0; index < 4; ++index) {
        controller.setPixelDensityIndex(index);
        EXPECT_EQ(controller.density(), static_cast<CGFloat>(index + 1));
        EXPECT_EQ(controller.pixelDensityIndex(), index);
    }
}

TEST_F(DocumentSizeTypingTest, goesThroughTheDensityForAnIndex) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { controller.setPixelDensityIndex(3); }),
                ElementsAre("will pixelDensityIndex", "will density", "post mini 375 × 812 at 4",
                            "post - 375 × 812 at 4", "did density", "did pixelDensityIndex"));
    EXPECT_THAT(panel.during([&] { controller.setValueForKey(2, "pixelDensityIndex"); }),
                ElementsAre("will pixelDensityIndex", "will density", "post - 375 × 812 at 3",
                            "did density", "did pixelDensityIndex"));
    EXPECT_EQ(panel.selected(), "mini");
}

TEST_F(DocumentSizeTypingTest, setsTheDensityToOneForAnIndexThatIsNone) {
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

TEST_F(DocumentSizeTypingTest, selectsATemplateOfDensityOneForAnIndexThatIsNone) {
    controller.setWidth(900);
    controller.setHeight(1440);
    controller.setPixelDensityIndex(7);
    EXPECT_EQ(panel.selected(), "laptop");
}

}  // namespace
}  // namespace quorin
