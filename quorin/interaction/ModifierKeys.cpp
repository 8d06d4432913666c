#include "quorin/interaction/ModifierKeys.h"

#include "quorin/platform/ui/NSApplication.h"

namespace quorin {

bool ModifierKeys::isShiftKeyPressed() { return isKeyPressed(NSEventModifierFlags::shift); }

bool ModifierKeys::isControlKeyPressed() { return isKeyPressed(NSEventModifierFlags::control); }

bool ModifierKeys::isOptionKeyPressed() { return isKeyPressed(NSEventModifierFlags::option); }

bool ModifierKeys::isCommandKeyPressed() { return isKeyPressed(NSEventModifierFlags::command); }

bool ModifierKeys::isKeyPressed(NSEventModifierFlags flags) {
    const auto& event = NSApplication::shared().currentEvent();
    return event && contains(event->modifierFlags(), flags);
}

}  // namespace quorin
