#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/NetworkNamespace.h"

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

TEST(ReachCommand, takesTheAddressOfAnyHostForAWayOutOfThisMachine) {
    test::inOwnNetwork([] {
        test::ip("link set lo up");
        for (const std::string any : {"0.0.0.0", "::"}) {
            const ProgramRun run = runQuorin({"reach", any});
            EXPECT_EQ(run.exitCode, 1);
            EXPECT_EQ(run.errors, "");
            EXPECT_EQ(run.output, any + ": not reachable\n");
        }
        test::ip("route add default dev lo");  // whose carrier is there at once
        for (const std::string any : {"0.0.0.0", "::"}) {
            const ProgramRun run = runQuorin({"reach", any});
            EXPECT_THAT(run, WentWell());
            EXPECT_EQ(run.output, any + ": reachable\n");
        }
    });
}

TEST(ReachCommand, tellsWhetherARouteLeadsToAnAddress) {
    test::inOwnNetwork([] {
        test::ip("link set lo up");
        test::ip("route add 192.0.2.0/24 dev lo");
        test::ip("route add unreachable 192.0.2.7");
        for (const std::string lost : {"192.0.2.7", "198.51.100.1", "2001:db8::1"}) {
            const ProgramRun run = runQuorin({"reach", lost});
            EXPECT_EQ(run.exitCode, 1);
            EXPECT_EQ(run.errors, "");
            EXPECT_EQ(run.output, lost + ": not reachable\n");
        }
        const ProgramRun run = runQuorin({"reach", "192.0.2.1"});
        EXPECT_THAT(run, WentWell());
        EXPECT_EQ(run.output, "192.0.2.1: reachable, direct\n");
    });
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
