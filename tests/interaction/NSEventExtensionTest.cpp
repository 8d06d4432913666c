#include "quorin/interaction/NSEventExtension.h"

#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using enum NSEventModifierFlags;

TEST(SupportedKeyCode, knowsZSpaceAndEscapeOnly) {
    for (unsigned code = 0; code <= std::numeric_limits<std::uint16_t>::max(); ++code) {
        const auto event =
            NSEvent::create(NSEventType::keyDown, {.modifierFlags = {},
                                                   .timestamp = 0,
                                                   .characters = "z",
                                                   .keyCode = static_cast<std::uint16_t>(code)});
        const auto expected = code == 6    ? NSEventKeyCode::z
                              : code == 49 ? NSEventKeyCode::space
                              : code == 53 ? NSEventKeyCode::escape
                                           : NSEventKeyCode::undefined;
        ASSERT_EQ(supportedKeyCode(*event), expected) << code;
    }
}

TEST(SupportedKeyCode, doesNotKnowTheReturnKey) {
    const auto event =
        NSEvent::create(NSEventType::keyUp,
                        {.modifierFlags = {}, .timestamp = 0, .characters = "\r", .keyCode = 36});
    EXPECT_EQ(supportedKeyCode(*event), NSEventKeyCode::undefined);
}

TEST(ModifierFlagsDescription, joinsTheNamesOfShiftAndCommand) {
    EXPECT_EQ(description(shift | command), "Shift, Command");
}

TEST(ModifierFlagsDescription, namesOptionBeforeControlAndSpaceLast) {
    EXPECT_EQ(description(space | command | control | option | shift),
              "Shift, Option, Control, Command, Space");
    EXPECT_EQ(description(space), "Space");
    EXPECT_EQ(description(control | option), "Option, Control");
}

TEST(ModifierFlagsDescription, leavesOutWhatToolsDoNotKnow) {
    EXPECT_EQ(description({}), "");
    EXPECT_EQ(description(capsLock | numericPad | help | function), "");
    EXPECT_EQ(description(capsLock | command), "Command");
}

TEST(ModifierFlags, haveTheBitsOfThePlatform) {
    EXPECT_EQ(rawValue(space), 1U);
    EXPECT_EQ(rawValue(shift), 1U << 17);
    EXPECT_EQ(rawValue(control), 1U << 18);
    EXPECT_EQ(rawValue(option), 1U << 19);
    EXPECT_EQ(rawValue(command), 1U << 20);
}

}  // namespace
}  // namespace quorin
