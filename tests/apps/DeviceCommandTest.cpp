#include "quorin/platform/foundation/UserDefaults.h"
#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"
#include "tests/extensions/DeviceSysfs.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedInput;
using test::runQuorin;
using test::WentWell;

constexpr const char* noAddressLines =
    "Failed to get serial number. Try getting UUID...\n"
    "Failed to get device UUID. Getting Mac Address...\n"
    "Failed to get device UUID. Generating one...\n";

class DeviceCommand : public testing::Test {
protected:
    ProgramRun device(std::vector<std::string> more = {}) const {
        more.insert(more.begin(), {"device", "--sysfs", sysfs.path(), "--defaults", folder.path()});
        return runQuorin(more);
    }

    const test::DeviceSysfs sysfs{};
    const test::TemporaryFolder folder;
};

TEST_F(DeviceCommand, printsTheSerialNumber) {
    sysfs.firmware("product_serial", "C02XYZ\n");
    EXPECT_THAT(device(), WentWell());
    EXPECT_EQ(device().output, "C02XYZ\n");
}

TEST_F(DeviceCommand, saysWhatItTriedInVain) {
    sysfs.interface("eth0", "00:16:3e:00:00:01", 1);
    const ProgramRun run = device();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "ABY+AAAB\n");
    EXPECT_EQ(run.errors,
              "Failed to get serial number. Try getting UUID...\n"
              "Failed to get device UUID. Getting Mac Address...\n");
}

TEST_F(DeviceCommand, isQuietWhenAsked) {
    sysfs.interface("eth0", "00:16:3e:00:00:01", 1);
    EXPECT_THAT(device({"--quiet"}), WentWell());
}

TEST_F(DeviceCommand, keepsTheIdentifierThatItGenerates) {
    const ProgramRun first = device(), second = device();
    EXPECT_EQ(first.exitCode, 0);
    EXPECT_EQ(first.errors, noAddressLines);
    EXPECT_EQ(first.output.size(), 37u);
    EXPECT_EQ(second.output, first.output);
    EXPECT_EQ(UserDefaults(folder.path()).value("kDeviceIdKey"), Value(first.output.substr(0, 36)));
}

TEST_F(DeviceCommand, printsAnIdentifierThatCannotBeKept) {
    const std::string file = folder.file("file", "");
    const ProgramRun run =
        runQuorin({"device", "--sysfs", sysfs.path(), "--defaults", file + "/below"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.size(), 37u);
    EXPECT_EQ(run.errors, noAddressLines + ("Failed to read the device identifier: " + file) +
                              "/below/defaults.json: Not a directory\n" +
                              "Failed to keep the device identifier: " + file +
                              "/below: Not a directory\n");
}

TEST_F(DeviceCommand, keepsItInTheConfigurationFolderUnlessTold) {
    const ProgramRun run = test::runQuorinAfter("export XDG_CONFIG_HOME=" + folder.path(),
                                                {"device", "--quiet", "--sysfs", sysfs.path()});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(UserDefaults(folder / "quorin").value("kDeviceIdKey"),
              Value(run.output.substr(0, 36)));
}

TEST_F(DeviceCommand, identifiesThisMachine) {
    const ProgramRun run = runQuorin({"device", "--defaults", folder.path()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_GT(run.output.size(), 1u);
    EXPECT_EQ(runQuorin({"device", "--defaults", folder.path()}).output, run.output);
}

TEST_F(DeviceCommand, refusesAPlaceThatIsNoFolder) {
    const std::string missing = folder / "missing";
    EXPECT_THAT(runQuorin({"device", "--sysfs", missing}),
                RefusedInput(missing + ": no such folder"));
}

}  // namespace
}  // namespace quorin
