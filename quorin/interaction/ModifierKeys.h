#pragma once

#include "quorin/platform/ui/NSEvent.h"

namespace quorin {

/// Which modifier keys are down now, by the application's current event: none before the first.
class ModifierKeys {
public:
    ModifierKeys() = delete;

    static bool isShiftKeyPressed();
    static bool isControlKeyPressed();
    static bool isOptionKeyPressed();
    static bool isCommandKeyPressed();

    /// Whether all of them are; no flags at all are pressed as soon as there is an event.
    static bool isKeyPressed(NSEventModifierFlags flags);
};

}  // namespace quorin
