#pragma once

#include <string>

#include "quorin/platform/foundation/UserDefaults.h"

namespace quorin {

/// A text that tells this machine from others and stays the same. In order: the serial number that
/// the firmware tells, its UUID in upper case, the `hardwareAddress` in base64, and a random UUID
/// that is kept under the key "kDeviceIdKey". Placeholders that makers leave in firmware do not
/// count. Each step that gives nothing is logged.
///
/// There always is an answer. When a random UUID cannot be kept, which is logged too, the next call
/// gives another one.
std::string getDeviceUniqueIdentifier();

/// The same for a machine that tells of itself below `sysfs`.
std::string getDeviceUniqueIdentifier(const std::string& sysfs, UserDefaults& defaults);

}  // namespace quorin
