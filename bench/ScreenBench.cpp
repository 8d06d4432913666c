/// Typing the size of a document beside a menu of many screens.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "bench/PeerReport.h"
#include "quorin/observation/TypedNotification.h"
#include "quorin/screens/DocumentSizeDidChangeNotification.h"
#include "quorin/screens/DocumentSizeViewController.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr int screenCount = 60;
constexpr std::size_t changes = 1'000;

/// Five categories of twelve screens of different sizes, the last of which is 259 × 459 at 2.
ScreenCatalogue manyScreens() {
    ScreenCatalogue catalogue;
    int number = 0;
    for (const DeviceCategory category : allDeviceCategories) {
        ScreenTemplate::Templates templates;
        for (; templates.size() < screenCount / allDeviceCategories.size(); ++number)
            templates.push_back(Template::create(200 + number, 400 + number, 2,
                                                 "Screen number " + std::to_string(number)));
        catalogue.push_back(ScreenTemplate::create(category, std::move(templates)));
    }
    return catalogue;
}

double posted = 0;

template <typename Change>
void measure(const std::string& work, double expectedPosts, Change change) {
    const auto all = [=] {
        for (std::size_t i = 0; i < changes; ++i)
            change(i);
    };
    posted = 0;
    all();
    if (posted != expectedPosts) {
        std::fprintf(stderr, "%s: %g posts\n", work.c_str(), posted);
        std::exit(EXIT_FAILURE);
    }
    compare(work, ours, changes, all);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const auto menu = NSPopUpButton::create();
    const auto controller = makeObject<DocumentSizeViewController>();
    controller->setScreenTemplateMenu(menu);
    controller->setScreenTemplates(manyScreens());
    controller->view();
    controller->setDensity(2);
    controller->setHeight(459);
    const auto token = startObserving<DocumentSizeDidChangeNotification>(
        nullptr, [](const DocumentSizeDidChangeNotification&) { ++posted; });

    const double once = changes, twice = 2 * changes;
    measure("type a width that fits the last of 60 screens", once,
            [=](std::size_t) { controller->setWidth(259); });
    measure("type a width that fits none of 60 screens", twice,
            [=](std::size_t i) { controller->setWidth(static_cast<CGFloat>(1'000 + i)); });
    measure("type widths that fit and do not fit by turns", once + changes / 2,
            [=](std::size_t i) { controller->setWidth(i % 2 == 0 ? 259 : 1'000); });
    measure("the same by key", once + changes / 2,
            [=](std::size_t i) { controller->setValueForKey(i % 2 == 0 ? 259 : 1'000, "width"); });
    return runComparison(argumentCount, arguments);
}
