#include "quorin/platform/foundation/UUID.h"

#include <regex>
#include <set>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(UUID, isWrittenInUpperCase) {
    const UUID known{{0xe6, 0x21, 0xe1, 0xf8, 0xc3, 0x6c, 0x49, 0x5a, 0x93, 0xfc, 0x0c, 0x24, 0x7a,
                      0x3e, 0x6e, 0x5f}};
    EXPECT_EQ(known.uuidString(), "E621E1F8-C36C-495A-93FC-0C247A3E6E5F");
}

TEST(UUID, isRandomAndSaysSo) {
    const std::regex versionFour(
        "[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    std::set<UUID> made;
    for (int i = 0; i < 100; ++i) {
        const UUID fresh = UUID::random();
        EXPECT_TRUE(std::regex_match(fresh.uuidString(), versionFour)) << fresh.uuidString();
        made.insert(fresh);
    }
    EXPECT_EQ(made.size(), 100u);
}

}  // namespace
}  // namespace quorin
