#include "quorin/platform/foundation/FileMonitor.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "quorin/platform/foundation/AtomicFile.h"
#include "tests/TestSupport.h"
#include "tests/support/ForkedProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;
using testing::ThrowsMessage;

void write(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void append(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary | std::ios::app) << bytes;
}

std::ptrdiff_t openDescriptors() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), {});
}

/// What the kernel watches for this process.
int kernelWatches() {
    int count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fdinfo")) {
        std::ifstream info(entry.path());
        for (std::string line; std::getline(info, line);)
            count += line.starts_with("inotify ") ? 1 : 0;
    }
    return count;
}

/// Runs the loop until something holds that has to come, however slow the machine is.
template <typename Condition>
bool comes(const Condition& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition() && std::chrono::steady_clock::now() < deadline)
        RunLoop::main()->run(0.05, true);
    return condition();
}

/// A monitor, and what it told.
class Monitored {
public:
    explicit Monitored(const std::string& path)
        : monitor(path, RunLoop::main(),
                  [this](const std::optional<FileState>& now) { told.push_back(now); }) {}

    /// Waits for the next call, and only for that one.
    std::optional<FileState> next() {
        const std::size_t count = told.size();
        EXPECT_TRUE(comes([&] { return told.size() > count; })) << "nothing was told";
        EXPECT_EQ(told.size(), count + 1);
        return told.empty() ? std::nullopt : told.back();
    }
    /// The size in the next call, nothing for a missing file.
    std::optional<std::uint64_t> nextSize() {
        const auto now = next();
        return now ? std::optional(now->size) : std::nullopt;
    }

    std::vector<std::optional<FileState>> told;
    FileMonitor monitor;
};

class FileMonitors : public testing::Test {
protected:
    /// Serves the loop for as long as a change would need to be told of twice.
    static void wait() { RunLoop::main()->run(0.2); }

    const TemporaryFolder folder;
    const std::string path = folder.file("a", "one");
};

TEST_F(FileMonitors, tellWhatIsThereAtFirst) {
    const Monitored file(path);
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    const FileState expected{
        status.st_dev, status.st_ino, 3,
        std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec};
    EXPECT_EQ(file.monitor.lastSeen(), expected);
    wait();
    EXPECT_TRUE(file.told.empty());
}

TEST_F(FileMonitors, tellOfWritingInPlace) {
    Monitored file(path);
    append(path, "two");
    EXPECT_EQ(file.nextSize(), 6);
    write(path, "1");
    EXPECT_EQ(file.nextSize(), 1);
    EXPECT_EQ(file.monitor.lastSeen(), file.told.back());
}

TEST_F(FileMonitors, tellOfTheWholeOfAFileThatIsWrittenInPieces) {
    Monitored file(path);
    write(path, "");
    int left = 8;
    RunLoopSource timer;
    timer = RunLoop::main()->addTimer(0.01, true, [&] {
        append(path, "piece");
        if (--left == 0)
            timer.cancel();
    });
    EXPECT_TRUE(comes([&] { return !file.told.empty() && file.told.back()->size == 40; }));
    EXPECT_LE(file.told.size(), 8u);
}

TEST_F(FileMonitors, tellOnceOfManyQuickWrites) {
    Monitored file(path);
    for (int i = 0; i < 300; ++i)
        append(path, "x");
    EXPECT_EQ(file.nextSize(), 303);
    wait();
    EXPECT_EQ(file.told.size(), 1u);
}

TEST_F(FileMonitors, tellOfAFileThatIsNeverLeftAlone) {
    Monitored file(path);
    const RunLoopSource writer = RunLoop::main()->addTimer(0.005, true, [&] { append(path, "x"); });
    file.next();
    file.next();
}

TEST_F(FileMonitors, tellOfAFileThatTakesThePlace) {
    Monitored file(path);
    for (const char* const bytes : {"new", "own", "now"}) {
        writeFileAtomically(path, bytes);
        EXPECT_EQ(file.nextSize(), 3);
    }
    append(path, "more");
    EXPECT_EQ(file.nextSize(), 7) << "of the file that is there now";
}

TEST_F(FileMonitors, tellOfAFileThatAppearsAndDisappears) {
    const std::string later = folder / "later";
    Monitored file(later);
    EXPECT_EQ(file.monitor.lastSeen(), std::nullopt);
    write(later, "now");
    EXPECT_EQ(file.nextSize(), 3);
    fs::remove(later);
    EXPECT_EQ(file.next(), std::nullopt);
    fs::rename(path, later);
    EXPECT_EQ(file.nextSize(), 3);
    fs::rename(later, path);
    EXPECT_EQ(file.next(), std::nullopt);
}

TEST_F(FileMonitors, waitForFoldersThatAreNotThereYet) {
    const std::string deep = folder / "x/y/z/deep";
    Monitored file(deep);
    fs::create_directory(folder / "x");
    wait();
    EXPECT_TRUE(file.told.empty());
    fs::create_directories(folder / "x/y/z");
    write(deep, "here");
    EXPECT_EQ(file.nextSize(), 4);
}

TEST_F(FileMonitors, followAFolderThatIsRenamedAndMadeAgain) {
    fs::create_directories(folder / "x/y");
    const std::string deep = folder / "x/y/deep";
    write(deep, "old");
    Monitored file(deep);

    fs::rename(folder / "x", folder / "away");
    EXPECT_EQ(file.next(), std::nullopt);
    fs::create_directories(folder / "x/y");
    write(deep, "newer");
    EXPECT_EQ(file.nextSize(), 5);
    append(folder / "away/y/deep", "nobody looks here any more");
    wait();
    EXPECT_EQ(file.told.size(), 2u);
}

TEST_F(FileMonitors, followAFolderThatIsRemovedAndMadeAgain) {
    fs::create_directories(folder / "x/y");
    const std::string deep = folder / "x/y/deep";
    write(deep, "old");
    Monitored file(deep);

    fs::remove_all(folder / "x");
    EXPECT_EQ(file.next(), std::nullopt);
    for (int round = 0; round < 3; ++round) {
        fs::create_directories(folder / "x/y");
        write(deep, "again");
        EXPECT_EQ(file.nextSize(), 5);
        fs::remove_all(folder / "x");
        EXPECT_EQ(file.next(), std::nullopt);
    }
}

TEST_F(FileMonitors, tellOnceOfAFolderThatIsReplacedInOneGo) {
    fs::create_directory(folder / "x");
    write(folder / "x/file", "old");
    fs::create_directory(folder / "y");
    write(folder / "y/file", "newer");
    Monitored file(folder / "x/file");
    fs::rename(folder / "x", folder / "z");
    fs::rename(folder / "y", folder / "x");
    EXPECT_EQ(file.nextSize(), 5);
}

TEST_F(FileMonitors, followSymbolicLinksThatPointElsewhere) {
    fs::create_directories(folder / "v1/sub");
    fs::create_directories(folder / "v2/sub");
    write(folder / "v1/sub/real", "1");
    write(folder / "v2/sub/real", "22");
    fs::create_symlink("v1", folder / "current");
    fs::create_symlink("../current/sub/../sub/real", folder / "v1/link");
    fs::create_symlink(folder / "v1/link", folder / "first");
    Monitored file(folder / "first");
    ASSERT_TRUE(file.monitor.lastSeen());
    EXPECT_EQ(file.monitor.lastSeen()->size, 1u);

    append(folder / "v1/sub/real", "11");
    EXPECT_EQ(file.nextSize(), 3) << "at the end of the links";

    fs::create_symlink("v2", folder / "next");
    fs::rename(folder / "next", folder / "current");
    EXPECT_EQ(file.nextSize(), 2) << "a link in the middle, replaced at once";

    append(folder / "v2/sub/real", "22");
    EXPECT_EQ(file.nextSize(), 4) << "behind the new link";

    fs::remove(folder / "first");
    EXPECT_EQ(file.next(), std::nullopt);
    fs::create_symlink("a", folder / "first");
    EXPECT_EQ(file.nextSize(), 3);
}

TEST_F(FileMonitors, takeLinksInACircleForAMissingFile) {
    fs::create_symlink("p", folder / "q");
    fs::create_symlink("q", folder / "p");
    Monitored file(folder / "p");
    EXPECT_EQ(file.monitor.lastSeen(), std::nullopt);
    fs::remove(folder / "q");
    write(folder / "q", "opened");
    EXPECT_EQ(file.nextSize(), 6);
}

TEST_F(FileMonitors, tellOfWritingUnderAnotherNameOfTheFile) {
    fs::create_directory(folder / "x");
    fs::create_hard_link(path, folder / "x/same");
    Monitored file(path);
    append(folder / "x/same", "more");
    EXPECT_EQ(file.nextSize(), 7);
}

TEST_F(FileMonitors, tellNothingOfNeighboursAndOfWhatLeavesTheFileAsItIs) {
    Monitored file(path);
    write(folder / "b", "neighbour");
    fs::rename(folder / "b", folder / "c");
    fs::create_directory(folder / "aa");
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_EQ(test::TemporaryFolder(folder.path()).count(), 0);
    wait();
    EXPECT_TRUE(file.told.empty());
    fs::remove(path);
    EXPECT_EQ(file.next(), std::nullopt);
}

TEST_F(FileMonitors, doNotRelyOnAStampThatWritingMayLeaveAsItIs) {
    // A time to come does for certain what two writes within one tick of the clock do by chance.
    const timespec future[2] = {{0, UTIME_OMIT}, {4'000'000'000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), future, 0), 0);
    Monitored file(path);
    write(path, "two");
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), future, 0), 0);
    EXPECT_EQ(file.nextSize(), 3);
    EXPECT_EQ(file.monitor.lastSeen()->modified, 4'000'000'000'000'000'000);
    fs::permissions(path, fs::perms::owner_read);
    wait();
    EXPECT_EQ(file.told.size(), 1u) << "nothing was written";
}

TEST_F(FileMonitors, lookAgainWhenTheKernelLostEvents) {
    std::ifstream limit("/proc/sys/fs/inotify/max_queued_events");
    int most = 0;
    limit >> most;
    ASSERT_GT(most, 0);
    if (most > 200'000)
        GTEST_SKIP() << "the queue is too long to fill it";
    Monitored file(path);
    for (int i = 0; i <= most / 2; ++i) {
        write(folder / "b", "");
        fs::remove(folder / "b");
    }
    write(path, "after the queue ran over");
    EXPECT_EQ(file.nextSize(), 24);
}

TEST_F(FileMonitors, mayBeStoppedInsideTheCall) {
    int calls = 0;
    std::optional<FileMonitor> monitor;
    monitor.emplace(path, RunLoop::main(), [&](const auto&) {
        ++calls;
        monitor->stop();
        EXPECT_FALSE(monitor->isActive());
    });
    EXPECT_TRUE(monitor->isActive());
    append(path, "x");
    EXPECT_TRUE(comes([&] { return calls > 0; }));
    append(path, "x");
    wait();
    EXPECT_EQ(calls, 1);
    monitor->stop();
}

TEST_F(FileMonitors, mayBeDestroyedInsideTheCall) {
    const std::string text = "kept by the closure itself, which has to live until it returns";
    std::string seen;
    std::unique_ptr<FileMonitor> monitor;
    monitor = std::make_unique<FileMonitor>(path, RunLoop::main(), [&, text](const auto&) {
        monitor.reset();
        seen = text;
    });
    append(path, "x");
    EXPECT_TRUE(comes([&] { return !seen.empty(); }));
    EXPECT_EQ(seen, text);
}

TEST_F(FileMonitors, tellNothingOnceTheyAreGone) {
    bool isTold = false;
    {
        const FileMonitor monitor(path, RunLoop::main(), [&](const auto&) { isTold = true; });
        append(path, "x");
        RunLoop::main()->run(0);  // the event is in, the quiet is not over
    }
    wait();
    EXPECT_FALSE(isTold);
}

TEST_F(FileMonitors, waitWithTheNextCallUntilOneThatRunsTheLoopIsBack) {
    int depth = 0, deepest = 0;
    std::vector<std::uint64_t> sizes;
    const FileMonitor monitor(path, RunLoop::main(), [&](const std::optional<FileState>& now) {
        deepest = std::max(deepest, ++depth);
        sizes.push_back(now->size);
        if (sizes.size() == 1) {
            append(path, "x");
            wait();
        }
        --depth;
    });
    append(path, "x");
    EXPECT_TRUE(comes([&] { return sizes.size() == 2; }));
    EXPECT_EQ(deepest, 1);
    EXPECT_THAT(sizes, testing::ElementsAre(4u, 5u));
}

TEST_F(FileMonitors, giveBackTheirDescriptors) {
    RunLoop::main()->run(0);
    const std::ptrdiff_t before = openDescriptors();
    for (int i = 0; i < 20; ++i) {
        Monitored file(path);
        writeFileAtomically(path, "x");
        if (i % 10 == 0)
            file.next();
        if (i % 2 == 0)
            file.monitor.stop();
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(FileMonitors, watchNothingButTheWayThatThePathTakesNow) {
    const int before = kernelWatches();
    fs::create_directory(folder / "x");
    fs::create_symlink("../a", folder / "x/link");
    Monitored file(folder / "first");
    const int withoutLink = kernelWatches();
    EXPECT_GT(withoutLink, before);
    fs::create_symlink("x/link", folder / "first");
    EXPECT_EQ(file.nextSize(), 3);
    EXPECT_EQ(kernelWatches(), withoutLink + 2) << "the folder x and the file";
    fs::remove(folder / "first");
    EXPECT_EQ(file.next(), std::nullopt);
    EXPECT_EQ(kernelWatches(), withoutLink);
    file.monitor.stop();
    EXPECT_EQ(kernelWatches(), before);
}

TEST_F(FileMonitors, takeARelativePathForTheOneThatItIsNow) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    Monitored file("./a");
    fs::current_path(before);
    append(path, "x");
    EXPECT_EQ(file.nextSize(), 4);
    EXPECT_THAT([] { const Monitored none(""); }, ThrowsMessage<FileError>(": no such file"));
}

TEST_F(FileMonitors, takeAFolderForAnotherWhenANameInItComesOrGoes) {
    Monitored file(folder.path() + "/");
    write(folder / "b", "");
    EXPECT_TRUE(file.next());
    fs::remove(folder / "b");
    EXPECT_TRUE(file.next());
    append(path, "x");
    wait();
    EXPECT_EQ(file.told.size(), 2u);
    EXPECT_TRUE(Monitored("/").monitor.lastSeen());
}

TEST_F(FileMonitors, lookEverySecondWhereAFolderCannotBeWatched) {
    fs::permissions(folder.path(), fs::perms(0311));  // to be entered, not listed
    const uid_t user = geteuid();
    ASSERT_TRUE(user != 0 || seteuid(65534) == 0) << "root may watch everything";
    Monitored file(folder / "later");
    ASSERT_EQ(seteuid(user), 0);
    write(folder / "later", "here");
    EXPECT_EQ(file.nextSize(), 4);
}

constexpr int forbidden = 77;

/// 0 when a monitor of the file says what a process would that may have only so many of something:
/// the beginning and the end of its message.
int whatIsSaidWithALimit(const std::string& path, const char* limit, int count,
                         const std::string& begin, const char* end) {
    return test::resultOf(test::forked([&] {
        // Limits of one's own.
        if (unshare(CLONE_NEWUSER) != 0)
            return forbidden;
        if (!(std::ofstream(std::string("/proc/sys/user/").append(limit)) << count << std::flush))
            return forbidden;
        try {
            const Monitored file(path);
        } catch (const FileError& error) {
            const std::string what = error.what();
            return what.starts_with(begin) && what.ends_with(end) ? 0 : 1;
        }
        return 2;
    }));
}

TEST_F(FileMonitors, sayWhichFileCannotBeWatchedForWantOfInstances) {
    const int result = whatIsSaidWithALimit(path, "max_inotify_instances", 0,
                                            path + ": cannot be watched: too many open files",
                                            "(fs.inotify.max_user_instances)");
    if (result == forbidden)
        GTEST_SKIP() << "this machine forbids limits of one's own";
    EXPECT_EQ(result, 0);
}

TEST_F(FileMonitors, sayWhichFileCannotBeWatchedForWantOfWatches) {
    // The folder takes more than one.
    const int result =
        whatIsSaidWithALimit(path, "max_inotify_watches", 1, path, "(fs.inotify.max_user_watches)");
    if (result == forbidden)
        GTEST_SKIP() << "this machine forbids limits of one's own";
    EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace quorin
