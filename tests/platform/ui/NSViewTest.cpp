#include "quorin/platform/ui/NSView.h"

#include "quorin/platform/drawing/CGContext.h"
#include "quorin/platform/ui/NSWindow.h"
#include "tests/TestSupport.h"
#include "tests/support/ToldKeys.h"

namespace quorin {
namespace {

std::shared_ptr<NSView> viewOf(const CGRect& frame = CGRect::zero) {
    return makeObject<NSView>(frame);
}

class ColoredView : public NSView {
public:
    using Class = NSClassOf<ColoredView, NSView>;

    ColoredView(const CGRect& frame, const CGColor& given) : NSView(frame), color(given) {}

    void draw(CGContext& context, const CGRect& dirtyRect) override {
        context.setFillColor(color);
        context.fillRect(CGRectInset(dirtyRect, -100, -100));  // beyond the view
    }

    CGColor color;
};

CGImage::Pixel pixel(const CGContext& context, std::size_t x, std::size_t y) {
    return context.makeImage()->pixelAt(x, y);
}

TEST(NSView, hasBoundsOfItsOwnCoordinates) {
    const auto view = viewOf(CGRectMake(10, 20, 30, 40));
    EXPECT_EQ(view->frame(), CGRectMake(10, 20, 30, 40));
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 30, 40));
    view->setFrame(CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 3, 4));
}

TEST(NSView, holdsSubviewsFromBackToFront) {
    const auto view = viewOf();
    const auto back = viewOf();
    const auto middle = viewOf();
    const auto front = viewOf();
    view->addSubview(back);
    view->addSubview(front);
    view->insertSubview(middle, 1);
    EXPECT_THAT(view->subviews(), testing::ElementsAre(back, middle, front));
    EXPECT_EQ(middle->superview(), view);
    view->addSubview(back);
    EXPECT_THAT(view->subviews(), testing::ElementsAre(middle, front, back));
    middle->removeFromSuperview();
    EXPECT_THAT(view->subviews(), testing::ElementsAre(front, back));
    EXPECT_EQ(middle->superview(), nullptr);
    middle->removeFromSuperview();
}

TEST(NSView, isInOneSuperviewOnly) {
    const auto one = viewOf();
    const auto two = viewOf();
    const auto view = viewOf();
    one->addSubview(view);
    two->addSubview(view);
    EXPECT_TRUE(one->subviews().empty());
    EXPECT_EQ(view->superview(), two);
}

TEST(NSView, isInsideOfItselfAndOfAllAbove) {
    const auto outer = viewOf();
    const auto inner = viewOf();
    const auto innermost = viewOf();
    outer->addSubview(inner);
    inner->addSubview(innermost);
    EXPECT_TRUE(innermost->isDescendantOf(*outer));
    EXPECT_TRUE(outer->isDescendantOf(*outer));
    EXPECT_FALSE(outer->isDescendantOf(*inner));
}

TEST(NSView, holdsItsSubviewsWhichDoNotHoldIt) {
    std::weak_ptr<NSView> inner;
    auto outer = viewOf();
    {
        const auto view = viewOf();
        outer->addSubview(view);
        inner = view;
    }
    const auto kept = inner.lock();
    ASSERT_NE(kept, nullptr);
    outer.reset();
    EXPECT_EQ(kept->superview(), nullptr);
}

TEST(NSView, isInTheWindowOfItsOutermostSuperview) {
    const auto window = NSWindow::create();
    const auto outer = viewOf();
    const auto inner = viewOf();
    outer->addSubview(inner);
    EXPECT_EQ(inner->window(), nullptr);
    window->contentView()->addSubview(outer);
    EXPECT_EQ(inner->window(), window);
    EXPECT_EQ(window->contentView()->window(), window);
    outer->removeFromSuperview();
    EXPECT_EQ(inner->window(), nullptr);
}

TEST(NSView, tellsWhoeverShowsItOfItsChanges) {
    const auto view = viewOf(CGRectMake(0, 0, 1, 1));
    const auto subview = viewOf();
    const auto observer = makeObject<test::Recorder>();
    for (const char* key : {"frame", "subviews", "alphaValue", "needsDisplay"})
        view->addObserver(*observer, key, NSKeyValueObservingOptions::none);
    view->setFrame(CGRectMake(5, 5, 1, 1));
    view->setFrame(CGRectMake(5, 5, 1, 1));
    view->addSubview(subview);
    subview->removeFromSuperview();
    view->setAlphaValue(0.5);
    view->setNeedsDisplay(true);
    EXPECT_THAT(test::toldKeys(*observer), testing::ElementsAre("frame", "subviews", "subviews",
                                                                "alphaValue", "needsDisplay"));
    EXPECT_EQ(observer->told[1].change[NSKeyValueChangeKey::kind],
              Value(static_cast<std::int64_t>(NSKeyValueChange::insertion)));
    EXPECT_EQ(observer->told[2].change[NSKeyValueChangeKey::kind],
              Value(static_cast<std::int64_t>(NSKeyValueChange::removal)));
}

TEST(NSView, isNoMoreThanOpaque) {
    const auto view = viewOf();
    EXPECT_EQ(view->alphaValue(), 1);
    view->setAlphaValue(-1);
    EXPECT_EQ(view->alphaValue(), 0);
    view->setAlphaValue(2);
    EXPECT_EQ(view->alphaValue(), 1);
}

TEST(NSView, needsDisplayAtFirstAndWheneverItsSizeChanges) {
    const auto view = viewOf(CGRectMake(0, 0, 4, 4));
    EXPECT_TRUE(view->needsDisplay());
    view->display(*CGContext::createBitmap(4, 4));
    EXPECT_FALSE(view->needsDisplay());
    view->setFrame(CGRectMake(1, 1, 4, 4));
    EXPECT_FALSE(view->needsDisplay());
    view->setFrame(CGRectMake(1, 1, 5, 4));
    EXPECT_TRUE(view->needsDisplay());
}

TEST(NSView, drawsItselfThenItsSubviewsEachWithinItsFrame) {
    const auto red = makeObject<ColoredView>(CGRectMake(0, 0, 8, 8), CGColor{.red = 1});
    const auto green = makeObject<ColoredView>(CGRectMake(2, 3, 4, 4), CGColor{.green = 1});
    const auto blue = makeObject<ColoredView>(CGRectMake(1, 1, 9, 1), CGColor{.blue = 1});
    red->addSubview(green);
    green->addSubview(blue);
    const auto context = CGContext::createBitmap(10, 10);
    red->display(*context);
    EXPECT_EQ(pixel(*context, 0, 0), (CGImage::Pixel{255, 0, 0, 255}));
    EXPECT_EQ(pixel(*context, 7, 7), (CGImage::Pixel{255, 0, 0, 255}));
    EXPECT_EQ(pixel(*context, 8, 8), (CGImage::Pixel{0, 0, 0, 0}));
    EXPECT_EQ(pixel(*context, 2, 3), (CGImage::Pixel{0, 255, 0, 255}));
    EXPECT_EQ(pixel(*context, 3, 4), (CGImage::Pixel{0, 0, 255, 255}));
    EXPECT_EQ(pixel(*context, 5, 4), (CGImage::Pixel{0, 0, 255, 255}));
    EXPECT_EQ(pixel(*context, 6, 4), (CGImage::Pixel{255, 0, 0, 255}));
    EXPECT_FALSE(blue->needsDisplay());
}

TEST(NSView, isDrawnThroughWithAllThatItHolds) {
    const auto view = viewOf(CGRectMake(0, 0, 4, 4));
    for (int i = 0; i < 2; ++i)  // together no more opaque than one
        view->addSubview(makeObject<ColoredView>(CGRectMake(0, 0, 4, 4), CGColor{.red = 1}));
    view->setAlphaValue(0.2);
    const auto context = CGContext::createBitmap(4, 4);
    view->display(*context);
    EXPECT_EQ(pixel(*context, 1, 1), (CGImage::Pixel{51, 0, 0, 51}));
}

class Noting : public NSView {
public:
    using Class = NSClassOf<Noting, NSView>;
    Noting(std::vector<const NSView*>& given) : order(given) {}
    void layout() override { order.push_back(this); }
    std::vector<const NSView*>& order;
};

TEST(NSView, laysOutFromTheOutsideIn) {
    std::vector<const NSView*> order;
    const auto outer = makeObject<Noting>(order);
    const auto inner = makeObject<Noting>(order);
    outer->addSubview(inner);
    outer->layoutSubtreeIfNeeded();
    EXPECT_THAT(order, testing::ElementsAre(outer.get(), inner.get()));
    outer->layoutSubtreeIfNeeded();
    EXPECT_EQ(order.size(), 2u);
    inner->setFrame(CGRectMake(0, 0, 5, 5));
    EXPECT_TRUE(inner->needsLayout());
    outer->layoutSubtreeIfNeeded();
    EXPECT_THAT(order, testing::ElementsAre(outer.get(), inner.get(), inner.get()));
}

TEST(NSViewDeathTest, cannotBePutIntoItself) {
    const auto outer = viewOf();
    const auto inner = viewOf();
    outer->addSubview(inner);
    EXPECT_DEATH(outer->addSubview(outer), "<NSView: 0x[0-9a-f]+> cannot be put into itself");
    EXPECT_DEATH(inner->addSubview(outer), "cannot be put into itself");
    EXPECT_DEATH(outer->insertSubview(viewOf(), 2), "subview 2 of 1");
    const auto window = NSWindow::create();
    EXPECT_DEATH(outer->addSubview(window->contentView()), "is the content of a window");
}

}  // namespace
}  // namespace quorin
