#include "quorin/screens/ScreenTemplate.h"

#include <string>

#include "tests/TestSupport.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using test::decoded;
using test::MemoryRecord;
using test::recordOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

std::shared_ptr<ScreenTemplate> tablets() {
    return ScreenTemplate::create(DeviceCategory::iPad, {Template::create(810, 1080, 2, "large"),
                                                         Template::create(744, 1133, 2, "small")});
}

TEST(ScreenTemplate, holdsACategoryAndItsScreensInOrder) {
    const auto screens = tablets();
    EXPECT_EQ(screens->category(), DeviceCategory::iPad);
    ASSERT_EQ(screens->templates().size(), 2u);
    EXPECT_EQ(screens->templates()[0]->name(), "large");
    EXPECT_EQ(screens->templates()[1]->name(), "small");
}

TEST(ScreenTemplate, writesTwoKeysInOrder) {
    MemoryRecord record = recordOf(*tablets());
    EXPECT_THAT(record.keys(), ElementsAre("category", "templates"));
    EXPECT_EQ(record["category"], MemoryRecord::Entry(std::string("iPad")));
    const auto& templates = std::get<MemoryRecord::Records>(record["templates"]);
    EXPECT_THAT(templates, ElementsAre(recordOf(*tablets()->templates()[0]),
                                       recordOf(*tablets()->templates()[1])));
}

TEST(ScreenTemplate, readsTheSameCategoryAndTemplatesInTheSameOrder) {
    const auto screens = decoded<ScreenTemplate>(recordOf(*tablets()));
    EXPECT_EQ(screens->category(), DeviceCategory::iPad);
    EXPECT_EQ(recordOf(*screens), recordOf(*tablets()));
}

TEST(ScreenTemplate, readsEveryCategoryAndMayHaveNoScreens) {
    for (const DeviceCategory category : allDeviceCategories) {
        const auto screens =
            decoded<ScreenTemplate>(recordOf(*ScreenTemplate::create(category, {})));
        EXPECT_EQ(screens->category(), category);
        EXPECT_THAT(screens->templates(), IsEmpty());
    }
}

TEST(ScreenTemplate, readsTheCategoryFirst) {
    EXPECT_THAT([] { decoded<ScreenTemplate>(MemoryRecord{}); },
                ThrowsMessage<DecodingError>("category: key not found"));
    MemoryRecord record;
    record.entries.emplace_back("category", std::string("iphone"));
    EXPECT_THAT([&] { decoded<ScreenTemplate>(record); },
                ThrowsMessage<DecodingError>("category: \"iphone\" is no category"));
    record["category"] = std::string("iPhone");
    EXPECT_THAT([&] { decoded<ScreenTemplate>(record); },
                ThrowsMessage<DecodingError>("templates: key not found"));
}

TEST(ScreenTemplate, takesNoValueOfAnotherType) {
    MemoryRecord record = recordOf(*tablets());
    record["category"] = 1.0;
    EXPECT_THAT([&] { decoded<ScreenTemplate>(record); },
                ThrowsMessage<DecodingError>(StartsWith("category: ")));
    record = recordOf(*tablets());
    record["templates"] = std::string("none");
    EXPECT_THAT([&] { decoded<ScreenTemplate>(record); },
                ThrowsMessage<DecodingError>(StartsWith("templates: ")));
    record = recordOf(*tablets());
    std::get<MemoryRecord::Records>(record["templates"])[1].remove("name");
    EXPECT_THAT([&] { decoded<ScreenTemplate>(record); },
                ThrowsMessage<DecodingError>("templates[1].name: key not found"));
}

}  // namespace
}  // namespace quorin
