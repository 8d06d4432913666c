#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// Which side of the viewport a percentage is of.
enum class SvgAxis : std::uint8_t { horizontal, vertical, diagonal };

/// A length as it was written: user units, or a percentage of a viewport.
///
/// Absolute units count 96 to the inch; an em counts 16, since fonts have no part in outlines.
struct SvgLength {
    CGFloat value = 0;
    bool isPercentage = false;

    /// In user units. The diagonal of a viewport is the root of the mean square of its sides.
    CGFloat resolved(CGSize viewport, SvgAxis axis) const;

    friend bool operator==(const SvgLength&, const SvgLength&) = default;
};

/// A number with or without px, pt, pc, mm, cm, in, em, rem, ex or %; nothing for anything else.
std::optional<SvgLength> parseSvgLength(std::string_view text);
/// A number on its own.
std::optional<CGFloat> parseSvgNumber(std::string_view text);
/// A number or a percentage as a fraction, moved into 0 to 1.
std::optional<CGFloat> parseSvgFraction(std::string_view text);

}  // namespace quorin
