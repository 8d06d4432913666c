#pragma once

#include <cstddef>
#include <limits>

namespace quorin {

/// Where there is nothing to stand.
inline constexpr std::size_t NSNotFound = std::numeric_limits<std::ptrdiff_t>::max();

/// A piece of a list or text; in texts it is counted in UTF-16 code units.
struct NSRange {
    std::size_t location = 0;
    std::size_t length = 0;

    friend bool operator==(const NSRange&, const NSRange&) = default;
};

}  // namespace quorin
