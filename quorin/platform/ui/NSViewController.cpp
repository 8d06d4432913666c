#include "quorin/platform/ui/NSViewController.h"

#include <algorithm>
#include <utility>

#include "quorin/platform/ui/NSApplication.h"
#include "quorin/platform/ui/NSStoryboard.h"
#include "quorin/platform/ui/NSWindow.h"
#include "quorin/platform/values/FatalError.h"
#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

namespace {

std::optional<std::string> decodedText(Decoder& coder, std::string_view key) {
    return coder.contains(key) ? std::optional(coder.decodeText(key)) : std::nullopt;
}

[[noreturn]] void refuseChild(std::size_t index, std::size_t count) {
    fatalError(std::string("child controller ")
                   .append(std::to_string(index))
                   .append(" of ")
                   .append(std::to_string(count)));
}

}  // namespace

void NSViewController::declareKeys(NSKeyList<NSViewController>& keys) {
    keys.reportingProperty("title", &NSViewController::title, &NSViewController::setTitle)
        .reportingProperty("representedObject", &NSViewController::representedObject,
                           &NSViewController::setRepresentedObject)
        .property("children", &NSViewController::children);
}

void NSViewController::declareActions(NSActionList<NSViewController>& actions) {
    actions.action("dismissController:", &NSViewController::dismissController);
}

NSViewController::NSViewController(std::optional<std::string> nibName, std::optional<Bundle> bundle)
    : _nibName(std::move(nibName)), _nibBundle(std::move(bundle)) {}

NSViewController::NSViewController(Decoder& coder)
    : _nibName(decodedText(coder, "nibName")), _title(decodedText(coder, "title")) {}

NSViewController::~NSViewController() = default;

std::shared_ptr<NSViewController> NSViewController::self() {
    return std::static_pointer_cast<NSViewController>(shared_from_this());
}

void NSViewController::awake() {
    if (!std::exchange(isAwake, true))
        awakeFromNib();
}

const std::shared_ptr<NSView>& NSViewController::view() {
    if (didViewLoad || isViewLoading)
        return _view;
    isViewLoading = true;
    if (!_view)
        loadView();
    if (!_view)
        fatalError(description().append(" loaded no view"));
    isViewLoading = false;
    didViewLoad = true;
    viewDidLoad();
    return _view;
}

void NSViewController::setView(const std::shared_ptr<NSView>& view) {
    if (view && !view->viewController.expired() && view->viewController.lock().get() != this)
        fatalError(view->description().append(" is the view of another controller"));
    if (_view)
        _view->viewController.reset();
    _view = view;
    if (_view)
        _view->viewController = self();
    else
        didViewLoad = false;
}

void NSViewController::loadView() {
    const auto& loader = NSApplication::shared().nibLoader();
    if (!_nibName || !loader) {
        setView(makeObject<NSView>());
        return;
    }
    setView(loader(*this));
    awake();
}

void NSViewController::setTitle(std::optional<std::string> title) {
    changeValues({"title"}, [&] { _title = std::move(title); });
}

void NSViewController::setRepresentedObject(Value object) {
    changeValues({"representedObject"}, [&] { _representedObject = std::move(object); });
}

void NSViewController::addChild(const std::shared_ptr<NSViewController>& child) {
    insertChild(child, child->parent().get() == this ? _children.size() - 1 : _children.size());
}

void NSViewController::insertChild(const std::shared_ptr<NSViewController>& child, std::size_t at) {
    for (auto above = self(); above; above = above->parent())
        if (above == child)
            fatalError(child->description().append(" cannot be a child of itself"));
    child->removeFromParent();
    if (at > _children.size())
        refuseChild(at, _children.size());
    changeValues({"children"}, [&] {
        _children.insert(_children.begin() + static_cast<std::ptrdiff_t>(at), child);
        child->_parent = self();
    });
}

void NSViewController::removeChildAt(std::size_t index) {
    if (index >= _children.size())
        refuseChild(index, _children.size());
    const auto removed = _children[index];
    changeValues({"children"}, [&] {
        removed->_parent.reset();
        _children.erase(_children.begin() + static_cast<std::ptrdiff_t>(index));
    });
}

void NSViewController::removeFromParent() {
    const auto above = parent();
    if (!above)
        return;
    const auto found = std::find_if(above->_children.begin(), above->_children.end(),
                                    [&](const auto& each) { return each.get() == this; });
    above->removeChildAt(static_cast<std::size_t>(found - above->_children.begin()));
}

void NSViewController::performSegue(const std::string& withIdentifier, NSObject* sender) {
    if (!_storyboard)
        fatalError(description()
                       .append(" is in no storyboard that could have the segue \"")
                       .append(withIdentifier)
                       .append("\""));
    const auto segue = _storyboard->instantiateSegue(withIdentifier, self());
    prepare(*segue, sender);
    segue->perform();
}

void NSViewController::prepare(NSStoryboardSegue&, NSObject*) {}

void NSViewController::presentAsSheet(const std::shared_ptr<NSViewController>& controller) {
    const auto window = view()->window();
    if (!window)
        fatalError(description().append(" presents a sheet without a window"));
    const auto sheet = NSWindow::create();
    sheet->setContentViewController(controller);
    controller->_presentingViewController = self();
    window->beginSheet(sheet, [weak = std::weak_ptr(controller)](NSModalResponse) {
        if (const auto presented = weak.lock())
            presented->_presentingViewController.reset();
    });
}

void NSViewController::dismissViewController(NSViewController& controller) {
    if (controller.presentingViewController().get() != this)
        fatalError(controller.description().append(" is not presented by ").append(description()));
    const auto sheet = controller.view()->window();
    if (const auto window = sheet ? sheet->sheetParent() : nullptr)
        window->endSheet(sheet);
    controller._presentingViewController.reset();  // the sheet may have gone with its window
}

void NSViewController::dismissController(NSObject*) {
    if (const auto presenting = presentingViewController())
        presenting->dismissViewController(*this);
}

}  // namespace quorin
