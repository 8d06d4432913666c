#include "quorin/extensions/DocumentThumbnail.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

#include "tests/TestSupport.h"
#include "tests/extensions/WrittenZip.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::claimingSize;
using test::TemporaryFolder;
using test::writtenZip;
using test::ZipEntry;
namespace fs = std::filesystem;

constexpr const char* entryName = "QuickLookPreview";

/// What the callback was given.
struct Answer {
    std::optional<std::string> data;
    std::string error;  ///< empty for none

    friend bool operator==(const Answer&, const Answer&) = default;
};
const Answer nothing;

void PrintTo(const Answer& answer, std::ostream* stream) {
    *stream << (answer.data ? "data of " + std::to_string(answer.data->size()) + " bytes" : "none")
            << ", error '" << answer.error << "'";
}

class DocumentThumbnail : public testing::Test {
protected:
    Answer thumbnail(const std::string& path, std::size_t maximumSize = 1'000'000) const {
        Answer answer;
        int calls = 0;
        quorinThumbnail(
            path,
            [&](const std::optional<std::string>& data, const std::optional<FileError>& error) {
                ++calls;
                answer = {data, error ? error->what() : ""};
            },
            {.maximumSize = maximumSize, .coordinator = &coordinator});
        EXPECT_EQ(calls, 1);
        return answer;
    }
    Answer failure(const std::string& path, const std::string& reason) const {
        return {std::nullopt, path + ": " + reason};
    }
    std::string zip(const std::vector<ZipEntry>& entries) const {
        return writtenZip(folder / "document.zip", entries);
    }
    std::string package() const {
        fs::create_directory(folder / "document");
        return folder / "document";
    }

    const TemporaryFolder locks, folder;
    const FileCoordinator coordinator{locks.path()};
    const std::string preview = "preview \0 bytes " + std::string(1'000, 'p');
};

TEST_F(DocumentThumbnail, isReadFromAFolder) {
    const std::string path = package();
    folder.file("document/QuickLookPreview", preview);
    EXPECT_EQ(thumbnail(path), (Answer{preview, ""}));
    EXPECT_EQ(thumbnail(path + "/"), (Answer{preview, ""}));
}

TEST_F(DocumentThumbnail, isReadFromAnArchive) {
    for (const zip_int32_t compression : {ZIP_CM_STORE, ZIP_CM_DEFLATE})
        EXPECT_EQ(thumbnail(zip({{"document.json", "{}"}, {entryName, preview, compression}})),
                  (Answer{preview, ""}));
}

TEST_F(DocumentThumbnail, mayBeEmpty) {
    EXPECT_EQ(thumbnail(zip({{entryName, ""}})), (Answer{"", ""}));
    const std::string path = package();
    folder.file("document/QuickLookPreview", "");
    EXPECT_EQ(thumbnail(path), (Answer{"", ""}));
}

TEST_F(DocumentThumbnail, isNothingWithoutAnErrorWhereThePackageHasNone) {
    EXPECT_EQ(thumbnail(package()), nothing);
    EXPECT_EQ(thumbnail(zip({{"document.json", "{}"}})), nothing);
}

TEST_F(DocumentThumbnail, isOnlyTheEntryOfExactlyItsName) {
    for (const char* name :
         {"../QuickLookPreview", "/QuickLookPreview", "./QuickLookPreview", "a/QuickLookPreview",
          "quicklookpreview", "QuickLookPreview.png", "QuickLookPreview/", "..\\QuickLookPreview"})
        EXPECT_EQ(thumbnail(zip({{name, name[std::strlen(name) - 1] == '/' ? "" : "x"}})), nothing)
            << name;
}

TEST_F(DocumentThumbnail, saysWhatIsNoPackage) {
    const std::string missing = folder / "missing";
    EXPECT_EQ(thumbnail(missing), failure(missing, "no such file"));
    for (const std::string text : {"", "no archive", "PK\x03\x04"}) {
        const std::string file = folder.file("text", text);
        EXPECT_EQ(thumbnail(file), failure(file, "not a document package")) << text;
    }
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(thumbnail(pipe), failure(pipe, "not a document package"));
    EXPECT_EQ(thumbnail(""), failure("", "no name of a file"));
}

TEST_F(DocumentThumbnail, saysWhatMayNotBeRead) {
    const std::string archive = zip({{entryName, preview}});
    fs::permissions(folder.path(), fs::perms(0755));
    fs::permissions(locks.path(), fs::perms(0777));
    fs::permissions(archive, fs::perms(0000));
    const test::AsNobody nobody;
    EXPECT_NE(thumbnail(archive).error, "");
}

TEST_F(DocumentThumbnail, isNoLinkNorFolderNorPipe) {
    const std::string path = package(), entry = path + "/QuickLookPreview";
    fs::create_symlink("/etc/passwd", entry);
    EXPECT_EQ(thumbnail(path), failure(entry, "is a link"));
    fs::remove(entry);
    fs::create_directory(entry);
    EXPECT_EQ(thumbnail(path), failure(entry, "not a file"));
    fs::remove(entry);
    ASSERT_EQ(mkfifo(entry.c_str(), 0600), 0);
    EXPECT_EQ(thumbnail(path), failure(entry, "not a file"));

    const std::string archive =
        zip({{entryName, "/etc/passwd", ZIP_CM_STORE, ZIP_EM_NONE, 0120777}});
    EXPECT_EQ(thumbnail(archive), failure(archive + "/QuickLookPreview", "is a link"));
}

TEST_F(DocumentThumbnail, isRefusedWhenItIsTooLarge) {
    const std::string path = package();
    folder.file("document/QuickLookPreview", "12345");
    EXPECT_EQ(thumbnail(path, 5).data, "12345");
    EXPECT_EQ(thumbnail(path, 4),
              failure(path + "/QuickLookPreview", "larger than the limit of 4 bytes"));

    const std::string archive = zip({{entryName, "12345"}});
    EXPECT_EQ(thumbnail(archive, 5).data, "12345");
    EXPECT_EQ(thumbnail(archive, 4),
              failure(archive + "/QuickLookPreview", "larger than the limit of 4 bytes"));
}

TEST_F(DocumentThumbnail, isNotUnpackedBeyondTheLimitWhateverTheArchiveClaims) {
    // A thousand times smaller than what it unpacks to.
    const std::string bomb = readFile(zip({{entryName, std::string(20'000'000, '\0')}}));
    ASSERT_LT(bomb.size(), 30'000u);
    for (const std::uint32_t claimed : {0u, 10u, 999'999u, 20'000'000u, 0xFFFFFFFEu}) {
        SCOPED_TRACE(claimed);
        const std::string path = folder.file("bomb.zip", claimingSize(bomb, claimed));
        const Answer answer = thumbnail(path);
        EXPECT_EQ(answer.data, std::nullopt);
        EXPECT_NE(answer.error, "");
    }
    const std::string truthful = folder.file("bomb.zip", bomb);
    EXPECT_EQ(thumbnail(truthful),
              failure(truthful + "/QuickLookPreview", "larger than the limit of 1000000 bytes"));
}

TEST_F(DocumentThumbnail, takesNoMemoryForASizeThatIsOnlyClaimed) {
    const std::string small = readFile(zip({{entryName, preview}}));
    const std::string path = folder.file("large.zip", claimingSize(small, 4'000'000'000u));
    rusage before{}, after{};
    ASSERT_EQ(getrusage(RUSAGE_SELF, &before), 0);
    EXPECT_NE(thumbnail(path, std::size_t{1} << 40).error, "");
    ASSERT_EQ(getrusage(RUSAGE_SELF, &after), 0);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 100'000) << "in kilobytes";
}

TEST_F(DocumentThumbnail, takesNoMemoryForEntriesThatAreOnlyClaimed) {
    const std::string path = folder.file("holes.zip", "");
    constexpr std::uint64_t entries = 10'000'000, directory = 46 * entries;
    fs::resize_file(path, directory);  // a hole: it takes no room on the disk
    std::ofstream(path, std::ios::app | std::ios::binary)
        << test::largeEndRecords(entries, directory);
    rusage before{}, after{};
    ASSERT_EQ(getrusage(RUSAGE_SELF, &before), 0);
    EXPECT_EQ(thumbnail(path), failure(path, "more entries than the limit of 100000"));
    ASSERT_EQ(getrusage(RUSAGE_SELF, &after), 0);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 50'000) << "in kilobytes";
}

TEST_F(DocumentThumbnail, looksForClaimsInEveryRecordThatAReaderMightBelieve) {
    const std::string first = test::largeEndRecords(100'001, 0) + test::endRecord(0, 0);
    const std::string path = folder.file("first.zip", first);
    EXPECT_EQ(thumbnail(path), failure(path, "more entries than the limit of 100000"));
    // The comment of one archive is the end of another.
    const std::string second = test::endRecord(0, 0, test::largeEndRecords(100'001, 22));
    const std::string other = folder.file("second.zip", second);
    EXPECT_EQ(thumbnail(other), failure(other, "more entries than the limit of 100000"));
}

TEST_F(DocumentThumbnail, isFoundAmongThousandsOfEntriesAndBehindALongComment) {
    std::vector<ZipEntry> entries;
    for (int i = 0; i < 3'000; ++i)
        entries.push_back({std::to_string(i), ""});
    entries.push_back({entryName, preview});
    const std::string path = zip(entries);
    EXPECT_EQ(thumbnail(path).data, preview);

    std::string bytes = readFile(zip({{entryName, preview}}));
    bytes.replace(bytes.size() - 2, 2, test::littleEndian(65'535, 2) + std::string(65'535, 'c'));
    EXPECT_EQ(thumbnail(folder.file("commented.zip", bytes)).data, preview);
}

TEST_F(DocumentThumbnail, isNotReadWhenItIsEncrypted) {
    const std::string path = zip({{entryName, preview, ZIP_CM_DEFLATE, ZIP_EM_AES_256}});
    EXPECT_EQ(thumbnail(path), failure(path + "/QuickLookPreview", "is encrypted"));
}

TEST_F(DocumentThumbnail, isAnErrorInAnArchiveThatEndsEarly) {
    const std::string whole = readFile(zip({{entryName, preview}}));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Answer answer = thumbnail(folder.file("cut.zip", whole.substr(0, length)));
        ASSERT_EQ(answer.data, std::nullopt) << length;
        ASSERT_NE(answer.error, "") << length;
    }
}

TEST_F(DocumentThumbnail, isWholeOrNothingWhicheverByteIsDamaged) {
    const std::string whole = readFile(zip({{entryName, preview}, {"document.json", "{}"}}));
    int errors = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const unsigned flipped : {0x01u, 0xFFu}) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(static_cast<unsigned char>(damaged[at]) ^ flipped);
            const Answer answer = thumbnail(folder.file("damaged.zip", damaged));
            ASSERT_TRUE(!answer.data || (answer.data == preview && answer.error.empty())) << at;
            errors += answer.error.empty() ? 0 : 1;
        }
    EXPECT_GT(errors, 30);
}

TEST_F(DocumentThumbnail, waitsForACoordinatedWriter) {
    const std::string path = package();
    std::atomic<bool> isWritten = false;
    std::thread reader;
    coordinator.coordinateWritingItem(path, [&](const std::string&) {
        reader = std::thread([&] {
            EXPECT_EQ(thumbnail(path).data, preview);
            EXPECT_TRUE(isWritten);
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        folder.file("document/QuickLookPreview", preview);
        isWritten = true;
    });
    reader.join();
}

TEST_F(DocumentThumbnail, letsItsCallbackWriteTheDocument) {
    const std::string path = package();
    bool isWritten = false;
    quorinThumbnail(path,
                    [&](const std::optional<std::string>&, const std::optional<FileError>&) {
                        coordinator.coordinateWritingItem(
                            path, [&](const std::string&) { isWritten = true; });
                    },
                    {.coordinator = &coordinator});
    EXPECT_TRUE(isWritten);
}

TEST_F(DocumentThumbnail, isCoordinatedInTheSessionUnlessTold) {
    const std::string path = zip({{entryName, preview}});
    quorinThumbnail(path, [&](const std::optional<std::string>& data,
                              const std::optional<FileError>&) { EXPECT_EQ(data, preview); });
}

TEST_F(DocumentThumbnail, leavesNothingOpen) {
    const std::string archive = zip({{entryName, preview}}), path = package();
    const std::string damaged = folder.file("cut.zip", readFile(archive).substr(0, 100));
    const auto before = test::openFileCount();
    for (const std::string& each : {archive, path, damaged, folder / "missing"})
        thumbnail(each, 10);
    EXPECT_EQ(test::openFileCount(), before);
}

}  // namespace
}  // namespace quorin
