#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>
#include <utility>

#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/OutputReader.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::OutputReader;
using test::RunningProgram;
using test::TemporaryFolder;
using testing::EndsWith;
using testing::HasSubstr;

/// A terminal that a program writes to, seen from the other side.
class Terminal {
public:
    Terminal() {
        EXPECT_EQ(openpty(&screen, &_line, nullptr, nullptr, nullptr), 0);
        reader = OutputReader(screen);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        hangUp();
        close(screen);
    }

    int line() const { return _line; }
    /// From now on only the program holds the line: when it ends, so does what can be read.
    void hangUp() {
        if (_line >= 0)
            close(std::exchange(_line, -1));
    }
    const std::string& readUntil(const std::string& text) { return reader.readUntil(text); }
    const std::string& readToTheEnd() { return reader.readToTheEnd(); }

private:
    int screen = -1, _line = -1;
    OutputReader reader{-1};
};

class Progress : public testing::Test {
protected:
    Progress() { EXPECT_EQ(mkfifo(slow.c_str(), 0600), 0); }

    /// Lets the program read on.
    void release() const { std::ofstream(slow) << test::sampleSvg; }

    const TemporaryFolder folder;
    const std::string quick = folder.file("quick.svg", test::sampleSvg);
    /// A drawing that takes as long to read as a test wants.
    const std::string slow = folder / "slow.svg";
    const test::OutputFile output{folder / "output"};
};

TEST_F(Progress, isShownOnATerminalWhileWorkTakesLongAndWipedAfterwards) {
    Terminal terminal;
    RunningProgram program({test::quorinProgram, "info", slow, quick}, output.descriptor,
                           terminal.line());
    terminal.hangUp();
    EXPECT_THAT(terminal.readUntil("reading 1 of 2"), HasSubstr("\rreading 1 of 2"));
    release();
    EXPECT_THAT(terminal.readToTheEnd(), EndsWith("\r\x1b[K"));
    EXPECT_EQ(program.waitForExit(), 0);
}

TEST_F(Progress, staysOutOfFiles) {
    const test::OutputFile errors(folder / "errors");
    RunningProgram program({test::quorinProgram, "info", slow, quick}, output.descriptor,
                           errors.descriptor);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));  // longer than a terminal waits
    release();
    EXPECT_EQ(program.waitForExit(), 0);
    EXPECT_EQ(test::contents(errors.path), "");
}

}  // namespace
}  // namespace quorin
