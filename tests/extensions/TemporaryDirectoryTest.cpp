#include "quorin/extensions/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>

#include "quorin/platform/foundation/AtomicFile.h"
#include "tests/TestSupport.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

namespace fs = std::filesystem;

/// Where temporary files go while it lives.
class TemporaryFilesIn {
public:
    explicit TemporaryFilesIn(const std::string& folder) {
        if (const char* const value = std::getenv("TMPDIR"))
            before = value;
        setenv("TMPDIR", folder.c_str(), 1);
    }
    ~TemporaryFilesIn() {
        before.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", before.c_str(), 1);
    }

private:
    std::string before;
};

TEST(TemporaryDirectory, isANewEmptyFolderOfTheUsersOwn) {
    const test::TemporaryFolder folder;
    const TemporaryFilesIn place(folder.path() + "/");
    const URL first = temporaryDirectory(), second = temporaryDirectory();
    EXPECT_NE(first, second);
    for (const URL& url : {first, second}) {
        EXPECT_TRUE(url.isFileURL());
        const std::string path = url.path();
        EXPECT_EQ(fs::path(path).parent_path(), folder.path());
        EXPECT_TRUE(fs::is_empty(path));
        EXPECT_EQ(test::modeOf(path), 0700u);
    }
}

TEST(TemporaryDirectory, standsWhereTemporaryFilesDoUnlessToldAnAbsolutePlace) {
    for (const std::string place : {"", "relative"}) {
        const TemporaryFilesIn here(place);
        const std::string path = temporaryDirectory().path();
        EXPECT_EQ(fs::path(path).parent_path(), "/tmp");
        fs::remove(path);
    }
}

TEST(TemporaryDirectory, isFoundBelowANameThatNeedsEscapes) {
    const test::TemporaryFolder folder;
    fs::create_directory(folder / "größe 1%\xFF");
    const TemporaryFilesIn place(folder / "größe 1%\xFF");
    const URL url = temporaryDirectory();
    EXPECT_TRUE(fs::is_directory(url.path()));
    EXPECT_EQ(URL::parse(url.absoluteString()), url);
}

TEST(TemporaryDirectory, saysWhereItCannotBeMade) {
    const test::TemporaryFolder folder;
    const TemporaryFilesIn place(folder / "missing");
    EXPECT_THAT([] { temporaryDirectory(); },
                testing::ThrowsMessage<FileError>((folder / "missing") + ": no such file"));
}

}  // namespace
}  // namespace quorin
