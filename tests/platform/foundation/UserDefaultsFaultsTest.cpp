#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>

#include "quorin/platform/foundation/UserDefaults.h"
#include "tests/TestSupport.h"
#include "tests/support/FileFaults.h"
#include "tests/support/ForkedProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::forked;
using test::resultOf;
using test::TemporaryFolder;
using testing::ThrowsMessage;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// A place in memory: a busy disk takes long to say that all is written, hundreds of times.
fs::path quickPlace() {
    return fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
}

std::string longText(char letter) { return std::string(20'000, letter); }

TEST(UserDefaultsFaults, leaveOldOrNewValuesWhereverAWriterIsKilled) {
    const TemporaryFolder folder(quickPlace());
    UserDefaults defaults(folder.path());
    defaults.set("kept", "by everybody");
    auto timeOfAWrite = Clock::duration(std::chrono::milliseconds(2));
    for (int i = 0; i < 4; ++i) {
        const auto begin = Clock::now();
        defaults.set("text", longText(i % 2 == 0 ? 'b' : 'a'));
        timeOfAWrite = std::min(timeOfAWrite, Clock::now() - begin);
    }

    constexpr int kills = 250;
    int olds = 0, news = 0;
    for (int i = 0; i < kills; ++i) {
        const char before = i % 2 == 0 ? 'a' : 'b', after = i % 2 == 0 ? 'b' : 'a';
        defaults.set("text", longText(before));
        int ready[2] = {};
        ASSERT_EQ(pipe(ready), 0);
        const pid_t writer = forked([&] {
            EXPECT_EQ(write(ready[1], "!", 1), 1);
            UserDefaults(folder.path()).set("text", longText(after));
            EXPECT_EQ(write(ready[1], "!", 1), 1);
            return pause();
        });
        char sign = 0;
        EXPECT_EQ(read(ready[0], &sign, 1), 1);
        // From the first instruction to well after the last, at a different one every time.
        std::this_thread::sleep_for(timeOfAWrite * i * 2 / kills);
        if (i + 1 == kills) {
            EXPECT_EQ(read(ready[0], &sign, 1), 1) << "the last one comes to its end";
        }
        close(ready[0]);
        close(ready[1]);
        kill(writer, SIGKILL);
        EXPECT_EQ(resultOf(writer), 1'000 + SIGKILL);

        const Value::Map values = defaults.values();
        ASSERT_EQ(values.size(), 2u);
        EXPECT_EQ(values.at("kept"), Value("by everybody"));
        const Value& text = values.at("text");
        ASSERT_TRUE(text == Value(longText('a')) || text == Value(longText('b')));
        ++(text == Value(longText(before)) ? olds : news);
    }
    // Otherwise the kills all missed the writing.
    EXPECT_GT(olds, 0);
    EXPECT_GT(news, 0);
    defaults.set("text", "at last");
    EXPECT_EQ(folder.count(), 2) << "a killed writer's temporary file stays until the next writer";
}

TEST(UserDefaultsFaults, loseNoKeysOfSeveralProcesses) {
    const TemporaryFolder folder(quickPlace());
    constexpr int processes = 4, keys = 12;
    std::vector<pid_t> writers;
    for (int i = 0; i < processes; ++i)
        writers.push_back(forked([&] {
            UserDefaults defaults(folder.path());
            for (int key = 0; key < keys; ++key)
                defaults.set(std::to_string(i) + '.' + std::to_string(key), key);
            return 0;
        }));
    for (const pid_t writer : writers)
        EXPECT_EQ(resultOf(writer), 0);
    EXPECT_EQ(UserDefaults(folder.path()).values().size(), std::size_t{processes * keys});
}

TEST(UserDefaultsFaults, loseNoKeysOfSeveralThreads) {
    const TemporaryFolder folder(quickPlace());
    const auto setKeys = [&](const std::string& name) {
        UserDefaults defaults(folder.path());
        for (int key = 0; key < 20; ++key)
            defaults.set(name + std::to_string(key), key);
    };
    std::thread other(setKeys, "other");
    setKeys("this");
    other.join();
    EXPECT_EQ(UserDefaults(folder.path()).values().size(), 40u);
}

TEST(UserDefaultsFaults, countTogether) {
    const TemporaryFolder folder(quickPlace());
    const auto count = [&] {
        UserDefaults defaults(folder.path());
        for (int i = 0; i < 20; ++i)
            defaults.change([](Value::Map& map) {
                map["count"] = Value(map["count"].asInteger().value_or(0) + 1);
            });
        return 0;
    };
    const pid_t other = forked(count);
    count();
    EXPECT_EQ(resultOf(other), 0);
    EXPECT_EQ(UserDefaults(folder.path()).value("count"), Value(40));
}

TEST(UserDefaultsFaults, failInAReadOnlyFolderAndLeaveTheOldFile) {
    const TemporaryFolder folder;
    UserDefaults defaults(folder.path());
    defaults.set("a", 1);
    const std::string before = readFile(defaults.path());
    fs::permissions(folder.path(), fs::perms(0555));
    fs::permissions(defaults.path(), fs::perms(0644));
    fs::permissions(defaults.path() + ".lock", fs::perms(0666));
    {
        const test::AsNobody nobody;
        EXPECT_EQ(defaults.value("a"), Value(1));
        EXPECT_THAT([&] { defaults.set("a", 2); },
                    ThrowsMessage<FileError>(defaults.path() + ": permission denied"));
        UserDefaults below(folder / "below/quorin");
        EXPECT_TRUE(below.value("a").isNothing());
        EXPECT_THAT([&] { below.set("a", 2); },
                    ThrowsMessage<FileError>((folder / "below") + ": permission denied"));
    }
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(readFile(defaults.path()), before);
    EXPECT_EQ(folder.count(), 2);
}

TEST(UserDefaultsFaults, failWhereAFileStandsInThePlaceOfTheFolder) {
    const TemporaryFolder folder;
    UserDefaults defaults(folder.file("file", "") + "/quorin");
    EXPECT_THROW(defaults.set("a", 1), FileError);
    EXPECT_THROW(UserDefaults(folder / "file").set("a", 1), FileError);
}

TEST(UserDefaultsFaults, failWhereTheyMayNotBeRead) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0777));
    const std::string file = folder.file("defaults.json", "{\"a\": 1}");
    fs::permissions(file, fs::perms(0000));
    UserDefaults defaults(folder.path());
    {
        const test::AsNobody nobody;
        EXPECT_THAT([&] { defaults.value("a"); },
                    ThrowsMessage<FileError>(file + ": permission denied"));
        EXPECT_THROW(defaults.set("b", 1), FileError);
    }
    EXPECT_EQ(readFile(file), "{\"a\": 1}");
}

TEST(UserDefaultsFaults, leaveTheOldFileWhenItCannotGrow) {
    const TemporaryFolder folder;
    UserDefaults defaults(folder.path());
    defaults.set("a", 1);
    {
        const test::FileSizeLimit limit(1'000);
        EXPECT_THAT([&] { defaults.set("b", longText('b')); },
                    ThrowsMessage<FileError>(defaults.path() + ": File too large"));
    }
    EXPECT_EQ(defaults.values(), (Value::Map{{"a", 1}}));
    EXPECT_EQ(folder.count(), 2);
}

/// Ends with 0 when all went as it should, with 77 where a disk of one's own is forbidden.
int useAFullDisk(const std::string& folder) {
    const uid_t user = geteuid();
    if (unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0 ||
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("small", folder.c_str(), "tmpfs", 0, "size=64k") != 0)
        return 77;
    UserDefaults defaults(folder);
    defaults.set("a", 1);
    const Value::Map before = defaults.values();
    for (int attempt = 0; attempt < 3; ++attempt)
        try {
            defaults.set("b", std::string(100'000, 'b'));
            return 1;
        } catch (const FileError& error) {
            if (error.reason() != "No space left on device" || defaults.values() != before)
                return 2;
        }
    // What was half written is gone, or there would be no room for this.
    defaults.set("c", longText('c'));
    return defaults.values().size() == 2 ? 0 : 3;
}

TEST(UserDefaultsFaults, leaveTheOldFileOnAFullDisk) {
    const TemporaryFolder folder;
    const int result = resultOf(forked([&] { return useAFullDisk(folder.path()); }));
    if (result == 77)
        std::puts("This machine forbids a disk of one's own: only a limit on sizes was tested.");
    EXPECT_TRUE(result == 0 || result == 77) << result;
}

TEST(UserDefaultsFaults, keepNoFilesOpen) {
    const TemporaryFolder folder;
    UserDefaults defaults(folder.path());
    const auto before = test::openFileCount();
    defaults.set("a", 1);
    defaults.value("a");
    EXPECT_THROW(defaults.set("b", CGPoint{}), std::runtime_error);
    const test::FileSizeLimit limit(100);
    EXPECT_THROW(defaults.set("b", longText('b')), FileError);
    EXPECT_EQ(test::openFileCount(), before);
}

}  // namespace
}  // namespace quorin
