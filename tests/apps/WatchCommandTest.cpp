#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "quorin/platform/drawing/CGImage.h"
#include "quorin/platform/foundation/AtomicFile.h"
#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/OutputReader.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

namespace fs = std::filesystem;
using test::ProgramRun;
using test::RefusedInput;
using test::RefusedUsage;
using test::runQuorin;
using test::sizeOfPng;
using test::svgOf;
using test::TemporaryFolder;
using testing::Pair;
using testing::StartsWith;

/// What a program writes into one end can be read from the other.
class Pipe {
public:
    Pipe() { EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        close(ends[0]);
        close(ends[1]);
    }

    int out() const { return ends[0]; }
    int in() const { return ends[1]; }

private:
    int ends[2] = {-1, -1};
};

/// `quorin watch` at work. Both of its outputs come line by line.
class Watching {
public:
    explicit Watching(std::vector<std::string> arguments)
        : program(words(std::move(arguments)), lines.in(), complaints.in()) {}
    ~Watching() {
        if (!isEnded)
            program.sendSignal(SIGTERM);
    }

    std::string nextLine() { return output.nextLine(); }
    std::string nextComplaint() { return errors.nextLine(); }
    int end(int signal) {
        program.sendSignal(signal);
        return waitForExit();
    }
    int waitForExit() {
        isEnded = true;
        return program.waitForExit();
    }

private:
    static std::vector<std::string> words(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {test::quorinProgram, "watch"});
        return arguments;
    }

    Pipe lines, complaints;
    test::OutputReader output{lines.out()}, errors{complaints.out()};
    bool isEnded = false;
    test::RunningProgram program;
};

class WatchCommand : public testing::Test {
protected:
    static std::string page(const std::string& content) {
        return svgOf("width='20' height='10'", content);
    }
    void write(const std::string& text) const { std::ofstream(file) << text; }
    bool isRed(std::size_t x, std::size_t y) const {
        return CGImage::readPNG(picture)->pixelAt(x, y) == CGImage::Pixel{255, 0, 0, 255};
    }

    static constexpr const char* square = "<rect width='5' height='5' fill='red'/>";
    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", page(square));
    const std::string picture = file + ".png";
    const std::string first =
        file + ": size 20x10, paths 1, anchors 4, length 20, box 0,0 5x5; the picture is " +
        picture;
};

TEST_F(WatchCommand, paintsADrawingAgainWheneverItChanges) {
    Watching watching({file});
    EXPECT_EQ(watching.nextLine(), first);
    EXPECT_THAT(sizeOfPng(picture), Pair(20, 10));
    EXPECT_TRUE(isRed(4, 4));
    EXPECT_FALSE(isRed(9, 4));

    write(page("<rect width='10' height='5' fill='red'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": length 20 -> 30, box 0,0 5x5 -> 0,0 10x5");
    EXPECT_TRUE(isRed(9, 4));

    writeFileAtomically(file, svgOf("width='30' height='30'", "<path d='M1 2 L4 6'/>"));
    EXPECT_EQ(watching.nextLine(),
              file +
                  ": size 20x10 -> 30x30, anchors 4 -> 2, length 30 -> 5, box 0,0 10x5 -> "
                  "1,2 3x4");
    EXPECT_THAT(sizeOfPng(picture), Pair(30, 30));

    write(svgOf("width='30' height='30'", ""));
    EXPECT_EQ(watching.nextLine(),
              file + ": paths 1 -> 0, anchors 2 -> 0, length 5 -> 0, box 1,2 3x4 -> none");
}

TEST_F(WatchCommand, tellsOfChangesThatNoNumberShows) {
    Watching watching({file});
    watching.nextLine();
    write(page("<!-- the same --> <rect width='5' height='5' fill='#f00'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": unchanged drawing");
    write(page("<rect width='5' height='5' fill='blue'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": other paint");
    write(page("<path d='M0 5V0H5V5z' fill='blue'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": other outlines");
    write(page("<path d='M5 5V0H0V5z' fill='red'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": other outlines, other paint");
    write(page("<path id='box' d='M5 5V0H0V5z' fill='red'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": other names or details");
}

TEST_F(WatchCommand, keepsThePictureWhileTheDrawingCannotBeRead) {
    Watching watching({file});
    watching.nextLine();
    write("<svg xmlns='http://www.w3.org/2000/svg'>\n<path");
    EXPECT_THAT(watching.nextComplaint(), StartsWith("quorin: " + file + ":2: "));
    fs::remove(file);
    EXPECT_EQ(watching.nextComplaint(), "quorin: " + file + ": no such file; the picture stays");
    EXPECT_TRUE(isRed(4, 4));
    write(page("<rect width='6' height='5' fill='red'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": length 20 -> 22, box 0,0 5x5 -> 0,0 6x5")
        << "compared with the last drawing that could be read";
    EXPECT_TRUE(isRed(5, 4));
    EXPECT_EQ(folder.count(), 2) << "a temporary file was left behind";
}

TEST_F(WatchCommand, waitsForADrawingToBecomeReadable) {
    write("<svg");
    Watching watching({file, "--count", "1"});
    EXPECT_THAT(watching.nextComplaint(), testing::EndsWith("; no picture yet"));
    EXPECT_FALSE(fs::exists(picture));
    write(page(square));
    EXPECT_EQ(watching.nextLine(), first);
    EXPECT_EQ(watching.waitForExit(), 0);
}

TEST_F(WatchCommand, complainsOfAPictureThatCannotBeWrittenAndGoesOn) {
    fs::create_directory(folder / "out");
    const std::string output = folder / "out/b.png";
    Watching watching({file, "--output", output});
    watching.nextLine();
    fs::remove_all(folder / "out");
    write(page("<rect width='6' height='5'/>"));
    EXPECT_EQ(watching.nextComplaint(), "quorin: " + output + ": no such folder");
    fs::create_directory(folder / "out");
    write(page("<rect width='7' height='5'/>"));
    EXPECT_EQ(watching.nextLine(), file + ": length 20 -> 24, box 0,0 5x5 -> 0,0 7x5");
    EXPECT_TRUE(fs::exists(output));
}

TEST_F(WatchCommand, saysOnceWhatIsLeftOut) {
    write(page("<text>a</text>"));
    Watching watching({file});
    const std::string warning = watching.nextComplaint();
    EXPECT_THAT(warning, StartsWith("quorin: " + file + ":1: "));
    watching.nextLine();
    write(page("\n\n<text>b</text>"));
    EXPECT_EQ(watching.nextLine(), file + ": unchanged drawing");
    write(page("<image/>"));
    EXPECT_THAT(watching.nextComplaint(), testing::HasSubstr("image"));
}

TEST_F(WatchCommand, endsWellWhenAskedTo) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        Watching watching({file});
        watching.nextLine();
        EXPECT_EQ(watching.end(signal), 0) << signal;
    }
    write("<svg");
    Watching watching({file});
    watching.nextComplaint();
    EXPECT_EQ(watching.end(SIGTERM), 0) << "whatever the drawing is like";
}

TEST_F(WatchCommand, endsAfterSoManyChanges) {
    Watching watching({file, "--count", "2", "--size", "40"});
    watching.nextLine();
    EXPECT_THAT(sizeOfPng(picture), Pair(40, 20));
    write(page(""));
    watching.nextLine();
    write("<svg");
    EXPECT_THAT(watching.nextComplaint(), testing::EndsWith("; the picture stays"));
    EXPECT_EQ(watching.waitForExit(), 1) << "the last drawing was not painted";
}

TEST_F(WatchCommand, refusesWhatItCannotBeginWith) {
    const std::string missing = folder / "missing.svg";
    EXPECT_THAT(runQuorin({"watch", missing}), RefusedInput(missing + ": no such file"));
    EXPECT_THAT(runQuorin({"watch", folder.path()}),
                RefusedInput(folder.path() + ": is a directory"));
    EXPECT_THAT(runQuorin({"watch", file, "--output", "a.jpg"}),
                RefusedInput("a.jpg: the name of a picture to write must end in .png"));
    const std::string nowhere = folder / "no/a.png";
    EXPECT_THAT(runQuorin({"watch", file, "--output", nowhere}),
                RefusedInput(nowhere + ": no such folder"));
    EXPECT_THAT(runQuorin({"watch", file, "--count", "0"}),
                RefusedUsage("--count: expected a whole number from 1 to 1000000000, not '0'",
                             "quorin watch"));
    EXPECT_EQ(folder.count(), 1);
}

}  // namespace
}  // namespace quorin
