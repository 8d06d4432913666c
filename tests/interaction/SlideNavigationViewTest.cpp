#include "quorin/interaction/SlideNavigationView.h"

#include "quorin/platform/drawing/CGContext.h"
#include "quorin/platform/drawing/CGImage.h"
#include "tests/TestSupport.h"
#include "tests/support/ToldKeys.h"

namespace quorin {
namespace {

constexpr CGColor red{1, 0, 0, 1};

CGImage::Pixel middleOf(NSView& view) {
    const auto context = CGContext::createBitmap(4, 4);
    view.display(*context);
    return context->makeImage()->pixelAt(2, 2);
}

std::shared_ptr<SlideNavigationView> navigationView() {
    return makeObject<SlideNavigationView>(CGRectMake(0, 0, 4, 4));
}

TEST(SlideNavigationView, isClearAtFirst) {
    EXPECT_EQ(middleOf(*navigationView()), (CGImage::Pixel{0, 0, 0, 0}));
}

TEST(SlideNavigationView, fillsItselfWithItsBackground) {
    const auto view = navigationView();
    view->setBackgroundColor(red);
    EXPECT_EQ(middleOf(*view), (CGImage::Pixel{255, 0, 0, 255}));
}

TEST(SlideNavigationView, needsDisplayWhenTheBackgroundChanges) {
    const auto view = navigationView();
    middleOf(*view);
    ASSERT_FALSE(view->needsDisplay());
    view->setBackgroundColor(NSColor::white(0.5));
    EXPECT_TRUE(view->needsDisplay());
}

TEST(SlideNavigationView, letsInterfaceFilesSetTheBackground) {
    const auto view = navigationView();
    view->setValueForKey(red, "backgroundColor");
    EXPECT_EQ(view->backgroundColor(), NSColor(red));
    EXPECT_EQ(view->valueForKey("backgroundColor"), Value(red));
    view->setValueForKey(nullptr, "backgroundColor");
    EXPECT_EQ(middleOf(*view), (CGImage::Pixel{0, 0, 0, 0}));
}

TEST(SlideNavigationView, tellsOnceOfEachChange) {
    const auto view = navigationView();
    const auto observer = makeObject<test::Recorder>();
    view->addObserver(*observer, "backgroundColor", NSKeyValueObservingOptions::newValue);
    view->setBackgroundColor(red);
    view->setValueForKey(red, "backgroundColor");
    EXPECT_THAT(test::toldKeys(*observer),
                testing::ElementsAre("backgroundColor", "backgroundColor"));
    EXPECT_EQ(observer->lastNew(), Value(red));
}

TEST(SlideNavigationView, isClearForAPatternWhichIsNoColor) {
    const auto view = navigationView();
    view->setBackgroundColor(NSColor::pattern());
    EXPECT_EQ(middleOf(*view), (CGImage::Pixel{0, 0, 0, 0}));
    EXPECT_TRUE(view->valueForKey("backgroundColor").isNothing());
}

}  // namespace
}  // namespace quorin
