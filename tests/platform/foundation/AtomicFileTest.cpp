#include "quorin/platform/foundation/AtomicFile.h"

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <thread>

#include "tests/TestSupport.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::AsNobody;
using test::FileSizeLimit;
using test::modeOf;
using test::TemporaryFolder;
using testing::ThrowsMessage;
namespace fs = std::filesystem;

auto reading(const std::string& path, std::size_t maximumSize = defaultMaximumFileSize) {
    return [=] { readFile(path, maximumSize); };
}
auto writing(const std::string& path, const std::string& bytes = "new") {
    return [=] { writeFileAtomically(path, bytes); };
}

TEST(ReadFile, givesAllBytes) {
    const TemporaryFolder folder;
    for (const std::size_t size : {0u, 1u, 65'535u, 65'536u, 65'537u, 300'000u}) {
        std::string bytes(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(i * 7 % 256);
        EXPECT_EQ(readFile(folder.file("some", bytes)), bytes) << size;
    }
}

TEST(ReadFile, readsFilesThatDoNotTellTheirSize) {
    EXPECT_THAT(readFile("/proc/self/status"), testing::HasSubstr("Name:"));

    const TemporaryFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string bytes(200'000, 'x');
    std::thread writer([&] { writeFileAtomically(pipe, bytes); });
    EXPECT_EQ(readFile(pipe), bytes);
    writer.join();
}

TEST(ReadFile, namesTheFileAndTheReason) {
    const TemporaryFolder folder;
    const std::string missing = folder / "missing.svg";
    EXPECT_THAT(reading(missing), ThrowsMessage<FileError>(missing + ": no such file"));
    EXPECT_THAT(reading(folder.path()),
                ThrowsMessage<FileError>(folder.path() + ": is a directory"));
    const std::string below = folder.file("file", "x") + "/below";
    EXPECT_THAT(reading(below), ThrowsMessage<FileError>(below + ": Not a directory"));
    try {
        readFile(missing);
    } catch (const FileError& error) {
        EXPECT_EQ(error.path(), missing);
        EXPECT_EQ(error.reason(), "no such file");
    }
}

TEST(ReadFile, saysWhenReadingIsNotPermitted) {
    const TemporaryFolder folder;
    const std::string secret = folder.file("secret", "x");
    fs::permissions(folder.path(), fs::perms(0755));
    fs::permissions(secret, fs::perms(0000));
    const AsNobody nobody;
    EXPECT_THAT(reading(secret), ThrowsMessage<FileError>(secret + ": permission denied"));
}

TEST(ReadFile, stopsAtTheLimit) {
    const TemporaryFolder folder;
    const std::string file = folder.file("five", "12345");
    EXPECT_EQ(readFile(file, 5), "12345");
    EXPECT_THAT(reading(file, 4),
                ThrowsMessage<FileError>(file + ": larger than the limit of 4 bytes"));
    EXPECT_THAT(reading("/dev/zero", 100'000),
                ThrowsMessage<FileError>("/dev/zero: larger than the limit of 100000 bytes"));
}

TEST(WriteFileAtomically, makesANewFileAsTheMaskAllows) {
    const TemporaryFolder folder;
    const mode_t before = umask(027);
    writeFileAtomically(folder / "new", std::string_view("a\0b", 3));
    umask(before);
    EXPECT_EQ(readFile(folder / "new"), std::string("a\0b", 3));
    EXPECT_EQ(modeOf(folder / "new"), 0640u);
    EXPECT_EQ(folder.count(), 1);
}

TEST(WriteFileAtomically, replacesAFileAndKeepsItsMode) {
    const TemporaryFolder folder;
    const std::string file = folder.file("file", "a longer text than the new one");
    for (const unsigned mode : {0600u, 0644u, 0666u, 0777u}) {
        fs::permissions(file, fs::perms(mode));
        writeFileAtomically(file, "new");
        EXPECT_EQ(readFile(file), "new");
        EXPECT_EQ(modeOf(file), mode);
    }
    EXPECT_EQ(folder.count(), 1);
}

TEST(WriteFileAtomically, leavesReadersOfTheOldFileTheOldFile) {
    const TemporaryFolder folder;
    const std::string file = folder.file("file", "old");
    std::ifstream reader(file);
    writeFileAtomically(file, "new");
    std::string text;
    reader >> text;
    EXPECT_EQ(text, "old");
}

TEST(WriteFileAtomically, replacesTheTargetOfASymbolicLink) {
    const TemporaryFolder folder;
    const std::string file = folder.file("file", "old");
    fs::create_symlink("file", folder / "link");
    writeFileAtomically(folder / "link", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(readFile(file), "new");
}

TEST(WriteFileAtomically, worksForNamesWithoutAFolderAndForLongNames) {
    const TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    writeFileAtomically("bare", "1");
    writeFileAtomically(std::string(255, 'n'), "2");
    fs::current_path(before);
    EXPECT_EQ(readFile(folder / "bare"), "1");
    EXPECT_EQ(readFile(folder / std::string(255, 'n')), "2");
}

TEST(WriteFileAtomically, takesAwayWhatOthersMayDoWithAPrivateFile) {
    const TemporaryFolder folder;
    const mode_t before = umask(0);
    writeFileAtomically(folder / "new", "1", {.privateToOwner = true});
    fs::permissions(folder.file("old", "1"), fs::perms(0664));
    writeFileAtomically(folder / "old", "2", {.privateToOwner = true});
    umask(before);
    EXPECT_EQ(modeOf(folder / "new"), 0600u);
    EXPECT_EQ(modeOf(folder / "old"), 0600u);
}

TEST(WriteFileAtomically, removesWhatAKilledSoleWriterLeft) {
    const TemporaryFolder folder;
    folder.file("file.tmp", "half");
    writeFileAtomically(folder / "file", "whole", {.isSoleWriter = true});
    EXPECT_EQ(readFile(folder / "file"), "whole");
    EXPECT_EQ(folder.count(), 1);
}

TEST(WriteFileAtomically, doesNotWriteThroughALinkInThePlaceOfTheTemporaryFile) {
    const TemporaryFolder folder;
    const std::string other = folder.file("other", "untouched");
    fs::create_symlink("other", folder / "file.tmp");
    writeFileAtomically(folder / "file", "new", {.isSoleWriter = true});
    EXPECT_EQ(readFile(other), "untouched");
    EXPECT_EQ(readFile(folder / "file"), "new");
}

TEST(WriteFileAtomically, failsWhereAFolderStandsInThePlaceOfTheTemporaryFile) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "file.tmp");
    EXPECT_THAT([&] { writeFileAtomically(folder / "file", "new", {.isSoleWriter = true}); },
                ThrowsMessage<FileError>((folder / "file") + ": File exists"));
}

TEST(ReadFileIfThere, givesNothingOnlyWhenNothingIsThere) {
    const TemporaryFolder folder;
    EXPECT_EQ(readFileIfThere(folder.file("some", "x")), "x");
    EXPECT_EQ(readFileIfThere(folder / "missing"), std::nullopt);
    EXPECT_EQ(readFileIfThere(folder / "missing/below"), std::nullopt);
    EXPECT_THAT([&] { readFileIfThere(folder.path()); }, testing::Throws<FileError>());
}

TEST(WriteFileAtomically, keepsTheOldFileWhenWritingFails) {
    const TemporaryFolder folder;
    const std::string file = folder.file("file", "old");
    {
        const FileSizeLimit limit(1'000);
        EXPECT_THAT(writing(file, std::string(2'000, 'x')),
                    ThrowsMessage<FileError>(file + ": File too large"));
        EXPECT_THAT(writing(folder / "other", std::string(2'000, 'x')),
                    testing::Throws<FileError>());
    }
    EXPECT_EQ(readFile(file), "old");
    EXPECT_EQ(folder.count(), 1);
}

TEST(WriteFileAtomically, namesTheFileAndTheReason) {
    const TemporaryFolder folder;
    EXPECT_THAT(writing(folder.path()),
                ThrowsMessage<FileError>(folder.path() + ": is a directory"));
    const std::string nowhere = folder / "nowhere/file";
    EXPECT_THAT(writing(nowhere), ThrowsMessage<FileError>(nowhere + ": no such folder"));
    const std::string below = folder.file("file", "x") + "/below";
    EXPECT_THAT(writing(below), ThrowsMessage<FileError>(below + ": Not a directory"));
    EXPECT_THAT(writing("/dev/full"),
                ThrowsMessage<FileError>("/dev/full: No space left on device"));
}

TEST(WriteFileAtomically, leavesProtectedFilesAndFoldersAlone) {
    const TemporaryFolder folder;
    const std::string file = folder.file("protected", "old");
    fs::permissions(folder.path(), fs::perms(0777));
    fs::permissions(file, fs::perms(0444));
    {
        const AsNobody nobody;
        EXPECT_THAT(writing(file), ThrowsMessage<FileError>(file + ": permission denied"));
    }
    fs::permissions(folder.path(), fs::perms(0555));
    {
        const AsNobody nobody;
        EXPECT_THAT(writing(folder / "new"),
                    ThrowsMessage<FileError>((folder / "new") + ": permission denied"));
    }
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(readFile(file), "old");
    EXPECT_EQ(folder.count(), 1);
}

TEST(WriteFileAtomically, doesNotMixTheTextsOfWritersAtOnce) {
    const TemporaryFolder folder;
    const std::string file = folder / "file";
    const auto writeMany = [&](char letter) {
        for (int i = 0; i < 20; ++i)
            writeFileAtomically(file, std::string(10'000, letter));
    };
    std::thread other(writeMany, 'b');
    writeMany('a');
    other.join();
    const std::string text = readFile(file);
    EXPECT_EQ(text, std::string(10'000, text.at(0)));
    EXPECT_EQ(folder.count(), 1);
}

}  // namespace
}  // namespace quorin
