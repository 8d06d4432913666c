#pragma once

#include <cstdint>
#include <string>

#include "quorin/platform/ui/NSEvent.h"

namespace quorin {

/// The keys that tools react to.
enum class NSEventKeyCode : std::uint8_t { z, space, escape, undefined };

/// `undefined` for every key but those.
NSEventKeyCode supportedKeyCode(const NSEvent& event);

/// The names of those flags that tools know, in a fixed order: "Shift, Option, Control, Command,
/// Space". Empty when there is none.
std::string description(NSEventModifierFlags flags);

}  // namespace quorin
