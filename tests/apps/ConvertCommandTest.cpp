#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::contents;
using test::ProgramRun;
using test::RefusedInput;
using test::runQuorin;
using test::runQuorinAfter;
using test::TemporaryFolder;
using test::WentWell;
using testing::HasSubstr;
using testing::StartsWith;

class ConvertCommand : public testing::Test {
protected:
    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", test::sampleSvg);
};

TEST_F(ConvertCommand, writesTheAnchorsOfADrawingAsJson) {
    const std::string json = folder / "a.json";
    const ProgramRun run = runQuorin({"convert", file, json});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output, "");
    JSONDecoder().decode(contents(json), [](Decoder& drawing) {
        EXPECT_EQ(drawing.decodeRect("viewBox"), CGRectMake(0, 0, 20, 10));
        EXPECT_EQ(drawing.recordCount("shapes"), 3u);
    });
}

TEST_F(ConvertCommand, keepsGeometryFromSvgToJsonAndBack) {
    const std::string json = folder / "a.json", again = folder / "again.svg";
    EXPECT_THAT(runQuorin({"convert", file, json}), WentWell());
    EXPECT_THAT(runQuorin({"convert", json, again}), WentWell());
    EXPECT_THAT(contents(again), HasSubstr("<svg"));
    EXPECT_THAT(runQuorin({"compare", file, again}), WentWell());
    EXPECT_THAT(runQuorin({"compare", json, again}), WentWell());
}

TEST_F(ConvertCommand, writesTheSameBytesForJsonThatItWrote) {
    const std::string json = folder / "a.json", again = folder / "again.json";
    EXPECT_THAT(runQuorin({"convert", file, json}), WentWell());
    EXPECT_THAT(runQuorin({"convert", json, again}), WentWell());
    EXPECT_EQ(contents(json), contents(again));
}

TEST_F(ConvertCommand, replacesADrawingByItself) {
    EXPECT_THAT(runQuorin({"convert", file, file}), WentWell());
    const std::string once = contents(file);
    EXPECT_NE(once, test::sampleSvg);
    EXPECT_THAT(runQuorin({"convert", file, file}), WentWell());
    EXPECT_EQ(contents(file), once);
}

TEST_F(ConvertCommand, takesEndingsInAnyCase) {
    const std::string json = folder / "A.JSON", svg = folder / "A.Svg";
    EXPECT_THAT(runQuorin({"convert", file, json}), WentWell());
    EXPECT_THAT(contents(json), StartsWith("{"));
    EXPECT_THAT(runQuorin({"convert", json, svg}), WentWell());
    EXPECT_THAT(contents(svg), HasSubstr("<svg"));
}

TEST_F(ConvertCommand, warnsOnceOfWhatIsLeftOut) {
    const std::string warned = folder.file(
        "b.svg", "<svg xmlns='http://www.w3.org/2000/svg'>\n<path d='M1 1 L2 x'/></svg>");
    const std::string output = folder / "b.json";
    const ProgramRun run = runQuorin({"convert", warned, output});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, StartsWith("quorin: " + warned + ":2: offset 58: path data: "));
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
    EXPECT_TRUE(std::filesystem::exists(output));
}

TEST_F(ConvertCommand, writesNothingUnderANameOfAnotherForm) {
    for (const char* name : {"a.png", "a", "json", ".svg.bak"}) {
        const std::string output = folder / name;
        EXPECT_THAT(runQuorin({"convert", file, output}),
                    RefusedInput(output + ": the name of a drawing to write must end in .svg or "
                                          ".json"));
        EXPECT_FALSE(std::filesystem::exists(output));
    }
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(ConvertCommand, looksAtTheNameOfTheOutputBeforeItReads) {
    const std::string output = folder / "a.png";
    EXPECT_THAT(runQuorin({"convert", folder / "missing.svg", output}).errors,
                StartsWith("quorin: " + output + ": "));
}

TEST_F(ConvertCommand, namesTheOutputThatCannotBeWritten) {
    const std::string missing = folder / "missing/a.json";
    EXPECT_THAT(runQuorin({"convert", file, missing}), RefusedInput(missing + ": no such folder"));
    const std::string under = file + "/a.json";
    EXPECT_THAT(runQuorin({"convert", file, under}), RefusedInput(under + ": Not a directory"));
    const std::string taken = folder / "taken.json";
    std::filesystem::create_directory(taken);
    EXPECT_THAT(runQuorin({"convert", file, taken}), RefusedInput(taken + ": is a directory"));
    EXPECT_EQ(folder.count(), 2);
}

TEST_F(ConvertCommand, leavesTheOldOutputWhenTheNewOneDoesNotFit) {
    const std::string output = folder.file("a.json", "as it was");
    // No file may grow at all, as on a disk that is full.
    const ProgramRun run = runQuorinAfter("trap '' XFSZ; ulimit -f 0", {"convert", file, output});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(contents(output), "as it was");
    EXPECT_EQ(folder.count(), 2) << "a temporary file was left behind";
}

TEST_F(ConvertCommand, reportsAFullDevice) {
    const std::string output = folder / "full.svg";
    std::filesystem::create_symlink("/dev/full", output);
    EXPECT_THAT(runQuorin({"convert", file, output}),
                RefusedInput(output + ": No space left on device"));
}

}  // namespace
}  // namespace quorin
