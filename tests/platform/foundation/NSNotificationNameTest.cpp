#include "quorin/platform/foundation/NSNotificationName.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(NSNotificationName, isTheSameForTheSameText) {
    const std::string text = "a name";
    EXPECT_EQ(NSNotificationName("a name"), NSNotificationName(text));
    EXPECT_EQ(NSNotificationName("a name"), NSNotificationName(std::string_view(text)));
    EXPECT_NE(NSNotificationName("a name"), NSNotificationName("A name"));
    EXPECT_NE(NSNotificationName("a name"), NSNotificationName(""));
}

TEST(NSNotificationName, keepsItsTextWhateverBecomesOfTheGivenOne) {
    std::string text = "long enough to need memory of its own";
    const NSNotificationName name(text);
    text.assign(text.size(), 'x');
    EXPECT_EQ(name.text(), "long enough to need memory of its own");
}

TEST(NSNotificationName, keepsPlaceWhenManyFollow) {
    const NSNotificationName name("first of many");
    const std::string* place = &name.text();
    for (int i = 0; i < 2'000; ++i)
        EXPECT_EQ(NSNotificationName("later " + std::to_string(i)).text(),
                  "later " + std::to_string(i));
    EXPECT_EQ(&NSNotificationName("first of many").text(), place);
}

}  // namespace
}  // namespace quorin
