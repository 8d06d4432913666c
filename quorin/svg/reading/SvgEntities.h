#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quorin {

/// The general entities that a document type declaration defines in the document itself, as older
/// drawing programs use them for styles. What stands in their values is taken as it is, entities
/// included, so that nothing grows by more than one step; external ones are not looked at.
class SvgEntities {
public:
    /// `budget` is how many bytes all replacements together may make.
    SvgEntities(std::string_view text, std::size_t budget);

    /// `value` with its entities replaced; `value` itself when there are none or the budget is
    /// spent. Lives as long as this.
    std::string_view replaced(std::string_view value);

private:
    std::unordered_map<std::string_view, std::string_view> entities;
    std::unordered_map<const char*, std::string_view> known;  // by where a value begins
    std::deque<std::string> results;
    std::size_t remaining;
};

}  // namespace quorin
