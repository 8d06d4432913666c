#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorin {

/// The texts of a program in the language of its user. `comment` says to translators what a text
/// is for; a table may tell equal keys apart by it. Nothing for a text that it does not have.
using LocalizedStrings =
    std::function<std::optional<std::string>(std::string_view key, std::string_view comment)>;

/// Sets the table of the program that the library is part of, before the first text is shown; an
/// empty function takes it away. For one thread at a time.
void setMainLocalizedStrings(LocalizedStrings table);

/// The text for a key in the program's table; the key itself where there is none.
std::string localizedString(std::string_view key, std::string_view comment);

}  // namespace quorin
