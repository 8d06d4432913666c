#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorin {

/// Where a value stands in nested records, as in `segments[3].point[1]`. Each step refers to the
/// one around it, so that following a record down costs nothing and only an error spells it out.
struct CodingPath {
    const CodingPath* around = nullptr;  ///< absent at the outermost record
    std::string_view key;                ///< empty for an element of an outermost list
    std::optional<std::size_t> index;

    std::string text() const {
        std::string result = around ? around->text() : std::string();
        if (!result.empty() && !key.empty())
            result += '.';
        result += key;
        if (index)
            result += '[' + std::to_string(*index) + ']';
        return result;
    }

    /// `segments[3].radius: key not found`; without a path the reason alone.
    std::string describe(std::string_view reason) const {
        std::string place = text();
        if (!place.empty())
            place += ": ";
        return place.append(reason);
    }
};

}  // namespace quorin
