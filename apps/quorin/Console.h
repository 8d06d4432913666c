#pragma once

#include <string>
#include <string_view>

namespace quorin::app {

/// Sends text to standard output.
void print(std::string_view text);

/// From now on each line goes off when it ends, into a pipe too. To be called before anything is
/// printed.
void sendLinesAtOnce();

/// Whether standard output did not take something; `finishOutput` will say so.
bool isOutputBroken();

/// Sends "quorin: `message`" to standard error, in one line whatever a file or an id is called.
void complain(std::string_view message);

/// Sends off what is still held back. Answers false, and says why on standard error, when standard
/// output did not take everything, for example on a full disk.
bool finishOutput();

/// The text with "?" for each control character, so that it can neither break a line nor steer a
/// terminal.
std::string oneLine(std::string_view text);

/// The text with "?" for each byte that is not part of a character in UTF-8. File names may be
/// anything, a JSON text may not.
std::string validUtf8(std::string_view text);

}  // namespace quorin::app
