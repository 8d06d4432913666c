#include "quorin/interaction/NSEventExtension.h"

namespace quorin {

NSEventKeyCode supportedKeyCode(const NSEvent& event) {
    switch (event.keyCode()) {
        case 6:
            return NSEventKeyCode::z;
        case 49:
            return NSEventKeyCode::space;
        case 53:
            return NSEventKeyCode::escape;
        default:
            return NSEventKeyCode::undefined;
    }
}

std::string description(NSEventModifierFlags flags) {
    struct Name {
        NSEventModifierFlags flag;
        const char* text;
    };
    constexpr Name names[] = {
        {NSEventModifierFlags::shift, "Shift"},     {NSEventModifierFlags::option, "Option"},
        {NSEventModifierFlags::control, "Control"}, {NSEventModifierFlags::command, "Command"},
        {NSEventModifierFlags::space, "Space"},
    };
    std::string text;
    for (const auto& [flag, name] : names)
        if (contains(flags, flag))
            text.append(text.empty() ? "" : ", ").append(name);
    return text;
}

}  // namespace quorin
