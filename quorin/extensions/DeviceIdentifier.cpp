#include "quorin/extensions/DeviceIdentifier.h"

#include <openssl/evp.h>
#include <uuid/uuid.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>
#include <vector>

#include "quorin/extensions/HardwareAddress.h"
#include "quorin/extensions/sysfs/SysfsText.h"
#include "quorin/platform/foundation/NSLog.h"

namespace quorin {
namespace {

constexpr std::string_view deviceIdKey = "kDeviceIdKey";

std::string upperCase(std::string text) {
    for (char& letter : text)
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    return text;
}

/// Whether the maker never filled the text in. Dashes stand in UUIDs.
bool isPlaceholder(const std::string& text) {
    const std::string upper = upperCase(text);
    const auto isOnly = [&](std::string_view characters) {
        return upper.find_first_not_of(characters) == std::string::npos;
    };
    return upper == "NONE" || upper == "TO BE FILLED BY O.E.M." || isOnly("0-") || isOnly("F-");
}

std::optional<std::string> firmwareText(const std::string& sysfs, const char* name) {
    std::optional<std::string> text = sysfsText(sysfs + "/class/dmi/id/" + name);
    return text && !isPlaceholder(*text) ? text : std::nullopt;
}

std::string base64(const std::vector<std::uint8_t>& bytes) {
    std::string text(4 * ((bytes.size() + 2) / 3) + 1, '\0');  // a zero is written behind it
    const int length = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()), bytes.data(),
                                       static_cast<int>(bytes.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string randomUUID() {
    uuid_t uuid;
    std::array<char, UUID_STR_LEN> text{};
    uuid_generate_random(uuid);
    uuid_unparse_upper(uuid, text.data());
    return text.data();
}

/// An empty text would not tell machines apart.
std::optional<std::string> identifierIn(const Value& value) {
    const std::string* const text = value.asText();
    return text && !text->empty() ? std::optional(*text) : std::nullopt;
}

/// The text under the key, or `fresh`, which is kept there in the same step, so that two processes
/// that ask at once get the same.
std::string keptIdentifier(UserDefaults& defaults, const std::string& fresh) {
    std::string identifier = fresh;
    defaults.change([&](Value::Map& values) {
        Value& value = values[std::string(deviceIdKey)];
        identifier = identifierIn(value).value_or(fresh);
        value = identifier;
    });
    return identifier;
}

std::string storedIdentifier(UserDefaults& defaults) {
    try {
        // Asked first without a lock: defaults that may only be read have an identifier too.
        if (const auto kept = identifierIn(defaults.value(deviceIdKey)))
            return *kept;
    } catch (const std::exception& error) {
        NSLog(std::string("Failed to read the device identifier: ").append(error.what()));
    }
    const std::string fresh = randomUUID();
    try {
        return keptIdentifier(defaults, fresh);
    } catch (const std::exception& error) {
        NSLog(std::string("Failed to keep the device identifier: ").append(error.what()));
        return fresh;
    }
}

}  // namespace

std::string getDeviceUniqueIdentifier() {
    UserDefaults defaults;
    return getDeviceUniqueIdentifier("/sys", defaults);
}

std::string getDeviceUniqueIdentifier(const std::string& sysfs, UserDefaults& defaults) {
    if (const auto serialNumber = firmwareText(sysfs, "product_serial"))
        return *serialNumber;
    NSLog("Failed to get serial number. Try getting UUID...");
    if (const auto uuid = firmwareText(sysfs, "product_uuid"))
        return upperCase(*uuid);
    NSLog("Failed to get device UUID. Getting Mac Address...");
    if (const auto address = hardwareAddress(sysfs))
        return base64(*address);
    NSLog("Failed to get device UUID. Generating one...");
    return storedIdentifier(defaults);
}

}  // namespace quorin
