#include "tests/TestSupport.h"

#include "quorin/Version.h"

#include <dlfcn.h>

#include <string>

namespace quorin {
namespace {

// What the build was configured with; the header and both symbols have come by other ways.
const std::string configured = QUORIN_TEST_VERSION;

TEST(Version, isTheOneTheBuildWasConfiguredWith) {
    EXPECT_EQ(QuorinGraphicsVersionString, configured);
}

TEST(Version, ofTheHeaderIsThatOfTheLibrary) {
    EXPECT_EQ(std::to_string(versionMajor) + "." + std::to_string(versionMinor) + "." +
                  std::to_string(versionPatch),
              configured);
}

TEST(Version, hasANumberThatReadsAsMajorAndMinor) {
    const std::string majorAndMinor = configured.substr(0, configured.rfind('.'));
    EXPECT_EQ(QuorinGraphicsVersionNumber, std::stod(majorAndMinor));
    EXPECT_GT(QuorinGraphicsVersionNumber, 0);
}

TEST(Version, isFoundByItsPlainSymbolNames) {
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "QuorinGraphicsVersionNumber"), &QuorinGraphicsVersionNumber);
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "QuorinGraphicsVersionString"), &QuorinGraphicsVersionString);
}

}  // namespace
}  // namespace quorin
