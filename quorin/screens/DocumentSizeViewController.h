#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "quorin/platform/ui/NSPopUpButton.h"
#include "quorin/platform/ui/NSViewController.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/screens/ScreenCatalogue.h"

namespace quorin {

/// The panel in which the user sizes a document: after a screen of the catalogue, chosen from a
/// pop-up menu, or by a width, a height and a density of their own. Sizes are in points.
///
/// An interface file binds the keys "width", "height", "density", "pixelDensityIndex",
/// "defaultScreenSize", "defaultScreenScale" and the outlet "screenTemplateMenu", and sends the
/// actions "didChooseTempalte:" and "swap:". A setter announces the change of its own key, whoever
/// calls it, and those of other keys where it says so.
///
/// Every change is posted as a `DocumentSizeDidChangeNotification` that names the template selected
/// in the menu. What was typed is posted first and then looked up in the menu. When no template
/// fits, the last item is selected and the change is posted once more, now without a name. Looking
/// up, like building the menu, takes the outlet: a missing one stops the process.
class DocumentSizeViewController : public NSViewController {
public:
    using Class = NSClassOf<DocumentSizeViewController, NSViewController>;
    static void declareKeys(NSKeyList<DocumentSizeViewController>& keys);
    static void declareActions(NSActionList<DocumentSizeViewController>& actions);

    using NSViewController::NSViewController;

    /// What a document starts with.
    static constexpr CGSize initialScreenSize{375, 812};
    static constexpr CGFloat initialScreenScale = 3;

    /// The densities that a document may take.
    static constexpr std::array<CGFloat, 4> densityChoices{1, 2, 3, 4};

    /// Loads the library's catalogue.
    void awakeFromNib() override;
    /// Fills the menu: for each category a header, its templates and a separator, and at the end
    /// an item for sizes of the user's own.
    void viewDidLoad() override;

    CGFloat width() const { return _width; }
    CGFloat height() const { return _height; }
    /// What is negative becomes 0.
    void setWidth(CGFloat width);
    void setHeight(CGFloat height);

    CGFloat density() const { return _density; }
    void setDensity(CGFloat density);

    /// Where the density stands among the choices, 0 when it does not.
    std::int64_t pixelDensityIndex() const;
    /// Sets the density to a choice; to 1 for an index that is none.
    void setPixelDensityIndex(std::int64_t index);

    CGSize defaultScreenSize() const { return _defaultScreenSize; }
    /// Resets the document to the size, and announces "width" and "height".
    void setDefaultScreenSize(CGSize size);
    CGFloat defaultScreenScale() const { return _defaultScreenScale; }
    /// Resets the document to the density, and announces "density" and "pixelDensityIndex".
    void setDefaultScreenScale(CGFloat scale);

    /// Not kept alive.
    std::shared_ptr<NSPopUpButton> screenTemplateMenu() const { return _screenTemplateMenu.lock(); }
    void setScreenTemplateMenu(const std::shared_ptr<NSPopUpButton>& menu);

    /// Nothing while there is no catalogue, which differs from an empty one.
    const std::optional<ScreenCatalogue>& screenTemplates() const { return _screenTemplates; }
    /// The menu is not built again.
    void setScreenTemplates(std::optional<ScreenCatalogue> catalogue);

    const std::optional<std::string>& templateName() const { return _templateName; }
    void setTemplateName(std::optional<std::string> name);

    /// Takes size and density from the template that the menu item `sender` stands for, and
    /// announces "width", "height", "density" and "pixelDensityIndex". Does nothing for an item
    /// without a template.
    void didChooseTempalte(NSObject* sender);
    /// Turns the document on its side, and announces "height" and "width". The same template stays
    /// selected.
    void swap(NSObject* sender);

private:
    std::shared_ptr<NSPopUpButton> requiredMenu() const;
    void addScreens(const ScreenTemplate& screens, NSMenu& menu);
    std::shared_ptr<NSMenuItem> choosableItem(std::string title);

    void postChange() const;
    bool syncMenu() const;
    void postTypedChange() const;

    CGSize _defaultScreenSize = initialScreenSize;
    CGFloat _defaultScreenScale = initialScreenScale;
    std::weak_ptr<NSPopUpButton> _screenTemplateMenu;
    CGFloat _width = initialScreenSize.width;
    CGFloat _height = initialScreenSize.height;
    CGFloat _density = initialScreenScale;
    std::optional<std::string> _templateName;
    std::optional<ScreenCatalogue> _screenTemplates;
};

}  // namespace quorin
