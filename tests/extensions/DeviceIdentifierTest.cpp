#include "quorin/extensions/DeviceIdentifier.h"

#include <filesystem>
#include <thread>
#include <vector>

#include "quorin/platform/foundation/NSLog.h"
#include "tests/TestSupport.h"
#include "tests/extensions/DeviceSysfs.h"
#include "tests/support/FileFaults.h"

namespace quorin {
namespace {

using test::DeviceSysfs;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

constexpr const char* noSerialNumber = "Failed to get serial number. Try getting UUID...";
constexpr const char* noUUID = "Failed to get device UUID. Getting Mac Address...";
constexpr const char* noAddress = "Failed to get device UUID. Generating one...";
constexpr const char* uuidForm =
    "[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}";

class DeviceIdentifier : public testing::Test {
protected:
    std::string identifier() { return getDeviceUniqueIdentifier(sysfs.path(), defaults); }

    const DeviceSysfs sysfs{};
    const TemporaryFolder folder;
    UserDefaults defaults{folder.path()};
    std::vector<std::string> logged;
    const LogRedirection redirection{
        [this](std::string_view message) { logged.emplace_back(message); }};
};

TEST_F(DeviceIdentifier, isTheSerialNumber) {
    sysfs.firmware("product_serial", "  C02 xyz\n");
    sysfs.firmware("product_uuid", "4c4c4544-0042-3510-8052-b9c04f435132\n");
    EXPECT_EQ(identifier(), "C02 xyz");
    EXPECT_THAT(logged, ElementsAre());
}

TEST_F(DeviceIdentifier, isElseTheUUIDInUpperCase) {
    sysfs.firmware("product_uuid", "4c4c4544-0042-3510-8052-b9c04f435132\n");
    sysfs.interface("en0", "00:16:3e:00:00:01", 1);
    EXPECT_EQ(identifier(), "4C4C4544-0042-3510-8052-B9C04F435132");
    EXPECT_THAT(logged, ElementsAre(noSerialNumber));
}

TEST_F(DeviceIdentifier, isElseTheHardwareAddressInBase64) {
    sysfs.interface("en0", "00:16:3e:00:00:01", 1);
    EXPECT_EQ(identifier(), "ABY+AAAB");
    EXPECT_THAT(logged, ElementsAre(noSerialNumber, noUUID));
    EXPECT_EQ(folder.count(), 0);
}

TEST_F(DeviceIdentifier, fillsUpTheBase64OfOtherLengths) {
    sysfs.interface("en0", "4d:61", 1);
    EXPECT_EQ(identifier(), "TWE=");
}

TEST_F(DeviceIdentifier, isElseTheTextThatIsKept) {
    defaults.set("kDeviceIdKey", "kept");
    EXPECT_EQ(identifier(), "kept");
    EXPECT_THAT(logged, ElementsAre(noSerialNumber, noUUID, noAddress));
}

TEST_F(DeviceIdentifier, isTheTextThatIsKeptWhereItMayOnlyBeRead) {
    namespace fs = std::filesystem;
    defaults.set("kDeviceIdKey", "kept");
    fs::permissions(sysfs.path(), fs::perms(0755));
    fs::permissions(folder.path(), fs::perms(0555));
    fs::permissions(defaults.path(), fs::perms(0444));
    {
        const test::AsNobody nobody;
        EXPECT_EQ(identifier(), "kept");
    }
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_THAT(logged, ElementsAre(noSerialNumber, noUUID, noAddress));
}

TEST_F(DeviceIdentifier, isElseARandomUUIDThatIsKept) {
    defaults.set("other", 1);
    const std::string first = identifier();
    EXPECT_THAT(first, MatchesRegex(uuidForm));
    EXPECT_EQ(identifier(), first);
    EXPECT_EQ(defaults.values(), (Value::Map{{"kDeviceIdKey", first}, {"other", 1}}));
    const TemporaryFolder elsewhere;
    UserDefaults others(elsewhere.path());
    EXPECT_NE(getDeviceUniqueIdentifier(sysfs.path(), others), first);
}

TEST_F(DeviceIdentifier, replacesWhatIsNoTextUnderItsKey) {
    for (const Value& kept : {Value(1), Value(""), Value(Value::List{"a"})}) {
        defaults.set("kDeviceIdKey", kept);
        const std::string fresh = identifier();
        EXPECT_THAT(fresh, MatchesRegex(uuidForm));
        EXPECT_EQ(defaults.value("kDeviceIdKey"), Value(fresh));
    }
}

TEST_F(DeviceIdentifier, takesNoPlaceholderForASerialNumberOrAUUID) {
    for (const std::string placeholder :
         {"", " \n", "None", "none\n", "To be filled by O.E.M.", "To Be Filled By O.E.M.\n", "0",
          "00000000", "ffffffff", "FFFF", "00000000-0000-0000-0000-000000000000",
          "ffffffff-ffff-ffff-ffff-ffffffffffff", "\xFF\xFE", "a\x01", "a\nb"}) {
        SCOPED_TRACE(placeholder);
        const DeviceSysfs machine;
        machine.firmware("product_serial", placeholder);
        machine.firmware("product_uuid", placeholder);
        machine.interface("eth0", "00:16:3e:00:00:01", 1);
        logged.clear();
        EXPECT_EQ(getDeviceUniqueIdentifier(machine.path(), defaults), "ABY+AAAB");
        EXPECT_THAT(logged, ElementsAre(noSerialNumber, noUUID));
    }
}

TEST_F(DeviceIdentifier, takesTextsThatOnlyBeginAsPlaceholdersDo) {
    for (const std::string serial : {"None1", "0f", "0001", "fffe", "N"}) {
        const DeviceSysfs machine;
        machine.firmware("product_serial", serial);
        EXPECT_EQ(getDeviceUniqueIdentifier(machine.path(), defaults), serial);
    }
}

TEST_F(DeviceIdentifier, passesOverEntriesThatOnlyRootMayRead) {
    sysfs.firmware("product_serial", "secret");
    sysfs.firmware("product_uuid", "secret");
    sysfs.interface("en0", "00:16:3e:00:00:01", 1);
    namespace fs = std::filesystem;
    fs::permissions(sysfs.path(), fs::perms(0755));
    fs::permissions(sysfs.path() + "/class/dmi/id/product_serial", fs::perms(0000));
    fs::permissions(sysfs.path() + "/class/dmi/id/product_uuid", fs::perms(0000));
    const test::AsNobody nobody;
    EXPECT_EQ(identifier(), "ABY+AAAB");
}

TEST_F(DeviceIdentifier, passesOverEntriesThatAreNoFiles) {
    std::filesystem::create_directories(sysfs.path() + "/class/dmi/id/product_serial");
    sysfs.firmware("product_uuid", std::string(100'000, 'x'));
    EXPECT_THAT(identifier(), MatchesRegex(uuidForm));
}

TEST_F(DeviceIdentifier, isTheSameForAllThatAskAtOnce) {
    std::vector<std::string> answers(8);
    std::vector<std::thread> threads;
    for (std::string& answer : answers)
        threads.emplace_back([&] { answer = identifier(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(answers, std::vector<std::string>(8, answers[0]));
}

TEST_F(DeviceIdentifier, isThereEvenWhenItCannotBeKept) {
    UserDefaults nowhere(folder.file("file", "") + "/quorin");
    EXPECT_THAT(getDeviceUniqueIdentifier(sysfs.path(), nowhere), MatchesRegex(uuidForm));
    EXPECT_THAT(logged, ElementsAre(noSerialNumber, noUUID, noAddress,
                                    HasSubstr("Failed to read the device identifier: "),
                                    HasSubstr("Failed to keep the device identifier: ")));
}

TEST_F(DeviceIdentifier, beginsAnewWhenTheDefaultsAreDamaged) {
    folder.file("defaults.json", "{");
    EXPECT_THAT(identifier(), MatchesRegex(uuidForm));
    EXPECT_EQ(readFile(folder / "defaults.json.damaged"), "{");
}

TEST(ThisDevice, hasAnIdentifier) {
    const TemporaryFolder folder;
    UserDefaults defaults(folder.path());
    const LogRedirection quiet([](std::string_view) {});
    const std::string identifier = getDeviceUniqueIdentifier("/sys", defaults);
    EXPECT_NE(identifier, "");
    EXPECT_EQ(getDeviceUniqueIdentifier("/sys", defaults), identifier);
}

}  // namespace
}  // namespace quorin
