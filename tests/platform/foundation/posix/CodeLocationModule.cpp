/// A shared library with the code of CodeLocation.cpp in it, for a test to load.
#include <cstddef>
#include <string>

#include "quorin/platform/foundation/posix/CodeLocation.h"

/// The length of the folder's name, of which `text` gets the first `capacity` bytes.
extern "C" __attribute__((visibility("default"))) std::size_t folderOfThisCode(
    char* text, std::size_t capacity) {
    return quorin::codeFolder().copy(text, capacity);
}
