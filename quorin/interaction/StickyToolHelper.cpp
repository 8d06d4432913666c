#include "quorin/interaction/StickyToolHelper.h"

#include "quorin/interaction/ModifierKeys.h"
#include "quorin/interaction/NSEventExtension.h"

namespace quorin {
namespace {

constexpr double tapInterval = 0.3;  // seconds, and shorter than that

bool isSpaceTap(const NSEvent& down, const NSEvent& up) {
    return down.type() == NSEventType::keyDown && up.type() == NSEventType::keyUp &&
           supportedKeyCode(down) == NSEventKeyCode::space &&
           supportedKeyCode(up) == NSEventKeyCode::space;
}

}  // namespace

std::shared_ptr<StickyToolHelper> StickyToolHelper::create(std::string name) {
    const std::shared_ptr<StickyToolHelper> helper(new StickyToolHelper(std::move(name)));
    const auto keyboard =
        NSEventTypeMask::keyDown | NSEventTypeMask::keyUp | NSEventTypeMask::flagsChanged;
    helper->_monitor = NSEvent::addLocalMonitorForEvents(
        keyboard, [weak = std::weak_ptr(helper)](const std::shared_ptr<NSEvent>& event) {
            if (const auto alive = weak.lock())
                alive->see(event);
            return event;
        });
    return helper;
}

StickyToolHelper::~StickyToolHelper() { NSEvent::removeMonitor(_monitor); }

void StickyToolHelper::setDelegate(const std::shared_ptr<StickyToolHelperDelegate>& delegate) {
    _delegate = delegate;
}

bool StickyToolHelper::isEnabled(NSEventModifierFlags flag) const {
    return contains(_stickyModifierFlags, flag) != ModifierKeys::isKeyPressed(flag);
}

bool StickyToolHelper::isSpaceModifierEnabled() const {
    return contains(_stickyModifierFlags, NSEventModifierFlags::space);
}

void StickyToolHelper::reset() {
    _previousEvent = nullptr;
    _stickyModifierFlags = {};
}

void StickyToolHelper::see(const std::shared_ptr<NSEvent>& event) {
    if (event->type() == NSEventType::flagsChanged)
        modifiersChanged(event);
    else
        keyWentDownOrUp(event);
}

void StickyToolHelper::modifiersChanged(const std::shared_ptr<NSEvent>& event) {
    if (isSoonAfterPrevious(*event)) {
        const auto changed = event->modifierFlags() ^ _previousEvent->modifierFlags();
        const auto released = changed & ~event->modifierFlags();
        _stickyModifierFlags ^= released;
    }
    tellDelegate();
    _previousEvent = event;
}

void StickyToolHelper::keyWentDownOrUp(const std::shared_ptr<NSEvent>& event) {
    if (isSoonAfterPrevious(*event) && isSpaceTap(*_previousEvent, *event)) {
        _stickyModifierFlags ^= NSEventModifierFlags::space;
        tellDelegate();
    }
    // A held key repeats. The first time counts, or letting go after long would be a tap.
    const bool repeats = _previousEvent && _previousEvent->type() == NSEventType::keyDown &&
                         event->type() == NSEventType::keyDown;
    if (!repeats)
        _previousEvent = event;
}

bool StickyToolHelper::isSoonAfterPrevious(const NSEvent& event) const {
    return _previousEvent && event.timestamp() - _previousEvent->timestamp() < tapInterval;
}

void StickyToolHelper::tellDelegate() {
    if (const auto told = delegate())
        told->stickyToolHelperDidChange(*this, _stickyModifierFlags);
}

}  // namespace quorin
