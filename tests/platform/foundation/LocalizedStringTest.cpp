#include "quorin/platform/foundation/LocalizedString.h"

#include <string>
#include <utility>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

struct LocalizedStringTest : testing::Test {
    ~LocalizedStringTest() override { setMainLocalizedStrings(nullptr); }
};

TEST_F(LocalizedStringTest, isTheKeyWithoutATable) {
    EXPECT_EQ(localizedString("Custom", "a label"), "Custom");
    EXPECT_EQ(localizedString("", ""), "");
}

TEST_F(LocalizedStringTest, comesFromTheTableWhichIsToldTheComment) {
    std::vector<std::pair<std::string, std::string>> asked;
    setMainLocalizedStrings([&](std::string_view key, std::string_view comment) {
        asked.emplace_back(key, comment);
        return std::optional<std::string>("Eigene");
    });
    EXPECT_EQ(localizedString("Custom", "a label"), "Eigene");
    EXPECT_THAT(asked, ElementsAre(Pair("Custom", "a label")));
}

TEST_F(LocalizedStringTest, isTheKeyWhereTheTableHasNoTextAndMayBeEmptyWhereItHas) {
    setMainLocalizedStrings([](std::string_view key, std::string_view) {
        return key == "Nothing" ? std::optional<std::string>("") : std::nullopt;
    });
    EXPECT_EQ(localizedString("Custom", ""), "Custom");
    EXPECT_EQ(localizedString("Nothing", ""), "");
}

}  // namespace
}  // namespace quorin
