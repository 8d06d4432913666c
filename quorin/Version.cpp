#include "quorin/Version.h"

// Ten would read as one tenth, and the numbers would no longer grow with the versions.
static_assert(quorin::versionMinor < 10, "the minor version has one digit in the number");

const double QuorinGraphicsVersionNumber =
    (10 * quorin::versionMajor + quorin::versionMinor) / 10.0;
const char QuorinGraphicsVersionString[] = QUORIN_VERSION;
