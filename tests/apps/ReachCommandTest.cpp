#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedUsage;
using test::runQuorin;
using test::WentWell;

TEST(ReachCommand, tellsOfAnAddressOfThisMachine) {
    const ProgramRun run = runQuorin({"reach", "127.0.0.1"});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output, "127.0.0.1: reachable, local address\n");
}

TEST(ReachCommand, resolvesNames) {
    const ProgramRun run = runQuorin({"reach", "localhost"});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output, "localhost: reachable, local address\n");
}

TEST(ReachCommand, answersInTimeForANameThatNobodyHas) {
    const ProgramRun run = runQuorin({"reach", "nobody.invalid", "--timeout", "0.5"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, testing::AnyOf("nobody.invalid: not reachable\n",
                                           "nobody.invalid: not known, the name was not resolved "
                                           "in time\n"));
}

TEST(ReachCommand, refusesWhatIsNoHostAndNoTime) {
    EXPECT_THAT(runQuorin({"reach", ""}),
                RefusedUsage("HOST: expected a name or an address", "quorin reach"));
    EXPECT_THAT(runQuorin({"reach", "localhost", "--timeout", "0"}),
                RefusedUsage("--timeout: expected a number above 0, not '0'", "quorin reach"));
}

}  // namespace
}  // namespace quorin
