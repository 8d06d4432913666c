#include "quorin/platform/ui/NSWindow.h"

#include <algorithm>
#include <utility>

#include "quorin/platform/ui/NSViewController.h"
#include "quorin/platform/ui/appearance/ViewAppearance.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

std::string quoted(const NSWindow& window) {
    return std::string("the window \"").append(window.title()).append("\"");
}

}  // namespace

void NSWindow::declareKeys(NSKeyList<NSWindow>& keys) {
    keys.reportingProperty("title", &NSWindow::title, &NSWindow::setTitle)
        .reportingProperty("contentSize", &NSWindow::contentSize, &NSWindow::setContentSize)
        .reportingProperty(
            "contentView", [](const NSWindow& window) { return window._contentView; },
            &NSWindow::setContentView)
        .reportingProperty("contentViewController", &NSWindow::contentViewController,
                           &NSWindow::setContentViewController)
        .reportingProperty("documentEdited", &NSWindow::isDocumentEdited,
                           &NSWindow::setIsDocumentEdited)
        .property("visible", &NSWindow::isVisible)
        .property("sheets", &NSWindow::sheets);
}

std::shared_ptr<NSWindow> NSWindow::create(CGSize contentSize) {
    return makeObject<NSWindow>(contentSize);
}

NSWindow::NSWindow(CGSize contentSize) : _contentSize(contentSize) {}

NSWindow::~NSWindow() {
    if (!_isVisible)
        return;
    const ViewAppearance appearance(*_contentView);
    appearance.willDisappear();
    appearance.didDisappear();
}

std::shared_ptr<NSWindow> NSWindow::self() {
    return std::static_pointer_cast<NSWindow>(shared_from_this());
}

void NSWindow::setTitle(std::string title) {
    changeValues({"title"}, [&] { _title = std::move(title); });
}

void NSWindow::setIsDocumentEdited(bool isEdited) {
    changeValues({"documentEdited"}, [&] { _isDocumentEdited = isEdited; });
}

void NSWindow::setContentSize(CGSize size) {
    changeValues({"contentSize"}, [&] { _contentSize = size; });
    contentView()->setFrame({CGPoint::zero, size});
    contentView()->layoutSubtreeIfNeeded();
}

const std::shared_ptr<NSView>& NSWindow::contentView() {
    if (!_contentView)
        setContentView(makeObject<NSView>());
    return _contentView;
}

void NSWindow::setContentView(const std::shared_ptr<NSView>& view) {
    if (!view)
        fatalError(quoted(*this).append(" without a content view"));
    if (view == _contentView)
        return;
    if (const auto other = view->contentOf.lock(); other)
        fatalError(view->description().append(" is the content of another window"));
    view->removeFromSuperview();

    const auto replaced = _contentView;
    if (replaced && _isVisible)
        ViewAppearance(*replaced).willDisappear();
    if (_isVisible)
        ViewAppearance(*view).willAppear();
    changeValues({"contentView"}, [&] {
        if (replaced)
            replaced->contentOf.reset();
        _contentView = view;
        view->contentOf = self();
    });
    view->setFrame({CGPoint::zero, _contentSize});
    view->layoutSubtreeIfNeeded();
    if (replaced && _isVisible)
        ViewAppearance(*replaced).didDisappear();
    if (_isVisible)
        ViewAppearance(*view).didAppear();
}

void NSWindow::setContentViewController(const std::shared_ptr<NSViewController>& controller) {
    const auto replaced = _contentViewController;  // hears that its view goes
    changeValues({"contentViewController"}, [&] { _contentViewController = controller; });
    if (!controller)
        return;
    const auto view = controller->view();
    const CGSize size = view->frame().size;
    setContentView(view);
    if (size != CGSize::zero)
        setContentSize(size);
}

void NSWindow::orderFront() { setIsVisible(true); }

void NSWindow::orderOut() { setIsVisible(false); }

void NSWindow::setIsVisible(bool isVisible) {
    if (_isVisible == isVisible)
        return;
    const auto kept = self();
    const ViewAppearance appearance(*contentView());
    if (isVisible)
        appearance.willAppear();
    else
        appearance.willDisappear();
    changeValues({"visible"}, [&] { _isVisible = isVisible; });
    if (isVisible) {
        _contentView->layoutSubtreeIfNeeded();
        appearance.didAppear();
    } else {
        appearance.didDisappear();
    }
}

void NSWindow::close() {
    const auto kept = self();
    while (!_sheets.empty())
        endSheet(_sheets.back().window);  // from the last, so that none is shown in between
    if (const auto above = sheetParent())
        above->endSheet(kept);
    orderOut();
}

void NSWindow::beginSheet(const std::shared_ptr<NSWindow>& sheet, SheetCompletion completion) {
    if (sheet.get() == this)
        fatalError(quoted(*this).append(" cannot be a sheet of itself"));
    if (sheet->sheetParent())
        fatalError(quoted(*sheet).append(" is a sheet already"));
    changeValues({"sheets"}, [&] {
        _sheets.push_back({sheet, std::move(completion)});
        sheet->_sheetParent = self();
    });
    if (attachedSheet() == sheet)
        sheet->orderFront();
}

void NSWindow::endSheet(const std::shared_ptr<NSWindow>& sheet, NSModalResponse response) {
    const auto found = std::find_if(_sheets.begin(), _sheets.end(),
                                    [&](const Sheet& each) { return each.window == sheet; });
    if (found == _sheets.end())
        fatalError(quoted(*sheet).append(" is no sheet of ").append(quoted(*this)));
    const auto kept = self();
    const Sheet ended = *found;
    changeValues({"sheets"}, [&] {
        std::erase_if(_sheets, [&](const Sheet& each) { return each.window == ended.window; });
        ended.window->_sheetParent.reset();
    });
    ended.window->orderOut();
    if (ended.completion)
        ended.completion(response);
    if (const auto next = attachedSheet())
        next->orderFront();
}

std::vector<std::shared_ptr<NSWindow>> NSWindow::sheets() const {
    std::vector<std::shared_ptr<NSWindow>> windows;
    for (const Sheet& each : _sheets)
        windows.push_back(each.window);
    return windows;
}

std::shared_ptr<NSWindow> NSWindow::attachedSheet() const {
    return _sheets.empty() ? nullptr : _sheets.front().window;
}

}  // namespace quorin
