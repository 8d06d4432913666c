#include "quorin/observation/Reachability.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <thread>

#include "quorin/observation/NotificationToken.h"
#include "quorin/platform/foundation/NSLog.h"
#include "quorin/platform/foundation/NSNotificationCenter.h"
#include "tests/TestSupport.h"
#include "tests/support/HeldResolver.h"
#include "tests/support/NetworkNamespace.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WrittenRoutingTable.h"

namespace quorin {
namespace {

using test::networkAddress;
using test::unicastRoute;
using testing::ElementsAre;

constexpr std::uint32_t transient = 1, reachable = 2, required = 4, onTraffic = 8,
                        intervention = 16, onDemand = 32, local = 65536, direct = 131072;

/// Hosts on a table that the test writes, and the log.
class ReachabilityTest : public testing::Test {
protected:
    std::shared_ptr<test::WrittenRoutingTable> table =
        std::make_shared<test::WrittenRoutingTable>();
    std::vector<std::string> lines;
    LogRedirection redirection{[this](std::string_view line) { lines.emplace_back(line); }};

    std::shared_ptr<Reachability> of(const char* text) {
        return Reachability::reachabilityWithHostName(text, {table});
    }
};

class Changes {
public:
    explicit Changes(const std::shared_ptr<Reachability>& sender)
        : observer(NSNotificationCenter::defaultCenter().addObserver(
              NSNotificationName("kNetworkReachabilityChangedNotification"), sender,
              [this](const NSNotification& note) {
                  ++count;
                  EXPECT_FALSE(note.userInfo().has_value());
                  if (stopsLoop)
                      RunLoop::main()->stop();
              })) {}
    ~Changes() { NSNotificationCenter::defaultCenter().removeObserver(observer); }

    int count = 0;
    bool stopsLoop = false;

private:
    std::shared_ptr<Object> observer;
};

TEST_F(ReachabilityTest, judgesFlags) {
    struct Row {
        const char* says;
        std::uint32_t flags;
        int status;
    };
    const Row table_[] = {
        {"none", 0, 0},
        {"reachable", reachable, 1},
        {"a connection has to be made by hand", reachable | required, 0},
        {"it is made on demand", reachable | required | onDemand, 1},
        {"it is made on traffic", reachable | required | onTraffic, 1},
        {"on demand, but not without help", reachable | required | onDemand | intervention, 0},
        {"help for a connection that is there", reachable | intervention, 1},
        {"help for one on demand that is there", reachable | onDemand | intervention, 1},
        {"on demand and there", reachable | onDemand, 1},
        {"all but reachable", ~reachable, 0},
        {"others do not matter", reachable | transient | local | direct, 1},
    };
    const auto any = of("192.0.2.1");
    for (const auto& [says, flags, status] : table_) {
        SCOPED_TRACE(says);
        EXPECT_EQ(static_cast<int>(any->networkStatusForFlags(flags)), status);
    }
}

TEST_F(ReachabilityTest, logsTheFlagsOfEveryJudgement) {
    const auto any = of("192.0.2.1");
    any->networkStatusForFlags(0);
    any->networkStatusForFlags(~0u);
    any->networkStatusForFlags(reachable | direct);
    for (const std::uint32_t flag : {transient, required, onTraffic, intervention, onDemand, local})
        any->networkStatusForFlags(flag);
    any->currentReachabilityStatus();
    const std::string start = "Reachability Flag Status: ", end = " networkStatusForFlags\n";
    EXPECT_THAT(lines, ElementsAre(start + "- -------" + end, start + "R tcCiDld" + end,
                                   start + "R ------d" + end, start + "- t------" + end,
                                   start + "- -c-----" + end, start + "- --C----" + end,
                                   start + "- ---i---" + end, start + "- ----D--" + end,
                                   start + "- -----l-" + end, start + "- -------" + end));
}

TEST(Reachability, writesItsLineToStandardErrorWithOneLineBreak) {
    const auto any = Reachability::reachabilityWithHostName(
        "192.0.2.1", {std::make_shared<test::WrittenRoutingTable>()});
    testing::internal::CaptureStderr();
    any->currentReachabilityStatus();
    any->networkStatusForFlags(reachable);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Reachability Flag Status: - ------- networkStatusForFlags\n"
              "Reachability Flag Status: R ------- networkStatusForFlags\n");
}

TEST_F(ReachabilityTest, logsNothingWhenTheSystemDoesNotAnswer) {
    table->isAnswering = false;
    const auto silent = of("192.0.2.1");
    EXPECT_EQ(silent->currentReachabilityStatus(), NetworkStatus::notReachable);
    EXPECT_FALSE(silent->connectionRequired());
    EXPECT_EQ(Reachability::reachabilityForInternetConnection({table})->currentReachabilityStatus(),
              NetworkStatus::notReachable);
    EXPECT_TRUE(lines.empty());
}

TEST_F(ReachabilityTest, asksForTheInternetByItsDefaultRoutes) {
    const auto internet = Reachability::reachabilityForInternetConnection({table});
    table->routes["0.0.0.0"] = {NetworkRoute::Kind::local, false, {.hasCarrier = true}};
    EXPECT_EQ(internet->currentReachabilityStatus(), NetworkStatus::notReachable);
    table->defaults = {unicastRoute(true, {}), NetworkRoute{}};
    EXPECT_EQ(internet->currentReachabilityStatus(), NetworkStatus::notReachable);
    table->defaults.push_back(unicastRoute(false));
    EXPECT_EQ(internet->currentReachabilityStatus(), NetworkStatus::reachable);
    EXPECT_EQ(lines.back(), "Reachability Flag Status: R ------- networkStatusForFlags\n");
}

TEST_F(ReachabilityTest, saysWhenAConnectionIsRequired) {
    table->routes["192.0.2.1"] = unicastRoute(true, {.hasCarrier = true, .isDormant = true});
    EXPECT_TRUE(of("192.0.2.1")->connectionRequired());
    EXPECT_EQ(of("192.0.2.1")->currentReachabilityStatus(), NetworkStatus::reachable);
    EXPECT_FALSE(of("192.0.2.2")->connectionRequired());
}

TEST_F(ReachabilityTest, refusesNamesAndAddressesThatAreNone) {
    using std::string_view_literals::operator""sv;
    EXPECT_EQ(Reachability::reachabilityWithHostName("", {table}), nullptr);
    EXPECT_EQ(Reachability::reachabilityWithHostName("a\0b"sv, {table}), nullptr);
    EXPECT_EQ(Reachability::reachabilityWithAddress(nullptr, {table}), nullptr);
    sockaddr other{};
    other.sa_family = AF_UNIX;
    EXPECT_EQ(Reachability::reachabilityWithAddress(&other, {table}), nullptr);
}

TEST_F(ReachabilityTest, takesAddressesOfBothFamilies) {
    table->routes["192.0.2.1"] = table->routes["2001:db8::1"] = unicastRoute(true);
    sockaddr_in four{};
    four.sin_family = AF_INET;
    inet_pton(AF_INET, "192.0.2.1", &four.sin_addr);
    sockaddr_in6 six{}, mapped{};
    six.sin6_family = mapped.sin6_family = AF_INET6;
    inet_pton(AF_INET6, "2001:db8::1", &six.sin6_addr);
    inet_pton(AF_INET6, "::ffff:192.0.2.1", &mapped.sin6_addr);
    for (const void* record : std::initializer_list<const void*>{&four, &six, &mapped})
        EXPECT_EQ(
            Reachability::reachabilityWithAddress(static_cast<const sockaddr*>(record), {table})
                ->currentReachabilityStatus(),
            NetworkStatus::reachable);
}

TEST_F(ReachabilityTest, postsItselfOnlyWhenTheFlagsHaveChanged) {
    const auto host = of("192.0.2.1"), other = of("192.0.2.2");
    const Changes changes(host), others(other);
    EXPECT_TRUE(host->startNotifier());
    EXPECT_TRUE(other->startNotifier());
    table->change();
    EXPECT_EQ(changes.count, 0);
    table->routes["192.0.2.1"] = unicastRoute(true);
    table->change();
    table->change();
    EXPECT_EQ(changes.count, 1);
    table->isAnswering = false;  // not knowing is no change
    table->change();
    table->isAnswering = true;
    table->change();
    EXPECT_EQ(changes.count, 1);
    table->routes.clear();
    table->change();
    EXPECT_EQ(changes.count, 2);
    EXPECT_EQ(others.count, 0);
}

TEST_F(ReachabilityTest, isSilentBeforeTheStartAndAfterTheStop) {
    const auto host = of("192.0.2.1");
    const Changes changes(host);
    table->routes["192.0.2.1"] = unicastRoute(true);
    table->change();
    EXPECT_TRUE(host->startNotifier());
    EXPECT_TRUE(host->startNotifier());
    host->stopNotifier();
    host->stopNotifier();
    table->routes.clear();
    table->change();
    EXPECT_EQ(changes.count, 0);
    EXPECT_TRUE(table->subscribers.empty());
}

TEST_F(ReachabilityTest, startedTwicePostsOnceUntilItIsStoppedOnce) {
    const auto host = of("192.0.2.1");
    const Changes changes(host);
    EXPECT_TRUE(host->startNotifier());
    EXPECT_TRUE(host->startNotifier());
    table->routes["192.0.2.1"] = unicastRoute(true);
    table->change();
    EXPECT_EQ(changes.count, 1);
    host->stopNotifier();
    table->routes.clear();
    table->change();
    EXPECT_EQ(changes.count, 1);
}

TEST_F(ReachabilityTest, postsItselfWhenItIsCalledBack) {
    const auto host = of("192.0.2.1"), other = of("192.0.2.1");
    const Changes changes(host), others(other);
    const auto target = SCNetworkReachability::createWithName("192.0.2.1", {table});
    ReachabilityCallback(*target, reachable, host);
    EXPECT_EQ(changes.count, 1);
    EXPECT_EQ(others.count, 0);
    EXPECT_THAT(lines, testing::IsEmpty()) << "a status is judged when somebody asks for it";
}

TEST_F(ReachabilityTest, postsOnTheLoopThatWasCurrentAtTheStart) {
    const auto resolver = std::make_shared<test::HeldResolver>();
    table->routes["192.0.2.1"] = unicastRoute(true);
    std::thread([&] {
        const auto host = Reachability::reachabilityWithHostName(
            "host.test", {table, test::HeldResolver::asking(resolver)});
        std::thread::id called;
        const NotificationToken token(NSNotificationCenter::defaultCenter().addObserver(
            kReachabilityChangedNotification, host, [&](const NSNotification&) {
                called = std::this_thread::get_id();
                RunLoop::current()->stop();
            }));
        EXPECT_TRUE(host->startNotifier());
        resolver->release({networkAddress("192.0.2.1")});
        EXPECT_EQ(RunLoop::current()->run(60), RunLoopResult::stopped);
        EXPECT_EQ(called, std::this_thread::get_id());
    }).join();
}

TEST_F(ReachabilityTest, isStoppedByItsEndOnAnotherThread) {
    auto host = of("192.0.2.1");
    EXPECT_TRUE(host->startNotifier());
    std::thread([&] { host.reset(); }).join();
    RunLoop::main()->run(0);
    EXPECT_TRUE(table->subscribers.empty());
}

TEST_F(ReachabilityTest, isStoppedByItsEndAlsoWhenOthersHoldItsTarget) {
    const auto target = SCNetworkReachability::createWithName("192.0.2.1", {table});
    auto host = makeObject<Reachability>(target);
    EXPECT_TRUE(host->startNotifier());
    EXPECT_EQ(table->subscribers.size(), 1u);
    host.reset();
    EXPECT_TRUE(table->subscribers.empty());
}

TEST_F(ReachabilityTest, isStoppedByItsEndAlsoInsideANotification) {
    auto host = of("192.0.2.1");
    const auto observer = NSNotificationCenter::defaultCenter().addObserver(
        NSNotificationName(kReachabilityChangedNotification), nullptr,
        [&](const NSNotification&) { host.reset(); });
    EXPECT_TRUE(host->startNotifier());
    table->routes["192.0.2.1"] = unicastRoute(true);
    table->change();
    EXPECT_EQ(host, nullptr);
    EXPECT_TRUE(table->subscribers.empty());
    NSNotificationCenter::defaultCenter().removeObserver(observer);
}

TEST_F(ReachabilityTest, doesNotStartWhenTheSystemDoesNotTell) {
    table->isTelling = false;
    EXPECT_FALSE(of("192.0.2.1")->startNotifier());
}

TEST_F(ReachabilityTest, doesNotStartOnASecondLoop) {
    const auto host = of("192.0.2.1");
    EXPECT_TRUE(host->startNotifier());
    std::thread([&] { EXPECT_FALSE(host->startNotifier()); }).join();
    EXPECT_EQ(table->subscribers.size(), 1u);
}

TEST_F(ReachabilityTest, isStoppedOnlyOnTheLoopOfItsStart) {
    const auto host = of("192.0.2.1");
    EXPECT_TRUE(host->startNotifier());
    std::thread([&] { host->stopNotifier(); }).join();
    EXPECT_EQ(table->subscribers.size(), 1u);
    host->stopNotifier();
    EXPECT_TRUE(table->subscribers.empty());
}

TEST_F(ReachabilityTest, resolvesNamesOffTheLoop) {
    const auto resolver = std::make_shared<test::HeldResolver>();
    table->routes["192.0.2.2"] = unicastRoute(true);
    const auto host = Reachability::reachabilityWithHostName(
        "host.test", {table, test::HeldResolver::asking(resolver)});
    Changes changes(host);
    EXPECT_TRUE(host->startNotifier());
    RunLoop::main()->run(0.005);  // comes back although the name is still being asked for
    EXPECT_EQ(host->currentReachabilityStatus(), NetworkStatus::notReachable);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(changes.count, 0);

    changes.stopsLoop = true;
    resolver->release({networkAddress("192.0.2.1"), networkAddress("192.0.2.2")});
    EXPECT_EQ(RunLoop::main()->run(20), RunLoopResult::stopped);
    EXPECT_NE(resolver->thread(), std::this_thread::get_id());
    EXPECT_EQ(host->currentReachabilityStatus(), NetworkStatus::reachable);
}

TEST_F(ReachabilityTest, mayEndWhileItsNameIsBeingResolved) {
    const auto resolver = std::make_shared<test::HeldResolver>();
    auto host = Reachability::reachabilityWithHostName(
        "host.test", {table, test::HeldResolver::asking(resolver)});
    EXPECT_TRUE(host->startNotifier());
    host.reset();
    resolver->release({networkAddress("192.0.2.1")});
    while (resolver.use_count() > 1)
        std::this_thread::yield();
    RunLoop::main()->run(0);
}

TEST(ReachabilityOfKernel, seesLinksAndRoutesComeAndGo) {
    test::inOwnNetwork([] {
        const LogRedirection quiet{[](std::string_view) {}};
        const auto near = Reachability::reachabilityWithHostName("10.1.2.9");
        const auto far = Reachability::reachabilityWithHostName("192.0.2.1");
        const auto home = SCNetworkReachability::createWithName("127.0.0.1");
        const auto own = SCNetworkReachability::createWithName("10.1.2.3");
        const auto nearFlags = SCNetworkReachability::createWithName("10.1.2.9");
        const auto farFlags = SCNetworkReachability::createWithName("192.0.2.1");
        const auto general = SCNetworkReachability::createWithName("0.0.0.0");
        EXPECT_EQ(home->flags(), 0u);
        EXPECT_EQ(nearFlags->flags(), 0u);
        EXPECT_EQ(general->flags(), 0u);
        Changes nearChanges(near), farChanges(far);
        EXPECT_TRUE(near->startNotifier());
        EXPECT_TRUE(far->startNotifier());

        test::ip("link set lo up");
        test::ip("addr add 10.1.2.3/24 dev v0");
        test::ip("link set v1 up");
        test::ip("link set v0 up");
        RunLoop::main()->run(0.3);
        EXPECT_EQ(home->flags(), reachable | local);
        EXPECT_EQ(own->flags(), reachable | local | direct);
        EXPECT_EQ(nearFlags->flags(), reachable | direct);
        EXPECT_EQ(farFlags->flags(), 0u);
        EXPECT_EQ(nearChanges.count, 1);
        EXPECT_EQ(farChanges.count, 0);

        test::ip("route add default via 10.1.2.1 dev v0");
        RunLoop::main()->run(0.05);
        EXPECT_EQ(farFlags->flags(), reachable);
        EXPECT_EQ(general->flags(), reachable);
        EXPECT_EQ(farChanges.count, 1);

        for (const char* kind : {"unreachable", "blackhole", "prohibit", "throw"}) {
            SCOPED_TRACE(kind);
            test::ip(std::string("route replace ") + kind + " 192.0.2.1");
            // A throw route sends the question on to the next rule, which has none to offer.
            EXPECT_EQ(farFlags->flags(), 0u);
            test::ip(std::string("route del ") + kind + " 192.0.2.1");
        }
        EXPECT_EQ(farFlags->flags(), reachable);

        test::ip("link set v1 down");  // the far end takes the carrier with it
        RunLoop::main()->run(0.3);
        EXPECT_EQ(nearFlags->flags(), 0u);
        EXPECT_EQ(farFlags->flags(), 0u);
        EXPECT_EQ(general->flags(), 0u);
        EXPECT_GE(nearChanges.count, 2);

        const int before = farChanges.count;
        far->stopNotifier();
        test::ip("link set v1 up");
        RunLoop::main()->run(0.1);
        EXPECT_EQ(farChanges.count, before);
    });
}

TEST(ReachabilityOfKernel, knowsDormantLinks) {
    test::inOwnNetwork([] {
        test::ip("addr add 10.1.2.3/24 dev v0");
        test::ip("link set v0 up");
        test::ip("link set v0 mode dormant");
        test::ip("link set v1 up");
        RunLoop::main()->run(0.2);
        EXPECT_EQ(SCNetworkReachability::createWithName("10.1.2.9")->flags(),
                  reachable | direct | required | onTraffic);
    });
}

TEST(ReachabilityOfKernel, asksAnewWhenMessagesWereLost) {
    test::inOwnNetwork([] {
        const LogRedirection quiet{[](std::string_view) {}};
        test::ip("addr add 10.1.2.3/24 dev v0");
        test::ip("link set v0 up");
        test::ip("link set v1 up");
        const auto near = Reachability::reachabilityWithHostName("10.1.2.9");
        EXPECT_TRUE(near->startNotifier());
        RunLoop::main()->run(0.2);
        const Changes changes(near);
        // Far more than a socket holds, while nobody reads.
        const test::TemporaryFolder folder;
        std::string batch;
        for (int i = 0; i < 600; ++i)
            batch += i % 2 == 0 ? "link set v1 mtu 1400\n" : "link set v1 mtu 1500\n";
        batch += "addr del 10.1.2.3/24 dev v0\n";
        test::ip("-batch " + folder.file("batch", batch));
        RunLoop::main()->run(0.1);
        EXPECT_EQ(changes.count, 1);
        EXPECT_EQ(near->currentReachabilityStatus(), NetworkStatus::notReachable);
    });
}

}  // namespace
}  // namespace quorin
