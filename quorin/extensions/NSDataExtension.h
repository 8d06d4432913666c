#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quorin {

/// Two lower-case digits for each byte, nothing between them.
std::string hexadecimal(std::span<const std::uint8_t> data);

std::vector<std::uint8_t> computeMD5(std::span<const std::uint8_t> data);
std::vector<std::uint8_t> computeSHA1(std::span<const std::uint8_t> data);

/// The digests in lower-case hexadecimal digits.
std::string computeMD5String(std::span<const std::uint8_t> data);
std::string computeSHA1String(std::span<const std::uint8_t> data);

/// `computeMD5` by its short name.
std::vector<std::uint8_t> md5(std::span<const std::uint8_t> data);

}  // namespace quorin
