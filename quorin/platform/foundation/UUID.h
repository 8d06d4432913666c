#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string>

namespace quorin {

/// 128 bits that nobody else has.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh one of random bits (version 4).
    static UUID random();

    /// 36 characters, letters in upper case: "E621E1F8-C36C-495A-93FC-0C247A3E6E5F".
    std::string uuidString() const;

    friend auto operator<=>(const UUID&, const UUID&) = default;
};

}  // namespace quorin
