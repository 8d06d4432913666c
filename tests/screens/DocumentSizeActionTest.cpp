#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "quorin/platform/ui/NSApplication.h"
#include "tests/TestSupport.h"
#include "tests/screens/SizePanel.h"

namespace quorin {
namespace {

using DocumentSizeActionTest = test::SizePanelTest;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST_F(DocumentSizeActionTest, takesAChosenTemplateAndPostsItOnce) {
    EXPECT_THAT(panel.during([&] { EXPECT_TRUE(panel.menu->choose(laptop)); }),
                ElementsAre("will width", "will height", "will density", "will pixelDensityIndex",
                            "did width", "did height", "did density", "did pixelDensityIndex",
                            "post laptop 1440 × 900 at 1"));
    EXPECT_EQ(panel.state(), "laptop 1440 × 900 at 1");
    EXPECT_EQ(controller.pixelDensityIndex(), 0);
}

TEST_F(DocumentSizeActionTest, takesATemplateAsAWholeBetweenTheAnnouncements) {
    std::vector<std::string> states;
    KVOController observer;
    observer.observe(controller, {"width", "height", "density", "pixelDensityIndex"},
                     NSKeyValueObservingOptions::prior,
                     [&](const KVONotification&) { states.push_back(panel.state()); });
    panel.menu->choose(laptop);
    const std::string before = "laptop 375 × 812 at 3", after = "laptop 1440 × 900 at 1";
    EXPECT_THAT(states, ElementsAre(before, before, before, before, after, after, after, after));
}

TEST_F(DocumentSizeActionTest, keepsTheChosenOneOfTwoTemplatesAlike) {
    panel.menu->choose(twin);
    EXPECT_EQ(panel.log.back(), "post twin 375 × 812 at 3");
    EXPECT_EQ(panel.selected(), "twin");
}

TEST_F(DocumentSizeActionTest, takesTheSendersTemplateButNamesTheSelectedOne) {
    panel.menu->choose(mini);
    const auto sender = panel.menu->menu()->itemAt(laptop);
    EXPECT_EQ(panel.during([&] { controller.didChooseTempalte(sender.get()); }).back(),
              "post mini 1440 × 900 at 1");
    EXPECT_EQ(panel.selected(), "mini") << "the menu is not synced";
}

TEST_F(DocumentSizeActionTest, takesATemplateAsItIs) {
    const auto item = NSMenuItem::create("odd", "didChooseTempalte:");
    item->setRepresentedObject(Template::create(-1.5, nan, 2.5, "odd"));
    controller.didChooseTempalte(item.get());
    EXPECT_EQ(controller.width(), -1.5);
    EXPECT_TRUE(std::isnan(controller.height()));
    EXPECT_EQ(controller.density(), 2.5);
}

TEST_F(DocumentSizeActionTest, doesNothingForTheCustomItem) {
    panel.menu->choose(mini);
    EXPECT_THAT(panel.during([&] { EXPECT_TRUE(panel.menu->choose(custom)); }), IsEmpty());
    EXPECT_EQ(panel.state(), "Custom 375 × 812 at 3");
}

TEST_F(DocumentSizeActionTest, doesNothingForSendersWithoutATemplate) {
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

TEST_F(DocumentSizeActionTest, swapsHeightThenWidthAndPostsOnceWithoutSyncing) {
    panel.menu->choose(twin);
    EXPECT_THAT(panel.during([&] { controller.swap(nullptr); }),
                ElementsAre("will height", "will width", "did height", "did width",
                            "post twin 812 × 375 at 3"));
    EXPECT_EQ(panel.selected(), "twin") << "syncing would have selected mini";
    controller.swap(nullptr);
    EXPECT_EQ(panel.state(), "twin 375 × 812 at 3");
}

TEST_F(DocumentSizeActionTest, performsItsActionsByName) {
    const auto& type = controller.objectClass();
    type.requiredAction("swap:")(controller, nullptr);
    EXPECT_EQ(controller.width(), 812);
    type.requiredAction("didChooseTempalte:")(controller, panel.menu->menu()->itemAt(large).get());
    EXPECT_EQ(controller.width(), 390);
}

TEST_F(DocumentSizeActionTest, resetsTheSize) {
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

TEST_F(DocumentSizeActionTest, resetsTheSameWhenSetByKey) {
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

TEST_F(DocumentSizeActionTest, resetsToNumbersAsTheyAre) {
    controller.setDefaultScreenSize({-1, -0.0});
    EXPECT_EQ(controller.width(), -1);
    EXPECT_TRUE(std::signbit(controller.height()));
    controller.setDefaultScreenScale(-3);
    EXPECT_EQ(controller.density(), -3);
}

TEST_F(DocumentSizeActionTest, announcesANewMenuAndDoesNotSyncIt) {
    const auto menu = NSPopUpButton::create();
    EXPECT_THAT(panel.during([&] { controller.setValueForKey(menu, "screenTemplateMenu"); }),
                ElementsAre("will screenTemplateMenu", "did screenTemplateMenu"));
    EXPECT_EQ(controller.screenTemplateMenu(), menu);
    EXPECT_EQ(menu->numberOfItems(), 0u);
}

}  // namespace
}  // namespace quorin
