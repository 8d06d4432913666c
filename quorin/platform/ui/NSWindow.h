#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/ui/NSView.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class NSViewController;

/// How a sheet was ended; programs use other numbers for answers of their own.
enum class NSModalResponse : int { abort = -1001, stop = -1000, cancel = 0, ok = 1 };

/// Shows a view, and sheets in front of it, which it holds until they end. Whoever shows windows
/// observes their keys: "title", "visible", "contentView", "contentSize", "sheets" and
/// "documentEdited".
class NSWindow : public NSObject {
public:
    using Class = NSClassOf<NSWindow, NSObject>;
    static void declareKeys(NSKeyList<NSWindow>& keys);

    static std::shared_ptr<NSWindow> create(CGSize contentSize = CGSize::zero);

    explicit NSWindow(CGSize contentSize = CGSize::zero);
    ~NSWindow() override;

    const std::string& title() const { return _title; }
    void setTitle(std::string title);

    /// Whether what the window shows has changes that are not saved, which its frame marks.
    bool isDocumentEdited() const { return _isDocumentEdited; }
    void setIsDocumentEdited(bool isEdited);

    /// In points.
    CGSize contentSize() const { return _contentSize; }
    /// Gives the content view this size, and what it holds its place.
    void setContentSize(CGSize size);

    /// An empty view unless one was set.
    const std::shared_ptr<NSView>& contentView();
    /// Takes the view out of where it was and gives it the window's size.
    void setContentView(const std::shared_ptr<NSView>& view);
    const std::shared_ptr<NSViewController>& contentViewController() const {
        return _contentViewController;
    }
    /// Makes the controller's view the content view. The window takes the size of the view, if that
    /// has one. Null leaves the content view as it is.
    void setContentViewController(const std::shared_ptr<NSViewController>& controller);

    bool isVisible() const { return _isVisible; }
    void orderFront();
    void orderOut();
    /// Takes the window off the screen, its own sheets ended first, itself ended if it is a sheet.
    void close();

    using SheetCompletion = std::function<void(NSModalResponse)>;

    /// Shows `sheet` in front of this window; while there is another one, as soon as that has
    /// ended. A window that is a sheet already, or itself, stops the process.
    void beginSheet(const std::shared_ptr<NSWindow>& sheet, SheetCompletion completion = {});
    /// Takes the sheet off the screen, then calls its completion. A window that is no sheet of this
    /// one stops the process.
    void endSheet(const std::shared_ptr<NSWindow>& sheet,
                  NSModalResponse response = NSModalResponse::stop);
    /// The window of which this is a sheet; null for none.
    std::shared_ptr<NSWindow> sheetParent() const { return _sheetParent.lock(); }
    /// The sheet that is shown and those that wait for it to end.
    std::vector<std::shared_ptr<NSWindow>> sheets() const;
    std::shared_ptr<NSWindow> attachedSheet() const;

private:
    struct Sheet {
        std::shared_ptr<NSWindow> window;
        SheetCompletion completion;
    };

    std::shared_ptr<NSWindow> self();
    void setIsVisible(bool isVisible);

    std::string _title;
    CGSize _contentSize;
    std::shared_ptr<NSView> _contentView;
    std::shared_ptr<NSViewController> _contentViewController;
    bool _isVisible = false, _isDocumentEdited = false;
    std::weak_ptr<NSWindow> _sheetParent;
    std::vector<Sheet> _sheets;
};

}  // namespace quorin
