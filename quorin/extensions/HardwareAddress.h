#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorin {

/// The hardware address of the network interface `en0` where there is one, else of the first
/// physical Ethernet interface: one with a device behind it whose address was given by its maker.
/// Nothing when there is none. `sysfs` is the kernel's view of the machine.
std::optional<std::vector<std::uint8_t>> hardwareAddress(const std::string& sysfs = "/sys");

/// A hardware address that every language can take; of length 0 when there is none.
struct HardwareAddressBytes {
    std::size_t length;
    std::uint8_t bytes[32];  ///< the longest that the kernel knows
};

extern "C" {
/// The `hardwareAddress` of this machine.
HardwareAddressBytes getGUID();
}

}  // namespace quorin
