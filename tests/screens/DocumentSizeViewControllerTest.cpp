#include "quorin/screens/DocumentSizeViewController.h"

#include <memory>
#include <optional>
#include <vector>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/ui/NSApplication.h"
#include "tests/TestSupport.h"
#include "tests/screens/SizePanel.h"

namespace quorin {
namespace {

using DocumentSizeViewControllerTest = test::SizePanelTest;

using test::fewScreens;
using test::SizePanel;
using ::testing::ElementsAre;

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
