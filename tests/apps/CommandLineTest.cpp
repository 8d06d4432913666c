#include "quorin/Version.h"
#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedUsage;
using test::runQuorin;
using test::runQuorinAfter;
using test::TemporaryFolder;
using test::WentWell;
using testing::HasSubstr;
using testing::StartsWith;

const std::string commands[] = {"info",   "render", "convert", "shape",   "transform", "round",
                                "trim",   "hit",    "compare", "sheet",   "spring",    "device",
                                "digest", "field",  "reach",   "screens", "watch"};

TEST(CommandLine, helpsWithEveryCommandAndExamples) {
    const ProgramRun run = runQuorin({"--help"});
    EXPECT_THAT(run, WentWell());
    for (const std::string& command : commands)
        EXPECT_THAT(run.output, HasSubstr("\n  " + command + " "));
    EXPECT_THAT(run.output, HasSubstr("Examples:\n  quorin info icon.svg"));
}

TEST(CommandLine, helpsWithExamplesOfEachCommand) {
    for (const std::string& command : commands) {
        SCOPED_TRACE(command);
        const ProgramRun run = runQuorin({command, "--help"});
        EXPECT_THAT(run, WentWell());
        EXPECT_THAT(run.output, HasSubstr("Usage: quorin " + command));
        EXPECT_THAT(run.output, HasSubstr("\n  quorin " + command + " "));
    }
}

TEST(CommandLine, tellsItsVersion) {
    const ProgramRun run = runQuorin({"--version"});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output, std::string("quorin ") + QuorinGraphicsVersionString + "\n");
}

TEST(CommandLine, refusesToGuessWhatIsMissing) {
    EXPECT_THAT(runQuorin({}), RefusedUsage("A subcommand is required", "quorin"));
    EXPECT_THAT(runQuorin({"info"}), RefusedUsage("DRAWING is required", "quorin info"));
    EXPECT_THAT(runQuorin({"render", "a.svg"}), RefusedUsage("OUT is required", "quorin render"));
    EXPECT_THAT(runQuorin({"hit", "a.svg"}), RefusedUsage("--at is required", "quorin hit"));
}

TEST(CommandLine, refusesCommandsAndOptionsItDoesNotHave) {
    EXPECT_THAT(runQuorin({"paint"}), RefusedUsage("there is no command 'paint'", "quorin"));
    EXPECT_THAT(runQuorin({"info", "a.svg", "--colour"}),
                RefusedUsage("The following argument was not expected: --colour", "quorin info"));
    EXPECT_THAT(runQuorin({"convert", "a.svg", "b.svg", "c.svg"}),
                RefusedUsage("The following argument was not expected: c.svg", "quorin convert"));
}

TEST(CommandLine, readsOneOptionOnce) {
    EXPECT_EQ(runQuorin({"hit", "a.svg", "--at", "1,2", "--at", "3,4"}).exitCode, 2);
}

TEST(CommandLine, takesWhatFollowsTwoDashesAsNames) {
    const TemporaryFolder folder;
    folder.file("--json", test::sampleSvg);
    const ProgramRun run = runQuorinAfter("cd '" + folder.path() + "'", {"info", "--", "--json"});
    EXPECT_THAT(run, WentWell());
    EXPECT_THAT(run.output, StartsWith("--json: 20 by 10"));
}

TEST(CommandLine, readsNamesOfAnyCharacters) {
    const TemporaryFolder folder;
    for (const char* name : {"two words.svg", "Grüße 図.svg", "info", "it's \"odd\".svg"}) {
        const std::string file = folder.file(name, test::sampleSvg);
        const ProgramRun run = runQuorin({"info", file});
        EXPECT_THAT(run, WentWell());
        EXPECT_THAT(run.output, StartsWith(file + ": 20 by 10"));
    }
}

TEST(CommandLine, keepsAMessageInOneLineWhateverAFileIsCalled) {
    EXPECT_THAT(runQuorin({"info", "no\nsuch\x1b[31m\xc2\x9b.svg"}),
                test::RefusedInput("no?such?[31m?.svg: no such file"));
    EXPECT_THAT(runQuorin({"info", "a.svg", "--bad\n"}).errors,
                StartsWith("quorin: The following argument was not expected: --bad?\n"));
}

TEST(CommandLine, reportsOutputThatNobodyTakes) {
    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", test::sampleSvg);
    struct Row {
        const char* setup;
        const char* error;
    };
    const Row table[] = {
        {"exec >/dev/full", "quorin: standard output: No space left on device\n"},
        {"exec >&-", "quorin: standard output: Bad file descriptor\n"},
    };
    for (const auto& [setup, error] : table) {
        SCOPED_TRACE(setup);
        for (const std::vector<std::string>& arguments :
             {std::vector<std::string>{"info", file}, {"hit", file, "--at", "1,1"}, {"--help"}}) {
            const ProgramRun run = runQuorinAfter(setup, arguments);
            EXPECT_EQ(run.exitCode, 1);
            EXPECT_EQ(run.errors, error);
        }
    }
}

TEST(CommandLine, reportsAPipeThatIsClosed) {
    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", test::sampleSvg);
    const std::string pipe = folder / "pipe";
    // The reader of the pipe is gone before anything is written, and nothing is killed for it.
    const ProgramRun run = runQuorinAfter(
        "trap '' PIPE; mkfifo '" + pipe + "'; : <'" + pipe + "' & exec >'" + pipe + "'; wait",
        {"info", file});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "quorin: standard output: Broken pipe\n");
}

}  // namespace
}  // namespace quorin
