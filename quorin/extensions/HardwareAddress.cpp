#include "quorin/extensions/HardwareAddress.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>

#include "quorin/extensions/sysfs/SysfsText.h"

namespace quorin {
namespace {

namespace fs = std::filesystem;
using Address = std::vector<std::uint8_t>;

constexpr std::size_t maximumLength = sizeof(HardwareAddressBytes::bytes);

/// Reads "52:54:00:12:34:56". No address is all zeros, all ones, or longer than `maximumLength`.
std::optional<Address> addressOf(std::string_view text) {
    Address address;
    while (true) {
        std::uint8_t byte = 0;
        const char* const digits = text.data();
        if (text.size() < 2 || std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2)
            return std::nullopt;
        address.push_back(byte);
        text.remove_prefix(2);
        if (text.empty())
            break;
        if (text.front() != ':' || address.size() == maximumLength)
            return std::nullopt;
        text.remove_prefix(1);
    }
    const auto isAll = [&](std::uint8_t value) {
        return std::all_of(address.begin(), address.end(),
                           [&](std::uint8_t byte) { return byte == value; });
    };
    return isAll(0) || isAll(0xFF) ? std::nullopt : std::optional(address);
}

std::optional<Address> readAddress(const std::string& interface) {
    const std::optional<std::string> text = sysfsText(interface + "/address");
    return text ? addressOf(*text) : std::nullopt;
}

/// Bridges, tunnels and virtual machines' cables have no device, or an address somebody chose.
std::optional<Address> readPhysicalEthernetAddress(const std::string& interface) {
    constexpr std::uint8_t locallyAdministered = 2;
    std::error_code ignored;
    if (sysfsText(interface + "/type") != "1" ||
        fs::symlink_status(interface + "/device", ignored).type() == fs::file_type::not_found)
        return std::nullopt;
    const std::optional<Address> address = readAddress(interface);
    return address && (address->front() & locallyAdministered) == 0 ? address : std::nullopt;
}

/// Interfaces count in the order in which the kernel found them.
long placeOf(const std::string& interface) {
    long index = std::numeric_limits<long>::max();
    if (const std::optional<std::string> text = sysfsText(interface + "/ifindex"))
        std::from_chars(text->data(), text->data() + text->size(), index);
    return index;
}

std::vector<std::string> interfacesIn(const std::string& folder) {
    std::vector<std::pair<long, std::string>> places;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        places.emplace_back(placeOf(entry->path().string()), entry->path().string());
    std::sort(places.begin(), places.end());

    std::vector<std::string> interfaces;
    for (auto& [place, path] : places)
        interfaces.push_back(std::move(path));
    return interfaces;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> hardwareAddress(const std::string& sysfs) {
    const std::string folder = sysfs + "/class/net";
    if (std::optional<Address> address = readAddress(folder + "/en0"))
        return address;
    for (const std::string& interface : interfacesIn(folder))
        if (std::optional<Address> address = readPhysicalEthernetAddress(interface))
            return address;
    return std::nullopt;
}

HardwareAddressBytes getGUID() {
    HardwareAddressBytes result{};
    if (const auto address = hardwareAddress()) {
        result.length = address->size();
        std::copy(address->begin(), address->end(), result.bytes);
    }
    return result;
}

}  // namespace quorin
