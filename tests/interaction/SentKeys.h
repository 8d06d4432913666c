#pragma once

#include <cstdint>
#include <memory>

#include "quorin/platform/ui/NSApplication.h"

namespace quorin {

/// Has the application get keyboard events at the given second.
struct SentKeys {
    static constexpr std::uint16_t shiftKey = 56, spaceKey = 49, returnKey = 36;

    static std::shared_ptr<NSEvent> send(NSEventType type, NSEvent::Key key) {
        const auto event = NSEvent::create(type, std::move(key));
        NSApplication::shared().sendEvent(event);
        return event;
    }
    static std::shared_ptr<NSEvent> flags(double at, NSEventModifierFlags held) {
        return send(
            NSEventType::flagsChanged,
            {.modifierFlags = held, .timestamp = at, .characters = "", .keyCode = shiftKey});
    }
    static std::shared_ptr<NSEvent> down(double at, std::uint16_t keyCode) {
        return send(NSEventType::keyDown,
                    {.modifierFlags = {}, .timestamp = at, .characters = "", .keyCode = keyCode});
    }
    static std::shared_ptr<NSEvent> up(double at, std::uint16_t keyCode) {
        return send(NSEventType::keyUp,
                    {.modifierFlags = {}, .timestamp = at, .characters = "", .keyCode = keyCode});
    }
};

}  // namespace quorin
