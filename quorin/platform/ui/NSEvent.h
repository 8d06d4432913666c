#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/ui/NSEventModifierFlags.h"
#include "quorin/platform/ui/NSEventType.h"

namespace quorin {

/// Something the user did with the keyboard. Never changes.
class NSEvent : public NSObject {
public:
    using Class = NSClassOf<NSEvent, NSObject>;

    using EventType = NSEventType;
    using EventTypeMask = NSEventTypeMask;
    using ModifierFlags = NSEventModifierFlags;

    /// `timestamp` is in seconds of `CACurrentMediaTime`. `keyCode` is the number of the key as the
    /// platform counts the places on the keyboard, whatever is printed there: Z is 6, space 49,
    /// escape 53.
    struct Key {
        ModifierFlags modifierFlags{};
        double timestamp = 0;
        std::string characters;  ///< what was typed, empty for a modifier key
        std::uint16_t keyCode = 0;
        bool isARepeat = false;  ///< sent again because the key is held
    };

    static std::shared_ptr<NSEvent> create(EventType type, Key key);

    NSEvent(EventType type, Key key);

    EventType type() const { return _type; }
    /// The modifier keys that are down after the event.
    ModifierFlags modifierFlags() const { return key.modifierFlags; }
    double timestamp() const { return key.timestamp; }
    const std::string& characters() const { return key.characters; }
    std::uint16_t keyCode() const { return key.keyCode; }
    bool isARepeat() const { return key.isARepeat; }

    /// Hands back the event, another one in its place, or null, after which nobody hears of it.
    using Monitor = std::function<std::shared_ptr<NSEvent>(const std::shared_ptr<NSEvent>&)>;

    /// Has the handler called with every event of these types that the application is sent, before
    /// anybody else gets it and after the monitors that were added earlier. Lasts until the token
    /// is given to `removeMonitor`, whether the token is kept or not.
    static std::shared_ptr<Object> addLocalMonitorForEvents(EventTypeMask matching,
                                                            Monitor handler);
    /// May be called in a handler: what is removed is not called any more. A token that is no
    /// monitor, or was removed already, stops the process.
    static void removeMonitor(const std::shared_ptr<Object>& monitor);

private:
    EventType _type;
    Key key;
};

}  // namespace quorin
