#include "quorin/path/PointBehavior.h"

#include <string>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

std::optional<PointBehavior> pointBehavior(std::int64_t rawValue) {
    if (rawValue < 0 || rawValue > 3)
        return std::nullopt;
    return static_cast<PointBehavior>(rawValue);
}

std::optional<PointBehavior> pointBehaviorWithSketchRawValue(std::int64_t sketchRawValue) {
    switch (sketchRawValue) {
        case 1:
            return PointBehavior::straight;
        case 2:
            return PointBehavior::mirrored;
        case 3:
            return PointBehavior::asymmetric;
        case 4:
            return PointBehavior::disconnected;
        default:
            return std::nullopt;
    }
}

std::string_view description(PointBehavior behavior) {
    switch (behavior) {
        case PointBehavior::straight:
            return "Straight";
        case PointBehavior::mirrored:
            return "Mirrored";
        case PointBehavior::disconnected:
            return "Disconnected";
        case PointBehavior::asymmetric:
            return "Asymmetric";
    }
    fatalError("point behavior " + std::to_string(static_cast<int>(behavior)) + " of 4");
}

}  // namespace quorin
