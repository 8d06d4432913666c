#include "quorin/screens/DeviceCategory.h"

#include <string_view>
#include <unordered_set>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;

TEST(DeviceCategory, hasItsRawValuesInTheOrderOfTheCases) {
    std::vector<std::string_view> rawValues;
    for (const DeviceCategory category : allDeviceCategories)
        rawValues.push_back(rawValue(category));
    EXPECT_THAT(rawValues, ElementsAre("iPhone", "iPad", "Watch", "TV", "Web"));
    EXPECT_THAT(allDeviceCategories,
                ElementsAre(DeviceCategory::iPhone, DeviceCategory::iPad, DeviceCategory::Watch,
                            DeviceCategory::TV, DeviceCategory::Web));
}

TEST(DeviceCategory, isMadeFromItsRawValue) {
    for (const DeviceCategory category : allDeviceCategories)
        EXPECT_EQ(deviceCategory(rawValue(category)), category);
}

TEST(DeviceCategory, isNotMadeFromAnyOtherText) {
    for (const char* text :
         {"", "iphone", "IPHONE", "iPhone ", " iPhone", "iPhon", "tv", "web", "Desktop", "0"})
        EXPECT_EQ(deviceCategory(text), std::nullopt) << '"' << text << '"';
    EXPECT_EQ(deviceCategory(std::string_view("TV\0", 3)), std::nullopt);
}

TEST(DeviceCategory, isEqualAndHashedByCase) {
    const std::unordered_set<DeviceCategory> set{DeviceCategory::TV, DeviceCategory::Web,
                                                 *deviceCategory("TV")};
    EXPECT_EQ(set.size(), 2u);
    EXPECT_TRUE(set.contains(DeviceCategory::TV));
    EXPECT_FALSE(set.contains(DeviceCategory::iPad));
    EXPECT_NE(DeviceCategory::iPhone, DeviceCategory::iPad);
}

TEST(DeviceCategory, stopsTheProcessForANumberThatIsNoCase) {
    EXPECT_DEATH(static_cast<void>(rawValue(static_cast<DeviceCategory>(5))),
                 "device category 5 of 5");
}

}  // namespace
}  // namespace quorin
