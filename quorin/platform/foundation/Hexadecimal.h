#pragma once

#include <cstdint>
#include <string>

namespace quorin {

/// The value of a hexadecimal digit of either case, -1 for every other character.
constexpr int hexadecimalValue(char character) {
    if (character >= '0' && character <= '9')
        return character - '0';
    if (character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    if (character >= 'A' && character <= 'F')
        return character - 'A' + 10;
    return -1;
}

/// Adds the two digits of a byte, taken from sixteen digits in order.
inline void appendHexadecimal(std::string& text, std::uint8_t byte,
                              const char* digits = "0123456789abcdef") {
    text += digits[byte >> 4];
    text += digits[byte & 15];
}

}  // namespace quorin
