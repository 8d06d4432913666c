#include "quorin/screens/DeviceCategory.h"

#include <string>

#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

constexpr std::array<std::string_view, allDeviceCategories.size()> rawValues{"iPhone", "iPad",
                                                                             "Watch", "TV", "Web"};

}  // namespace

std::string_view rawValue(DeviceCategory category) {
    const auto index = static_cast<std::size_t>(category);
    if (index >= rawValues.size())
        fatalError("device category " + std::to_string(index) + " of 5");
    return rawValues[index];
}

std::optional<DeviceCategory> deviceCategory(std::string_view rawValue) {
    for (const DeviceCategory category : allDeviceCategories)
        if (quorin::rawValue(category) == rawValue)
            return category;
    return std::nullopt;
}

}  // namespace quorin
