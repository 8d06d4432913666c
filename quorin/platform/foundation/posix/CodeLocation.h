#pragma once

#include <string>

namespace quorin {

/// The folder of the shared library that this code is in, or of the program when it was linked
/// into that, with all links followed. Empty when the system does not tell.
std::string codeFolder();

}  // namespace quorin
