#include "quorin/svg/reading/SvgMessages.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::SizeIs;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

TEST(SvgMessages, nameFileLineAndOffsetInTheOrderOfTheText) {
    SvgMessages messages("ab\ncd\nef", "icon.svg");
    messages.warn(6, "second");
    messages.warn(3, "first");
    const std::vector<SvgWarning> warnings = messages.take();
    ASSERT_THAT(warnings, SizeIs(2));
    EXPECT_EQ(warnings[0].description(), "icon.svg:2: offset 3: first");
    EXPECT_EQ(warnings[1].description(), "icon.svg:3: offset 6: second");
    EXPECT_EQ(warnings[1].file, "icon.svg");
    EXPECT_EQ(warnings[1].line, 3u);
    EXPECT_EQ(warnings[1].offset, 6u);
    EXPECT_EQ(warnings[1].message, "second");
}

TEST(SvgMessages, sayTheSameAboutAPlaceOnce) {
    SvgMessages messages("text", "f");
    messages.warn(1, "a");
    messages.warn(1, "a");
    messages.warn(1, "b");
    messages.warn(2, "a");
    EXPECT_THAT(messages.take(), SizeIs(3));
}

TEST(SvgMessages, keepTheFirstThousandAndCountTheRest) {
    SvgMessages messages("text", "f");
    for (std::size_t i = 0; i < 1'234; ++i)
        messages.warn(i, "bad");
    const std::vector<SvgWarning> warnings = messages.take();
    ASSERT_THAT(warnings, SizeIs(1'001));
    EXPECT_EQ(warnings.back().message, "234 more warnings are left out");
    EXPECT_EQ(warnings.back().offset, 999u);
}

TEST(SvgMessages, failWithTheLine) {
    const SvgMessages messages("ab\ncd", "dir/icon.svg");
    EXPECT_THAT([&] { messages.fail(4, "no good"); },
                ThrowsMessage<SvgError>(StrEq("dir/icon.svg:2: no good")));
    try {
        messages.fail(4, "no good");
    } catch (const SvgError& error) {
        EXPECT_EQ(error.file(), "dir/icon.svg");
        EXPECT_EQ(error.line(), 2u);
    }
}

TEST(SvgMessages, areAlwaysCharacters) {
    SvgMessages messages("text", "\xff.svg");
    messages.warn(0, "cannot read '\xc3'");
    EXPECT_EQ(messages.take()[0].description(), "\ufffd.svg:1: offset 0: cannot read '\ufffd'");
}

}  // namespace
}  // namespace quorin
