/// Random sequences of everything that can be done to the panel, beside a plain model of it.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/screens/SizePanel.h"

namespace quorin {
namespace {

using test::described;
using test::fewScreens;
using test::SizePanel;

/// What the panel is to do, in as few words as possible.
struct Model {
    struct Item {
        std::string title;
        std::shared_ptr<Template> screen;
    };

    Model() {
        for (const auto& screens : fewScreens()) {
            items.push_back({std::string(rawValue(screens->category())), nullptr});
            for (const auto& screen : screens->templates())
                items.push_back({screen->name(), screen});
            items.push_back({"", nullptr});
        }
        items.push_back({"Custom", nullptr});
    }

    void post() {
        const auto& screen = items[selected].screen;
        posts.push_back("post " + described(screen ? std::optional(screen->name()) : std::nullopt,
                                            {std::round(width), std::round(height)}, density));
    }

    void typed() {
        post();
        for (std::size_t i = 0; i < items.size(); ++i) {
            const auto& screen = items[i].screen;
            if (!screen || screen->density() != density)
                continue;
            const CGFloat w = screen->width(), h = screen->height();
            if ((w == width && h == height) || (w == height && h == width)) {
                selected = i;
                return;
            }
        }
        selected = items.size() - 1;
        post();
    }

    void choose(std::size_t index) {
        const bool isChoice = items[index].screen || index + 1 == items.size();
        if (!isChoice)
            return;
        selected = index;
        if (const auto& screen = items[index].screen) {
            width = screen->width();
            height = screen->height();
            density = screen->density();
            post();
        }
    }

    std::string state() const { return described(items[selected].title, {width, height}, density); }

    std::vector<Item> items;
    std::size_t selected = 0;
    CGFloat width = 375, height = 812, density = 3;
    std::vector<std::string> posts;
};

CGFloat side(CGFloat typed) {
    if (std::isnan(typed))
        return typed;
    return typed <= 0 ? 0.0 : typed;
}

CGFloat anyNumber() {
    // Mostly sides and densities of templates, so that sizes often fit one.
    return *rc::gen::element(375.0, 812.0, 390.0, 844.0, 744.0, 1133.0, 1440.0, 900.0, 375.0, 812.0,
                             1.0, 2.0, 3.0, 3.0, 100.5, 99.49, -10.0, -0.0, 0.0, -2.5, 1e300,
                             std::numeric_limits<CGFloat>::infinity(),
                             std::numeric_limits<CGFloat>::quiet_NaN());
}

/// Does one random thing to both.
void step(SizePanel& panel, Model& model) {
    DocumentSizeViewController& controller = *panel.controller;
    const CGFloat a = anyNumber(), b = anyNumber();
    const bool isByKey = *rc::gen::arbitrary<bool>();
    const auto set = [&](const char* key, CGFloat value,
                         void (DocumentSizeViewController::*setter)(CGFloat)) {
        if (isByKey)
            controller.setValueForKey(value, key);
        else
            (controller.*setter)(value);
    };
    switch (*rc::gen::inRange(0, 8)) {
        case 0:
            set("width", a, &DocumentSizeViewController::setWidth);
            model.width = side(a);
            return model.typed();
        case 1:
            set("height", a, &DocumentSizeViewController::setHeight);
            model.height = side(a);
            return model.typed();
        case 2:
            set("density", a, &DocumentSizeViewController::setDensity);
            model.density = a;
            return model.typed();
        case 3: {
            const auto index = *rc::gen::inRange<std::int64_t>(-2, 7);
            controller.setPixelDensityIndex(index);
            model.density = index >= 0 && index < 4 ? static_cast<CGFloat>(index) + 1 : 1;
            return model.typed();
        }
        case 4: {
            const auto index = *rc::gen::inRange<std::size_t>(0, model.items.size());
            panel.menu->choose(index);
            return model.choose(index);
        }
        case 5:
            controller.swap(nullptr);
            std::swap(model.width, model.height);
            return model.post();
        case 6:
            controller.setDefaultScreenSize({a, b});
            model.width = a;
            model.height = b;
            return model.typed();
        default:
            set("defaultScreenScale", a, &DocumentSizeViewController::setDefaultScreenScale);
            model.density = a;
            return model.typed();
    }
}

RC_GTEST_PROP(DocumentSizeModel, postsSelectsAndHoldsWhatThePlainModelDoes, ()) {
    SizePanel panel;
    Model model;
    for (int steps = *rc::gen::inRange(1, 40); steps > 0; --steps) {
        model.posts.clear();
        const auto log = panel.during([&] { step(panel, model); });
        std::vector<std::string> posts;
        for (const std::string& line : log)
            if (line.starts_with("post "))
                posts.push_back(line);
        RC_ASSERT(posts == model.posts);
        RC_ASSERT(panel.state() == model.state());
        RC_ASSERT(panel.menu->indexOfSelectedItem() == model.selected);
    }
}

/// Of every announcement and its end, nested ones included.
bool isInPairs(const std::vector<std::string>& log) {
    std::vector<std::string> open;
    for (const std::string& line : log) {
        if (line.starts_with("will "))
            open.push_back(line.substr(5));
        if (!line.starts_with("did "))
            continue;
        const auto found = std::find(open.begin(), open.end(), line.substr(4));
        if (found == open.end())
            return false;
        open.erase(found);
    }
    return open.empty();
}

RC_GTEST_PROP(DocumentSizeModel, announcesInPairs, ()) {
    SizePanel panel;
    Model model;
    for (int steps = *rc::gen::inRange(1, 20); steps > 0; --steps)
        RC_ASSERT(isInPairs(panel.during([&] { step(panel, model); })));
}

}  // namespace
}  // namespace quorin
