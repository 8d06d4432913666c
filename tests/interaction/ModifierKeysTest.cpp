#include "quorin/interaction/ModifierKeys.h"

#include "tests/TestSupport.h"
#include "tests/interaction/SentKeys.h"

namespace quorin {
namespace {

using enum NSEventModifierFlags;

TEST(ModifierKeys, arePressedByNobodyBeforeTheFirstEvent) {
    // The current event stays when it was handled, so only a new process has none.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            const bool pressed =
                ModifierKeys::isShiftKeyPressed() || ModifierKeys::isControlKeyPressed() ||
                ModifierKeys::isOptionKeyPressed() || ModifierKeys::isCommandKeyPressed() ||
                ModifierKeys::isKeyPressed({});
            std::_Exit(pressed ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(ModifierKeys, areThoseOfTheCurrentEvent) {
    SentKeys::flags(0, shift | option);
    EXPECT_TRUE(ModifierKeys::isShiftKeyPressed());
    EXPECT_FALSE(ModifierKeys::isControlKeyPressed());
    EXPECT_TRUE(ModifierKeys::isOptionKeyPressed());
    EXPECT_FALSE(ModifierKeys::isCommandKeyPressed());

    SentKeys::flags(1, control | command);
    EXPECT_FALSE(ModifierKeys::isShiftKeyPressed());
    EXPECT_TRUE(ModifierKeys::isControlKeyPressed());
    EXPECT_FALSE(ModifierKeys::isOptionKeyPressed());
    EXPECT_TRUE(ModifierKeys::isCommandKeyPressed());
}

TEST(ModifierKeys, arePressedTogetherOnlyWhenAllAre) {
    SentKeys::flags(0, shift | option | capsLock);
    EXPECT_TRUE(ModifierKeys::isKeyPressed(shift | option));
    EXPECT_TRUE(ModifierKeys::isKeyPressed(capsLock));
    EXPECT_FALSE(ModifierKeys::isKeyPressed(shift | command));
    EXPECT_TRUE(ModifierKeys::isKeyPressed({}));
}

}  // namespace
}  // namespace quorin
