#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedInput;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;

class CompareCommand : public testing::Test {
protected:
    std::string drawing(const std::string& name, const std::string& content) const {
        return folder.file(name, "<svg xmlns='http://www.w3.org/2000/svg'>" + content + "</svg>");
    }

    const TemporaryFolder folder;
    const std::string line = drawing("line.svg", "<path d='M1 2 L3 4'/>");
};

TEST_F(CompareCommand, saysNothingOfDrawingsWithTheSameOutlines) {
    const std::string other =
        drawing("other.svg", "<path id='p' fill='red' d='m1,2 2,2'/><path d='M5 5'/>");
    const ProgramRun run = runQuorin({"compare", line, other});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output, "");
}

TEST_F(CompareCommand, tellsWhenAPointDiffersInItsLastBit) {
    const std::string other = drawing("other.svg", "<path d='M1 2 L3 4.000000000000001'/>");
    const ProgramRun run = runQuorin({"compare", line, other});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, line + " and " + other + " have different outlines\n");
    EXPECT_EQ(run.errors, "");
}

TEST_F(CompareCommand, namesTheDrawingThatCannotBeRead) {
    const std::string missing = folder / "missing.svg";
    EXPECT_THAT(runQuorin({"compare", line, missing}), RefusedInput(missing + ": no such file"));
    EXPECT_THAT(runQuorin({"compare", missing, line}), RefusedInput(missing + ": no such file"));
}

}  // namespace
}  // namespace quorin
