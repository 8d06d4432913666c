#include "quorin/extensions/HardwareAddress.h"

#include <dlfcn.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "tests/TestSupport.h"
#include "tests/extensions/DeviceSysfs.h"
#include "tests/support/FileFaults.h"

namespace quorin {
namespace {

using Address = std::vector<std::uint8_t>;
using test::DeviceSysfs;

TEST(HardwareAddress, isThatOfEn0WhereThereIsOne) {
    const DeviceSysfs sysfs{};
    sysfs.interface("eth0", "00:16:3e:00:00:01", 1);
    sysfs.interface("en0", "02:16:3E:ab:CD:ef", 9, "1", false);
    EXPECT_EQ(hardwareAddress(sysfs.path()), (Address{0x02, 0x16, 0x3E, 0xAB, 0xCD, 0xEF}));
}

TEST(HardwareAddress, isElseThatOfTheFirstPhysicalEthernetInterface) {
    const DeviceSysfs sysfs{};
    sysfs.interface("lo", "00:00:00:00:00:00", 1, "772", false);
    sysfs.interface("bridge", "00:16:3e:00:00:01", 2, "1", false);
    sysfs.interface("serial", "00:16:3e:00:00:02", 3, "512");
    sysfs.interface("chosen", "02:16:3e:00:00:03", 4);
    // Ten comes after nine, and the names are in the other order.
    sysfs.interface("aaa", "00:16:3e:00:00:0a", 10);
    sysfs.interface("zzz", "00:16:3e:00:00:09", 9);
    EXPECT_EQ(hardwareAddress(sysfs.path()), (Address{0x00, 0x16, 0x3E, 0x00, 0x00, 0x09}));
}

TEST(HardwareAddress, takesTheNextInterfaceWhereOneTellsNoAddress) {
    for (const std::string bad :
         {"", "00:00:00:00:00:00", "ff:ff:ff:ff:ff:ff", "00:16:3e:00:00", "no address",
          "00:16:3e:00:00:", "00-16-3e-00-00-01", "0:16:3e:0:0:1", "00:16:3e:00:00:0g",
          "00:16:3e:00:00:01:", "-1:16:3e:00:00:01", "00:16:3e:00:00:01\n00:16:3e:00:00:01"}) {
        SCOPED_TRACE(bad);
        const DeviceSysfs sysfs{};
        sysfs.interface("en0", bad, 1);
        sysfs.interface("eth0", bad, 2);
        sysfs.interface("eth1", "00:16:3e:00:00:01", 3);
        if (bad == "00:16:3e:00:00")  // five bytes are an address of some other kind of network
            EXPECT_EQ(hardwareAddress(sysfs.path()), (Address{0x00, 0x16, 0x3E, 0x00, 0x00}));
        else
            EXPECT_EQ(hardwareAddress(sysfs.path()), (Address{0x00, 0x16, 0x3E, 0x00, 0x00, 0x01}));
    }
}

TEST(HardwareAddress, takesLongAddressesAsFarAsTheKernelHasThem) {
    const auto addressOfLength = [](std::size_t length) {
        std::string text = "01";
        for (std::size_t i = 1; i < length; ++i)
            text += ":01";
        return text;
    };
    const DeviceSysfs longest, tooLong;
    longest.interface("en0", addressOfLength(32), 1, "32");
    tooLong.interface("en0", addressOfLength(33), 1, "32");
    EXPECT_EQ(hardwareAddress(longest.path()), Address(32, 1));
    EXPECT_EQ(hardwareAddress(tooLong.path()), std::nullopt);
}

TEST(HardwareAddress, isNothingWhereTheKernelTellsNothing) {
    const DeviceSysfs sysfs{};
    const auto before = test::openFileCount();
    EXPECT_EQ(hardwareAddress(sysfs.path()), std::nullopt);
    EXPECT_EQ(hardwareAddress(sysfs.path() + "/missing"), std::nullopt);
    sysfs.write("class/net", "bonding_masters", "\n");
    sysfs.write("class/net/half", "address", "00:16:3e:00:00:01\n");
    EXPECT_EQ(hardwareAddress(sysfs.path()), std::nullopt);
    EXPECT_EQ(test::openFileCount(), before);
}

TEST(HardwareAddress, comesFromThisMachineToEveryLanguage) {
    using GetGUID = HardwareAddressBytes();
    auto* const found = reinterpret_cast<GetGUID*>(dlsym(RTLD_DEFAULT, "getGUID"));
    ASSERT_NE(found, nullptr);
    const HardwareAddressBytes guid = found();
    EXPECT_EQ(Address(guid.bytes, guid.bytes + guid.length),
              hardwareAddress("/sys").value_or(Address()));
    EXPECT_EQ(getGUID().length, guid.length);
}

/// Ends with 0 when the address is handed out of a machine that tells of itself in `sysfs`, with 77
/// where a process may not have a view of its own.
int askAsOn(const std::string& sysfs, const Address& expected) {
    if (unshare(geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0 ||
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount(sysfs.c_str(), "/sys", nullptr, MS_BIND, nullptr) != 0)
        return 77;
    const HardwareAddressBytes guid = getGUID();
    const auto* const rest = guid.bytes + guid.length;
    const bool isPadded =
        std::all_of(rest, std::end(guid.bytes), [](auto byte) { return byte == 0; });
    return Address(guid.bytes, rest) == expected && isPadded ? 0 : 1;
}

TEST(HardwareAddress, isHandedOutWithItsLength) {
    const DeviceSysfs sysfs{}, nothing{};
    sysfs.interface("en0", "00:16:3e:00:00:09", 1);
    const auto resultOn = [](const DeviceSysfs& machine, const Address& expected) {
        const pid_t process = fork();
        if (process == 0)
            _exit(askAsOn(machine.path(), expected));
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    };
    const int result = resultOn(sysfs, {0x00, 0x16, 0x3E, 0x00, 0x00, 0x09});
    if (result == 77) {
        std::puts("This machine forbids a view of one's own: only this machine's was tested.");
        return;
    }
    EXPECT_EQ(result, 0);
    EXPECT_EQ(resultOn(nothing, {}), 0);
}

}  // namespace
}  // namespace quorin
