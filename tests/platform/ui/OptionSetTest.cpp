#include "quorin/platform/ui/OptionSet.h"

#include "quorin/platform/ui/NSEventModifierFlags.h"
#include "quorin/platform/ui/NSEventType.h"
#include "quorin/platform/ui/NSViewControllerTransitionOptions.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using Flags = NSEventModifierFlags;
using Transition = NSViewControllerTransitionOptions;

TEST(OptionSet, isCombinedBitByBit) {
    Flags flags = Flags::shift | Flags::option;
    EXPECT_EQ(rawValue(flags), 0xA0000u);
    EXPECT_EQ(flags & Flags::shift, Flags::shift);
    EXPECT_EQ(flags ^ (Flags::shift | Flags::command), Flags::option | Flags::command);
    flags ^= Flags::shift;
    EXPECT_EQ(flags, Flags::option);
    flags |= Flags::control;
    flags &= ~Flags::option;
    EXPECT_EQ(flags, Flags::control);
    EXPECT_EQ(rawValue(~Flags{}), ~std::uint64_t{0});
}

TEST(OptionSet, containsAllOrNothing) {
    const Flags flags = Flags::shift | Flags::option;
    EXPECT_TRUE(contains(flags, Flags::shift | Flags::option));
    EXPECT_FALSE(contains(flags, Flags::shift | Flags::command));
    EXPECT_TRUE(contains(flags, Flags{}));
    EXPECT_TRUE(contains(Flags{}, Flags{}));
    EXPECT_TRUE(isEmpty(Flags{}));
    EXPECT_FALSE(isEmpty(flags));
}

TEST(OptionSet, numbersModifierKeysFromBitSixteenOn) {
    const Flags inOrder[] = {Flags::capsLock, Flags::shift,      Flags::control, Flags::option,
                             Flags::command,  Flags::numericPad, Flags::help,    Flags::function};
    std::uint64_t bit = 1 << 16;
    for (const Flags flag : inOrder) {
        EXPECT_EQ(rawValue(flag), bit);
        bit *= 2;
    }
}

TEST(OptionSet, hasABitForEachTypeOfEvents) {
    EXPECT_EQ(maskOf(NSEventType::keyDown), NSEventTypeMask::keyDown);
    EXPECT_EQ(maskOf(NSEventType::keyUp), NSEventTypeMask::keyUp);
    EXPECT_EQ(maskOf(NSEventType::flagsChanged), NSEventTypeMask::flagsChanged);
    EXPECT_EQ(
        rawValue(NSEventTypeMask::keyDown | NSEventTypeMask::keyUp | NSEventTypeMask::flagsChanged),
        7168u);
}

TEST(OptionSet, numbersTransitions) {
    const std::pair<Transition, std::uint64_t> table[] = {{Transition::none, 0},
                                                          {Transition::crossfade, 1},
                                                          {Transition::slideUp, 16},
                                                          {Transition::slideDown, 32},
                                                          {Transition::slideLeft, 64},
                                                          {Transition::slideRight, 128},
                                                          {Transition::slideForward, 320},
                                                          {Transition::slideBackward, 384},
                                                          {Transition::allowUserInteraction, 4096}};
    for (const auto& [option, number] : table)
        EXPECT_EQ(rawValue(option), number);
    EXPECT_TRUE(contains(Transition::slideForward, Transition::slideLeft));
    EXPECT_TRUE(contains(Transition::slideBackward, Transition::slideRight));
}

}  // namespace
}  // namespace quorin
