#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quorin {

/// What kind of device a screen belongs to.
enum class DeviceCategory : std::uint8_t { iPhone, iPad, Watch, TV, Web };

inline constexpr std::array allDeviceCategories{DeviceCategory::iPhone, DeviceCategory::iPad,
                                                DeviceCategory::Watch, DeviceCategory::TV,
                                                DeviceCategory::Web};

/// "iPhone", "iPad", "Watch", "TV" or "Web".
std::string_view rawValue(DeviceCategory category);

/// The category of a raw value; nothing for any other text, also in letters of another case.
std::optional<DeviceCategory> deviceCategory(std::string_view rawValue);

}  // namespace quorin
