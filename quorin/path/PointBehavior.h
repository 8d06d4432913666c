#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quorin {

/// How the two handles of an anchor are coupled.
enum class PointBehavior : std::uint8_t {
    straight = 0,      ///< no handles
    mirrored = 1,      ///< exact opposites
    disconnected = 2,  ///< independent
    asymmetric = 3,    ///< opposite directions, lengths of their own
};

/// The behaviour of a raw value 0 to 3; nothing for any other.
std::optional<PointBehavior> pointBehavior(std::int64_t rawValue);

/// The behaviour of the point-type numbers 1 to 4 of another design tool's files, which cross 3
/// and 4: 1 straight, 2 mirrored, 3 asymmetric, 4 disconnected. Nothing for any other.
std::optional<PointBehavior> pointBehaviorWithSketchRawValue(std::int64_t sketchRawValue);

/// "Straight", "Mirrored", "Disconnected" or "Asymmetric".
std::string_view description(PointBehavior behavior);

/// Which of an anchor's handles.
enum class HandleType : std::uint8_t { handleIn = 0, handleOut = 1 };

constexpr HandleType opposite(HandleType type) {
    return type == HandleType::handleIn ? HandleType::handleOut : HandleType::handleIn;
}

}  // namespace quorin
