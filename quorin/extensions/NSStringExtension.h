#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/PathText.h"

/// Names of files and other texts. `pathComponents`, `lastPathComponent`, `pathExtension`,
/// `deletingPathExtension` and `appendingPathComponent` come from PathText.h. Bytes that are no
/// UTF-8 stay in what comes out wherever nothing else is said. Everything takes time in proportion
/// to its input.
namespace quorin {

/// The text, or when `within` has it already, whatever its case, the text with the first free
/// number: "Frame 1" for "Frame" among "frame". A number that the text ends in, with blanks before
/// it, is replaced. Names are compared in lower case by the full Unicode rules; accents count
/// alike however they are encoded, and what is no UTF-8 counts as U+FFFD.
std::string uniqueName(std::string_view text, std::span<const std::string> within);

/// `photo-2x.png` for `photo.png` and `2x`. A name without an extension gets the dot too.
std::string appendingSuffix(std::string_view fileName, std::string_view suffix);

/// `appendingPathExtension`.
std::optional<std::string> apendingPathExtension(std::string_view path,
                                                 std::string_view pathExtension);

/// Without every "to.", and then without every "from.", that stands anywhere in it. One that is
/// formed only by a removal stays.
std::string deletingScreenPrefix(std::string_view text);

/// With "_" for every backslash, slash and colon.
std::string removingUnsafeFilenameCharacter(std::string_view text);

/// Without the listed characters. A character is what a reader takes for one, an accented letter
/// for example, however it is encoded; a text in the list that is more than one removes nothing.
std::string stripCharacters(std::string_view text, std::span<const std::string> in);

/// Whether the whole text, to its last byte, has the form of an address of mail, with letters and
/// digits of any script.
bool isEmailAddress(std::string_view text);

/// The bytes that runs of one or two hexadecimal digits of either case stand for, taken from left
/// to right; every other character ends a run. Nothing when there is no digit.
std::optional<std::vector<std::uint8_t>> hexadecimal(std::string_view text);

}  // namespace quorin
