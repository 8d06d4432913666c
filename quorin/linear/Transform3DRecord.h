#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "quorin/platform/values/CATransform3D.h"

/// The stored form of a transform of space: the sixteen fields from m11 to m44, row after row, as
/// 64-bit IEEE doubles with the least significant byte first, and nothing else. It is the same on
/// every machine and keeps every bit, of -0.0 and NaN too.
namespace quorin {

inline constexpr std::size_t transform3DRecordSize = 128;

std::vector<std::uint8_t> encodeToDataWith64bit(const CATransform3D& transform);

/// The transform of the record that `data` starts with. Throws `DecodingError` when `data` is
/// shorter than a record; further bytes do not count.
CATransform3D CATransform3DWithData(std::span<const std::uint8_t> data);

}  // namespace quorin
