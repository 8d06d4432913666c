#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "quorin/observation/KVOController.h"
#include "quorin/observation/TypedNotification.h"
#include "quorin/screens/DocumentSizeDidChangeNotification.h"
#include "quorin/screens/DocumentSizeViewController.h"
#include "tests/TestSupport.h"

namespace quorin::test {

/// Four categories of screens; "twin" is "mini" once more.
inline ScreenCatalogue fewScreens() {
    return {
        ScreenTemplate::create(DeviceCategory::iPhone, {Template::create(375, 812, 3, "mini"),
                                                        Template::create(390, 844, 3, "large")}),
        ScreenTemplate::create(DeviceCategory::iPad, {Template::create(744, 1133, 2, "tablet"),
                                                      Template::create(375, 812, 3, "twin")}),
        ScreenTemplate::create(DeviceCategory::TV, {}),
        ScreenTemplate::create(DeviceCategory::Web, {Template::create(1440, 900, 1, "laptop")})};
}

/// "mini 375 × 812 at 3.0", without a name "- 375 × 812 at 3.0", each number as it prints.
inline std::string described(const std::optional<std::string>& name, CGSize size, CGFloat scale) {
    std::string text = name.value_or("-");
    text.append(" ").append(Value(size.width).asNSNumber()->stringValue());
    text.append(" × ").append(Value(size.height).asNSNumber()->stringValue());
    return text.append(" at ").append(Value(scale).asNSNumber()->stringValue());
}

/// A controller at work: its view is loaded, and `log` has what it announces and posts from then
/// on, in one sequence: "will width", "post mini 375 × 812 at 3", "did width".
class SizePanel {
public:
    explicit SizePanel(std::optional<ScreenCatalogue> catalogue = fewScreens()) {
        controller->setScreenTemplateMenu(menu);
        controller->setScreenTemplates(std::move(catalogue));
        controller->view();
        observer.observe(*controller,
                         {"width", "height", "density", "pixelDensityIndex", "defaultScreenSize",
                          "defaultScreenScale", "screenTemplateMenu"},
                         NSKeyValueObservingOptions::prior, [this](const KVONotification& change) {
                             log.push_back((change.isPrior() ? "will " : "did ") + change.keyPath);
                         });
    }

    /// What `work` announces and posts.
    template <typename Work>
    std::vector<std::string> during(Work work) {
        log.clear();
        work();
        return log;
    }

    std::string selected() const { return menu->titleOfSelectedItem(); }
    /// The state of the document as `described` has it.
    std::string state() const {
        return described(selected(), {controller->width(), controller->height()},
                         controller->density());
    }

    std::shared_ptr<NSPopUpButton> menu = NSPopUpButton::create();
    std::shared_ptr<DocumentSizeViewController> controller =
        makeObject<DocumentSizeViewController>();
    std::vector<std::string> log;

private:
    KVOController observer;
    std::shared_ptr<NotificationToken> token = startObserving<DocumentSizeDidChangeNotification>(
        nullptr, [this](const DocumentSizeDidChangeNotification& note) {
            log.push_back("post " + described(note.name, note.size, note.scale));
        });
};

struct SizePanelTest : testing::Test {
    /// Of the items in the menu.
    enum Place { iPhoneHeader, mini, large, firstSeparator, twin = 6, laptop = 11, custom = 13 };

    SizePanel panel{};
    DocumentSizeViewController& controller = *panel.controller;
};

}  // namespace quorin::test
