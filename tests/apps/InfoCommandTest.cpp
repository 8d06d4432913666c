#include <cmath>
#include <map>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST(InfoCommand, listsThePathsOfOneDrawing) {
    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", test::sampleSvg);
    const ProgramRun run = runQuorin({"info", file});
    EXPECT_THAT(run, WentWell());
    const std::vector<std::string> lines = linesOf(run.output);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[0], file + ": 20 by 10, 3 shapes, 4 paths");
    EXPECT_THAT(wordsOf(lines[1]),
                ElementsAre("path", "anchors", "closed", "length", "x", "y", "width", "height",
                            "straight", "rectangle", "shape", "id"));
    EXPECT_THAT(wordsOf(lines[2]),
                ElementsAre("0", "4", "yes", "14", "1", "2", "4", "3", "no", "yes", "0", "box"));
    EXPECT_THAT(wordsOf(lines[3]),
                ElementsAre("1", "2", "no", "8", "8", "1", "0", "8", "yes", "no", "1", "line"));
    // 6π and 2π, with the little that cubics miss of circles.
    EXPECT_THAT(wordsOf(lines[4]), ElementsAre("2", "4", "yes", StartsWith("18.85"), "12", "2", "6",
                                               "6", "no", "no", "2"));
    EXPECT_THAT(wordsOf(lines[5]), ElementsAre("3", "4", "yes", StartsWith("6.28"), "14", "4", "2",
                                               "2", "no", "no", "2"));
}

TEST(InfoCommand, alignsItsColumns) {
    const TemporaryFolder folder;
    const ProgramRun run = runQuorin({"info", folder.file("a.svg", test::sampleSvg)});
    const std::vector<std::string> lines = linesOf(run.output);
    ASSERT_GT(lines.size(), 3u);
    EXPECT_EQ(lines[1].find("anchors") + 7, lines[2].find(" 4 ") + 2);
    EXPECT_EQ(lines[1].rfind("id"), lines[2].find("box"));
    EXPECT_EQ(lines[1].rfind("id"), lines[3].find("line"));
}

TEST(InfoCommand, sumsUpSeveralDrawingsInALineEach) {
    const TemporaryFolder folder;
    const std::string first = folder.file("a.svg", test::sampleSvg);
    const std::string second =
        folder.file("b.svg",
                    "<svg xmlns='http://www.w3.org/2000/svg'><line x1='1' y1='1' x2='4' y2='5'/>"
                    "<text/></svg>");
    const ProgramRun run = runQuorin({"info", first, second});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, StartsWith("quorin: " + second + ":1: offset "));
    EXPECT_THAT(run.errors, EndsWith("<text> is left out\n"));
    const std::vector<std::string> lines = linesOf(run.output);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_THAT(wordsOf(lines[1]), ElementsAre(first, "3", "4", "14", "3", "1", "1",
                                               StartsWith("47.1"), "1", "1", "17", "8"));
    EXPECT_THAT(wordsOf(lines[2]), ElementsAre(second, "1", "1", "2", "0", "1", "0", "5", "1", "1",
                                               "3", "4", "1", "warning"));
    EXPECT_THAT(wordsOf(lines[3]), ElementsAre("all", "2", "drawings", "4", "5", "16", "3", "2",
                                               "1", StartsWith("52.1"), "1", "warning"));
}

TEST(InfoCommand, listsEveryPathOfSeveralDrawingsWhenAsked) {
    const TemporaryFolder folder;
    const std::string first = folder.file("a.svg", test::sampleSvg);
    const std::string second = folder.file("b.svg", test::sampleSvg);
    const ProgramRun run = runQuorin({"info", "--paths", first, second});
    EXPECT_THAT(run, WentWell());
    EXPECT_THAT(run.output, StartsWith(first + ": 20 by 10, 3 shapes, 4 paths\npath"));
    EXPECT_THAT(run.output, HasSubstr("\n\n" + second + ": 20 by 10, 3 shapes, 4 paths\npath"));
}

TEST(InfoCommand, writesNumbersShortInTables) {
    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg",
                                         "<svg xmlns='http://www.w3.org/2000/svg'><path "
                                         "d='M-.00004 0 L1.23456 0 M0 -1.5 L1e20 -1.5'/></svg>");
    const std::vector<std::string> lines = linesOf(runQuorin({"info", file}).output);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_THAT(wordsOf(lines[2]), ElementsAre("0", "2", "no", "1.235", "-4e-05", "0", "1.235", "0",
                                               "yes", "no", "0"));
    EXPECT_THAT(wordsOf(lines[3]),
                ElementsAre("1", "2", "no", "1e+20", "0", "-1.5", "1e+20", "0", "yes", "no", "0"));
}

TEST(InfoCommand, saysWhenThereIsNoPath) {
    const TemporaryFolder folder;
    const std::string file =
        folder.file("a.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='3' height='4'/>");
    const ProgramRun run = runQuorin({"info", file});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output, file + ": 3 by 4, 0 shapes, 0 paths\n");
}

TEST(InfoCommand, printsExactNumbersAsJson) {
    const TemporaryFolder folder;
    const std::string file = folder.file(
        "a.svg",
        "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 3 4' width='6' height='8'>"
        "<path id='p' d='M.1 .2 L.4 .2'/></svg>");
    const ProgramRun run = runQuorin({"info", "--json", file});
    EXPECT_THAT(run, WentWell());
    JSONDecoder().decodeRecords(run.output, [&](Decoder& record, std::size_t index) {
        ASSERT_EQ(index, 0u);
        EXPECT_EQ(record.decodeText("file"), file);
        EXPECT_EQ(record.decodeSize("size"), (CGSize{6, 8}));
        EXPECT_EQ(record.decodeRect("viewBox"), CGRectMake(0, 0, 3, 4));
        EXPECT_EQ(record.decodeInt("shapes"), 1);
        EXPECT_EQ(record.decodeInt("anchors"), 2);
        EXPECT_EQ(record.recordCount("warnings"), 0u);
        EXPECT_EQ(record.decodeNumber("length"), 0.4 - 0.1);
        EXPECT_EQ(record.decodeRect("boundingBox"), CGRectMake(.1, .2, 0.4 - 0.1, 0));
        EXPECT_EQ(record.recordCount("paths"), 1u);
        record.decodeRecords("paths", [&](Decoder& path, std::size_t) {
            EXPECT_EQ(path.decodeText("id"), "p");
            EXPECT_EQ(path.decodeInt("shape"), 0);
            EXPECT_EQ(path.decodeInt("anchors"), 2);
            EXPECT_FALSE(path.decodeBool("isClosed"));
            EXPECT_TRUE(path.decodeBool("isStraight"));
            EXPECT_FALSE(path.decodeBool("isSimpleRectangle"));
            EXPECT_EQ(path.decodeNumber("length"), 0.4 - 0.1);
        });
    });
}

TEST(InfoCommand, leavesOutTheBoxOfNothing) {
    const TemporaryFolder folder;
    const std::string file =
        folder.file("a.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='3' height='4'/>");
    JSONDecoder().decodeRecords(runQuorin({"info", "--json", file}).output,
                                [](Decoder& record, std::size_t) {
                                    EXPECT_FALSE(record.contains("boundingBox"));
                                    EXPECT_EQ(record.decodeNumber("length"), 0);
                                });
}

TEST(InfoCommand, tellsProgramsOfWarningsAndErrorsInTheJson) {
    const TemporaryFolder folder;
    const std::string warned = folder.file(
        "a.svg", "<svg xmlns='http://www.w3.org/2000/svg'>\n<path d='M1 1 L2 x'/></svg>");
    const std::string missing = folder / "missing.svg";
    const ProgramRun run = runQuorin({"info", "--json", warned, missing});
    EXPECT_EQ(run.exitCode, 1);
    std::vector<std::string> errors;
    JSONDecoder().decodeRecords(run.output, [&](Decoder& record, std::size_t index) {
        if (index == 1)
            errors.push_back(record.decodeText("file") + ": " + record.decodeText("error"));
        else
            record.decodeRecords("warnings", [](Decoder& warning, std::size_t) {
                EXPECT_EQ(warning.decodeInt("line"), 2);
                EXPECT_EQ(warning.decodeInt("offset"), 58);
                EXPECT_THAT(warning.decodeText("message"), StartsWith("path data: "));
            });
    });
    EXPECT_THAT(errors, ElementsAre(missing + ": no such file"));
}

TEST(InfoCommand, printsJsonWhateverAFileIsCalled) {
    const ProgramRun run = runQuorin({"info", "--json",
                                      "Gr\xfc\xdf"
                                      "e.svg"});
    EXPECT_EQ(run.exitCode, 1);
    JSONDecoder().decodeRecords(run.output, [](Decoder& record, std::size_t) {
        EXPECT_EQ(record.decodeText("file"), "Gr??e.svg");
    });
}

TEST(InfoCommand, goesOnAfterADrawingItCannotRead) {
    const TemporaryFolder folder;
    const std::string good = folder.file("a.svg", test::sampleSvg);
    const std::string bad = folder.file("b.svg", "<svg xmlns='http://www.w3.org/2000/svg'>\n<g>");
    const ProgramRun run = runQuorin({"info", bad, good});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, StartsWith("quorin: " + bad + ":2: "));
    const std::vector<std::string> lines = linesOf(run.output);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_THAT(lines[1], AllOf(StartsWith(bad), HasSubstr(" not read: line 2: ")));
    EXPECT_THAT(lines[2], StartsWith(good));
    EXPECT_THAT(lines[3], AllOf(StartsWith("all 1 drawing "), EndsWith("0 warnings, 1 not read")));
}

TEST(InfoCommand, keepsTheOrderOfManyDrawings) {
    const TemporaryFolder folder;
    std::vector<std::string> arguments = {"info"};
    for (int i = 0; i < 100; ++i) {
        const std::string number = std::to_string(i);
        arguments.push_back(folder.file(
            number + ".svg",
            "<svg xmlns='http://www.w3.org/2000/svg'><path d='M0 0H" + number + "'/></svg>"));
    }
    const ProgramRun run = runQuorin(arguments);
    EXPECT_THAT(run, WentWell());
    const std::vector<std::string> lines = linesOf(run.output);
    ASSERT_EQ(lines.size(), 102u);
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_THAT(lines[i + 1], StartsWith(arguments[i + 1]));
        EXPECT_EQ(wordsOf(lines[i + 1])[7], std::to_string(i));
    }
}

TEST(InfoCommand, cannotPutAnIdInControlOfTheTerminal) {
    const TemporaryFolder folder;
    const std::string file = folder.file(
        "a.svg",
        "<svg xmlns='http://www.w3.org/2000/svg'><path id='a&#x9b;31m&#x7f;' d='M0 0H1'/></svg>");
    EXPECT_THAT(runQuorin({"info", file}).output, EndsWith("  a?31m?\n"));
}

}  // namespace
}  // namespace quorin
