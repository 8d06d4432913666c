#include "quorin/platform/foundation/Bundle.h"

#include <filesystem>
#include <string>

#include "tests/TestSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::TemporaryFolder;

TEST(Bundle, findsAFileByNameAndExtension) {
    const TemporaryFolder folder;
    const std::string file = folder.file("a resource.json", "");
    const auto url = Bundle(folder.path()).resourceURL("a resource", "json");
    ASSERT_TRUE(url.has_value());
    EXPECT_TRUE(url->isFileURL());
    EXPECT_EQ(url->path(), file);
}

TEST(Bundle, hasNothingOfAnotherNameOrExtension) {
    const TemporaryFolder folder;
    folder.file("screens.json", "");
    const Bundle bundle(folder.path());
    EXPECT_EQ(bundle.resourceURL("screens", "txt"), std::nullopt);
    EXPECT_EQ(bundle.resourceURL("Screens", "json"), std::nullopt);
    EXPECT_EQ(bundle.resourceURL("screens.json", ""), std::nullopt);
    EXPECT_EQ(bundle.resourceURL("", "json"), std::nullopt);
}

TEST(Bundle, withoutAFolderHasNothing) {
    const TemporaryFolder folder;
    EXPECT_EQ(Bundle(folder / "missing").resourceURL("screens", "json"), std::nullopt);
    const std::string file = folder.file("file", "");
    EXPECT_EQ(Bundle(file).resourceURL("screens", "json"), std::nullopt);
    EXPECT_EQ(Bundle("").resourceURL("etc/ld.so", "conf"), std::nullopt);
}

TEST(Bundle, ofTheLibraryIsOneFolderAtAnAbsolutePath) {
    const std::filesystem::path folder = Bundle::library().folder();
    EXPECT_TRUE(folder.is_absolute());
    EXPECT_EQ(folder.filename(), "QuorinGraphics");
    EXPECT_EQ(folder, folder.lexically_normal());
    EXPECT_EQ(&Bundle::library(), &Bundle::library());
}

}  // namespace
}  // namespace quorin
