#include "quorin/screens/DocumentSizeViewController.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "quorin/observation/TypedNotification.h"
#include "quorin/platform/foundation/LocalizedString.h"
#include "quorin/platform/values/FatalError.h"
#include "quorin/screens/DocumentSizeDidChangeNotification.h"

namespace quorin {
namespace {

/// Null for headers, separators and the item for sizes of the user's own.
std::shared_ptr<const Template> templateOf(const NSMenuItem& item) {
    return std::dynamic_pointer_cast<const Template>(item.representedObject().asObject());
}

/// Exactly, either way round.
bool hasSize(const Template& screen, CGFloat width, CGFloat height) {
    return (screen.width() == width && screen.height() == height) ||
           (screen.width() == height && screen.height() == width);
}

/// NaN stays, for a field to show what was typed; the zero is never a negative one.
CGFloat notNegative(CGFloat side) { return side > 0 || std::isnan(side) ? side : 0; }

}  // namespace

void DocumentSizeViewController::declareKeys(NSKeyList<DocumentSizeViewController>& keys) {
    using Self = DocumentSizeViewController;
    keys.reportingProperty("width", &Self::width, &Self::setWidth)
        .reportingProperty("height", &Self::height, &Self::setHeight)
        .reportingProperty("density", &Self::density, &Self::setDensity)
        .reportingProperty("pixelDensityIndex", &Self::pixelDensityIndex,
                           &Self::setPixelDensityIndex)
        .reportingProperty("defaultScreenSize", &Self::defaultScreenSize,
                           &Self::setDefaultScreenSize)
        .reportingProperty("defaultScreenScale", &Self::defaultScreenScale,
                           &Self::setDefaultScreenScale)
        .reportingProperty("screenTemplateMenu", &Self::screenTemplateMenu,
                           &Self::setScreenTemplateMenu);
}

void DocumentSizeViewController::declareActions(NSActionList<DocumentSizeViewController>& actions) {
    actions.action("didChooseTempalte:", &DocumentSizeViewController::didChooseTempalte)
        .action("swap:", &DocumentSizeViewController::swap);
}

void DocumentSizeViewController::awakeFromNib() {
    NSViewController::awakeFromNib();
    _screenTemplates = libraryScreenTemplates();
}

void DocumentSizeViewController::viewDidLoad() {
    NSViewController::viewDidLoad();
    const auto button = requiredMenu();
    NSMenu& menu = *button->menu();
    if (_screenTemplates)
        for (const auto& screens : *_screenTemplates)
            addScreens(*screens, menu);
    menu.addItem(choosableItem(localizedString("Custom", "Custom screen template label")));
}

void DocumentSizeViewController::addScreens(const ScreenTemplate& screens, NSMenu& menu) {
    menu.addItem(std::string(rawValue(screens.category())), std::nullopt);
    for (const auto& screen : screens.templates()) {
        const auto item = choosableItem(screen->name());
        item->setIndentationLevel(1);
        item->setRepresentedObject(screen);
        menu.addItem(item);
    }
    menu.addItem(NSMenuItem::separatorItem());
}

std::shared_ptr<NSMenuItem> DocumentSizeViewController::choosableItem(std::string title) {
    auto item = NSMenuItem::create(std::move(title), "didChooseTempalte:");
    item->setTarget(shared_from_this());
    return item;
}

std::shared_ptr<NSPopUpButton> DocumentSizeViewController::requiredMenu() const {
    auto menu = screenTemplateMenu();
    if (!menu)
        fatalError(description().append(" has no screenTemplateMenu"));
    return menu;
}

void DocumentSizeViewController::setWidth(CGFloat width) {
    changeValues({"width"}, [&] {
        _width = notNegative(width);
        postTypedChange();
    });
}

void DocumentSizeViewController::setHeight(CGFloat height) {
    changeValues({"height"}, [&] {
        _height = notNegative(height);
        postTypedChange();
    });
}

void DocumentSizeViewController::setDensity(CGFloat density) {
    changeValues({"density"}, [&] {
        _density = density;
        postTypedChange();
    });
}

std::int64_t DocumentSizeViewController::pixelDensityIndex() const {
    const auto found = std::find(densityChoices.begin(), densityChoices.end(), _density);
    return found == densityChoices.end() ? 0 : found - densityChoices.begin();
}

void DocumentSizeViewController::setPixelDensityIndex(std::int64_t index) {
    const bool isChoice = index >= 0 && std::cmp_less(index, densityChoices.size());
    changeValues({"pixelDensityIndex"}, [&] {
        setDensity(isChoice ? densityChoices[static_cast<std::size_t>(index)] : 1);
    });
}

void DocumentSizeViewController::setDefaultScreenSize(CGSize size) {
    changeValues({"defaultScreenSize"}, [&] {
        _defaultScreenSize = size;
        changeValues({"width", "height"}, [&] {
            _width = size.width;
            _height = size.height;
        });
        postTypedChange();
    });
}

void DocumentSizeViewController::setDefaultScreenScale(CGFloat scale) {
    changeValues({"defaultScreenScale"}, [&] {
        _defaultScreenScale = scale;
        changeValues({"density", "pixelDensityIndex"}, [&] { _density = scale; });
        postTypedChange();
    });
}

void DocumentSizeViewController::setScreenTemplateMenu(const std::shared_ptr<NSPopUpButton>& menu) {
    changeValues({"screenTemplateMenu"}, [&] { _screenTemplateMenu = menu; });
}

void DocumentSizeViewController::setScreenTemplates(std::optional<ScreenCatalogue> catalogue) {
    _screenTemplates = std::move(catalogue);
}

void DocumentSizeViewController::setTemplateName(std::optional<std::string> name) {
    _templateName = std::move(name);
}

void DocumentSizeViewController::didChooseTempalte(NSObject* sender) {
    const auto* const item = dynamic_cast<const NSMenuItem*>(sender);
    const auto screen = item ? templateOf(*item) : nullptr;
    if (!screen)
        return;
    changeValues({"width", "height", "density", "pixelDensityIndex"}, [&] {
        _width = screen->width();
        _height = screen->height();
        _density = screen->density();
    });
    postChange();
}

void DocumentSizeViewController::swap(NSObject*) {
    changeValues({"height", "width"}, [&] { std::swap(_width, _height); });
    postChange();
}

void DocumentSizeViewController::postChange() const {
    const auto menu = screenTemplateMenu();
    const auto item = menu ? menu->selectedItem() : nullptr;
    const auto screen = item ? templateOf(*item) : nullptr;
    const CGSize size{std::round(_width), std::round(_height)};
    post(DocumentSizeDidChangeNotification(screen ? std::optional(screen->name()) : std::nullopt,
                                           size, _density));
}

bool DocumentSizeViewController::syncMenu() const {
    const auto menu = requiredMenu();
    for (const auto& item : menu->menu()->items()) {
        const auto screen = templateOf(*item);
        if (!screen || screen->density() != _density || !hasSize(*screen, _width, _height))
            continue;
        menu->selectItem(item);
        return true;
    }
    return false;
}

void DocumentSizeViewController::postTypedChange() const {
    postChange();
    if (syncMenu())
        return;
    const auto menu = requiredMenu();
    menu->selectItem(menu->lastItem());
    postChange();
}

}  // namespace quorin
