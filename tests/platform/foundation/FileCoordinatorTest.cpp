#include "quorin/platform/foundation/FileCoordinator.h"

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::TemporaryFolder;
using testing::ThrowsMessage;
namespace fs = std::filesystem;
using namespace std::chrono_literals;

class FileCoordinatorTest : public testing::Test {
protected:
    const TemporaryFolder locks, folder;
    const FileCoordinator coordinator{locks.path()};
    const std::string file = folder.file("document", "old");
    std::atomic<bool> isInside = false;

    void read(const std::string& path) {
        coordinator.coordinateReadingItem(path, [&](const std::string&) { isInside = true; });
    }
    void write(const std::string& path) {
        coordinator.coordinateWritingItem(path, [&](const std::string&) { isInside = true; });
    }
};

TEST_F(FileCoordinatorTest, callsTheAccessorOnceWithTheRealPath) {
    fs::create_symlink("document", folder / "link");
    std::vector<std::string> paths;
    const auto note = [&](const std::string& path) { paths.push_back(path); };
    const std::string real = fs::canonical(file);
    coordinator.coordinateReadingItem(file, note);
    coordinator.coordinateReadingItem(folder / "link", note);
    coordinator.coordinateWritingItem(
        folder / "./../" + fs::path(folder.path()).filename().string() + "//document", note);
    EXPECT_EQ(paths, std::vector<std::string>(3, real));
}

TEST_F(FileCoordinatorTest, takesDocumentsThatAreStillToBeMade) {
    std::string given;
    const auto note = [&](const std::string& path) { given = path; };
    coordinator.coordinateWritingItem(folder / "new///", note);
    EXPECT_EQ(given, fs::canonical(folder.path()).string() + "/new");
    coordinator.coordinateWritingItem("bare", note);
    EXPECT_EQ(given, fs::current_path().string() + "/bare");
    coordinator.coordinateWritingItem(folder / "no/folder", note);
    EXPECT_EQ(given, folder / "no/folder");
}

TEST_F(FileCoordinatorTest, refusesAnEmptyPathAndAFolderOfLocksThatIsNone) {
    EXPECT_THROW(read(""), FileError);
    EXPECT_FALSE(isInside);
    const FileCoordinator nowhere(locks / "missing");
    EXPECT_THROW(nowhere.coordinateReadingItem(file, [](const std::string&) {}), FileError);
}

TEST_F(FileCoordinatorTest, letsReadersOverlap) {
    coordinator.coordinateReadingItem(file, [&](const std::string&) {
        std::thread(&FileCoordinatorTest_letsReadersOverlap_Test::read, this, file).join();
        EXPECT_TRUE(isInside);
    });
}

TEST_F(FileCoordinatorTest, keepsWritersOfOtherDocumentsApart) {
    const std::string other = folder.file("other", "");
    coordinator.coordinateWritingItem(file, [&](const std::string&) {
        std::thread([&] { write(other); }).join();
        EXPECT_TRUE(isInside);
    });
}

TEST_F(FileCoordinatorTest, letsAWriterWaitForAReaderAndAReaderForAWriter) {
    for (const bool isWriterFirst : {false, true}) {
        std::thread second;
        const auto body = [&](const std::string&) {
            isInside = false;
            second = std::thread([&] { isWriterFirst ? read(file) : write(file); });
            std::this_thread::sleep_for(20ms);
            EXPECT_FALSE(isInside);
        };
        isWriterFirst ? coordinator.coordinateWritingItem(file, body)
                      : coordinator.coordinateReadingItem(file, body);
        second.join();
        EXPECT_TRUE(isInside);
    }
}

TEST_F(FileCoordinatorTest, neverShowsReadersAHalfWrittenDocument) {
    const auto writeMany = [&](char letter) {
        for (int i = 0; i < 50; ++i)
            coordinator.coordinateWritingItem(file, [&](const std::string& path) {
                std::ofstream(path, std::ios::binary) << std::string(5'000, letter);
            });
    };
    writeMany('a');
    std::thread other(writeMany, 'b');
    for (int i = 0; i < 100; ++i)
        coordinator.coordinateReadingItem(file, [&](const std::string& path) {
            const std::string text = readFile(path);
            EXPECT_EQ(text, std::string(5'000, text.empty() ? '?' : text[0]));
        });
    other.join();
}

TEST_F(FileCoordinatorTest, goesOnAtOnceInsideAnAccessOfTheSameThread) {
    coordinator.coordinateWritingItem(file, [&](const std::string&) {
        read(file);
        EXPECT_TRUE(isInside.exchange(false));
        write(file);
        EXPECT_TRUE(isInside.exchange(false));
    });
    coordinator.coordinateReadingItem(file, [&](const std::string&) {
        read(file);
        EXPECT_TRUE(isInside.exchange(false));
        EXPECT_THAT(
            [&] { write(file); },
            ThrowsMessage<FileError>(file + ": cannot be written while it is being read here"));
        EXPECT_FALSE(isInside);
    });
    write(file);
    EXPECT_TRUE(isInside);
}

TEST_F(FileCoordinatorTest, letsGoWhenTheAccessorThrows) {
    const auto fail = [](const std::string&) { throw std::runtime_error("no"); };
    EXPECT_THROW(coordinator.coordinateWritingItem(file, fail), std::runtime_error);
    EXPECT_THROW(coordinator.coordinateReadingItem(file, fail), std::runtime_error);
    std::thread([&] { write(file); }).join();
    EXPECT_TRUE(isInside);
}

TEST_F(FileCoordinatorTest, waitsForAWriterInAnotherProcessUntilThatIsKilled) {
    int ready[2] = {};
    ASSERT_EQ(pipe(ready), 0);
    const pid_t writer = fork();
    if (writer == 0) {
        coordinator.coordinateWritingItem(file, [&](const std::string&) {
            if (::write(ready[1], "!", 1) == 1)
                pause();
        });
        _exit(0);
    }
    char sign = 0;
    EXPECT_EQ(::read(ready[0], &sign, 1), 1);
    std::thread reader([&] { read(file); });
    std::this_thread::sleep_for(20ms);
    EXPECT_FALSE(isInside);
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    reader.join();
    EXPECT_TRUE(isInside);
    close(ready[0]);
    close(ready[1]);
}

TEST_F(FileCoordinatorTest, isNotHeldUpByAProcessForkedInsideAnAccess) {
    pid_t child = 0;
    coordinator.coordinateWritingItem(file, [&](const std::string&) {
        child = fork();
        if (child == 0) {
            pause();
            _exit(0);
        }
    });
    std::thread([&] { write(file); }).join();
    EXPECT_TRUE(isInside);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST_F(FileCoordinatorTest, readsInFoldersThatNobodyMayWriteTo) {
    fs::permissions(folder.path(), fs::perms(0555));
    fs::permissions(locks.path(), fs::perms(0777));
    {
        const test::AsNobody nobody;
        read(file);
    }
    EXPECT_TRUE(isInside);
    fs::permissions(folder.path(), fs::perms(0755));
}

TEST_F(FileCoordinatorTest, leavesOneFileOfLocksAndNothingOpen) {
    const auto before = test::openFileCount();
    for (int i = 0; i < 100; ++i)
        write(folder / std::to_string(i));
    EXPECT_EQ(test::openFileCount(), before);
    EXPECT_EQ(locks.count(), 1);
    EXPECT_EQ(folder.count(), 1);
}

TEST(FileCoordinator, keepsItsLocksInTheRuntimeFolderOfTheUser) {
    const TemporaryFolder folder;
    const char* const before = std::getenv("XDG_RUNTIME_DIR");
    const std::string kept = before ? before : "";
    setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
    FileCoordinator().coordinateReadingItem("/", [](const std::string&) {});
    EXPECT_TRUE(fs::exists(folder / "quorin/coordination.lock"));
    EXPECT_EQ(test::modeOf(folder / "quorin"), 0700u);
    before ? setenv("XDG_RUNTIME_DIR", kept.c_str(), 1) : unsetenv("XDG_RUNTIME_DIR");
}

}  // namespace
}  // namespace quorin
