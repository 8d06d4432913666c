#include <fcntl.h>
#include <linux/if_tun.h>
#include <net/if.h>
#include <net/if_arp.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <cstring>
#include <iostream>

#include "quorin/platform/foundation/RoutingTable.h"
#include "tests/TestSupport.h"
#include "tests/support/NetworkNamespace.h"
#include "tests/support/WrittenRoutingTable.h"

// Each test has a network of its own with the two ends v0 and v1 of one cable.
namespace quorin {
namespace {

using test::inOwnNetwork;
using test::ip;
using test::networkAddress;
using testing::SizeIs;

constexpr std::uint32_t transient = 1, reachable = 2, local = 65536, direct = 131072;

std::optional<std::uint32_t> flagsTo(const NetworkAddress& address) {
    const auto route = RoutingTable::ofKernel()->routeTo(address);
    return route ? std::optional(reachabilityFlags(*route, address)) : std::nullopt;
}

std::optional<std::uint32_t> flagsTo(const char* address) {
    return flagsTo(networkAddress(address));
}

std::optional<std::uint32_t> generalFlags() {
    const auto routes = RoutingTable::ofKernel()->defaultRoutes();
    return routes ? std::optional(reachabilityFlags(*routes)) : std::nullopt;
}

/// The kernel may take a moment to notice a cable.
template <typename Function>
std::optional<std::uint32_t> flagsAfterAWhile(const Function& ask, std::uint32_t expected) {
    for (int i = 0; i < 200 && ask() != expected; ++i)
        usleep(10'000);
    return ask();
}

/// Both ends of a further cable.
void addCable(const std::string& end, const std::string& otherEnd) {
    ip("link add " + end + " type veth peer name " + otherEnd);
    ip("link set " + otherEnd + " up");
    ip("link set " + end + " up");
}

void joinIPv4() {
    ip("link set lo up");
    ip("link set v1 up");
    ip("link set v0 up");
    ip("addr add 10.1.2.3/24 dev v0");
}

void joinIPv6() {
    ip("link set lo up");
    ip("link set v1 up");
    ip("link set v0 up");
    ip("-6 addr add 2001:db8::3/64 dev v0 nodad");
}

TEST(KernelRoutingTable, answersForEachKindOfIPv4Route) {
    inOwnNetwork([] {
        EXPECT_EQ(flagsTo("127.0.0.1"), 0u) << "before any link is up";
        EXPECT_EQ(flagsTo("192.0.2.1"), 0u);
        joinIPv4();
        ip("route add 192.0.2.0/24 via 10.1.2.1");
        EXPECT_EQ(flagsAfterAWhile([] { return flagsTo("10.1.2.9"); }, reachable | direct),
                  reachable | direct);
        EXPECT_EQ(flagsTo("127.0.0.1"), reachable | local);
        EXPECT_EQ(flagsTo("10.1.2.3"), reachable | local | direct);
        EXPECT_EQ(flagsTo("192.0.2.1"), reachable);
        EXPECT_EQ(flagsTo("198.51.100.1"), 0u);
        for (const char* kind : {"unreachable", "blackhole", "prohibit", "throw"}) {
            ip(std::string("route add ") + kind + " 192.0.2.7");
            EXPECT_EQ(flagsTo("192.0.2.7"), 0u) << kind;
            ip(std::string("route del ") + kind + " 192.0.2.7");
        }
    });
}

TEST(KernelRoutingTable, answersForEachKindOfIPv6Route) {
    inOwnNetwork([] {
        EXPECT_EQ(flagsTo("::1"), 0u) << "before any link is up";
        EXPECT_EQ(flagsTo("2001:db8:1::1"), 0u);
        joinIPv6();
        ip("-6 route add 2001:db8:1::/64 via 2001:db8::1");
        EXPECT_EQ(flagsAfterAWhile([] { return flagsTo("2001:db8::9"); }, reachable | direct),
                  reachable | direct);
        EXPECT_EQ(flagsTo("::1"), reachable | local);
        EXPECT_EQ(
            flagsAfterAWhile([] { return flagsTo("2001:db8::3"); }, reachable | local | direct),
            reachable | local | direct);
        EXPECT_EQ(flagsTo("2001:db8:1::1"), reachable);
        EXPECT_EQ(flagsTo("2001:db8:2::1"), 0u);
        for (const char* kind : {"unreachable", "blackhole", "prohibit", "throw"}) {
            ip(std::string("-6 route add ") + kind + " 2001:db8:1::7");
            EXPECT_EQ(flagsTo("2001:db8:1::7"), 0u) << kind;
            ip(std::string("-6 route del ") + kind + " 2001:db8:1::7");
        }
    });
}

TEST(KernelRoutingTable, asksForAnAddressOfALinkOnThatLink) {
    inOwnNetwork([] {
        joinIPv6();
        NetworkAddress neighbour = networkAddress("fe80::9");
        for (const char* name : {"v0", "v1"}) {
            neighbour.scope = if_nametoindex(name);
            EXPECT_EQ(flagsAfterAWhile([&] { return flagsTo(neighbour); }, reachable | direct),
                      reachable | direct)
                << name;
        }
        neighbour.scope = 9'999;
        EXPECT_EQ(flagsTo(neighbour), 0u) << "there is no such link";
    });
}

TEST(KernelRoutingTable, hasNoDefaultRoutesAtFirst) {
    inOwnNetwork([] {
        ip("link set lo up");
        EXPECT_EQ(generalFlags(), 0u);
    });
}

TEST(KernelRoutingTable, findsADefaultRouteOfEitherFamily) {
    inOwnNetwork([] {
        joinIPv4();
        joinIPv6();
        ip("route add default via 10.1.2.1");
        EXPECT_EQ(flagsAfterAWhile(generalFlags, reachable), reachable);
        ip("route del default");
        EXPECT_EQ(generalFlags(), 0u);
        ip("-6 route add default via 2001:db8::1");
        EXPECT_EQ(generalFlags(), reachable);
        EXPECT_EQ(flagsTo("2001:db8:9::1"), reachable);
        ip("-6 route del default");
        EXPECT_EQ(generalFlags(), 0u);
    });
}

TEST(KernelRoutingTable, takesEachHopOfADefaultRouteByItsLink) {
    inOwnNetwork([] {
        joinIPv4();
        addCable("v2", "v3");
        ip("addr add 10.1.3.3/24 dev v2");
        ip("route add default nexthop via 10.1.2.1 dev v0 nexthop via 10.1.3.1 dev v2");
        EXPECT_EQ(flagsAfterAWhile(generalFlags, reachable), reachable);
        const auto routes = RoutingTable::ofKernel()->defaultRoutes().value();
        EXPECT_THAT(routes, SizeIs(2));
        for (const NetworkRoute& route : routes)
            EXPECT_TRUE(route.hasGateway);
        ip("link set v1 down");
        usleep(300'000);
        EXPECT_EQ(generalFlags(), reachable) << "by the second";
        ip("link set v1 up");
        ip("link set v3 down");
        usleep(300'000);
        EXPECT_EQ(flagsAfterAWhile(generalFlags, reachable), reachable) << "by the first";
        ip("link set v1 down");
        EXPECT_EQ(flagsAfterAWhile(generalFlags, 0), 0u);
    });
}

TEST(KernelRoutingTable, takesEachHopOfAnIPv6DefaultRouteByItsLink) {
    inOwnNetwork([] {
        joinIPv6();
        addCable("v2", "v3");
        ip("-6 addr add 2001:db8:7::3/64 dev v2 nodad");
        ip("-6 route add default nexthop via 2001:db8::1 dev v0 nexthop via 2001:db8:7::1 dev v2");
        EXPECT_EQ(flagsAfterAWhile(generalFlags, reachable), reachable);
        EXPECT_THAT(RoutingTable::ofKernel()->defaultRoutes().value(), SizeIs(testing::Ge(2u)));
        ip("link set v1 down");
        usleep(300'000);
        EXPECT_EQ(generalFlags(), reachable) << "by the second";
        ip("link set v3 down");
        EXPECT_EQ(flagsAfterAWhile(generalFlags, 0), 0u);
    });
}

TEST(KernelRoutingTable, tellsHopsWithAGatewayFromThoseWithout) {
    inOwnNetwork([] {
        joinIPv4();
        ip("route add default nexthop via 10.1.2.1 dev v0 nexthop dev v1");
        const auto routes = RoutingTable::ofKernel()->defaultRoutes().value();
        ASSERT_THAT(routes, SizeIs(2));
        EXPECT_TRUE(routes[0].hasGateway);
        EXPECT_FALSE(routes[1].hasGateway);
    });
}

TEST(KernelRoutingTable, knowsGatewaysOfTheOtherFamily) {
    inOwnNetwork([] {
        joinIPv4();
        joinIPv6();
        ip("route add 192.0.2.0/24 via inet6 2001:db8::9 dev v0");
        EXPECT_EQ(flagsAfterAWhile([] { return flagsTo("192.0.2.1"); }, reachable), reachable);
        ip("route add default nexthop via 10.1.2.1 dev v0 nexthop via inet6 2001:db8::9 dev v0");
        const auto routes = RoutingTable::ofKernel()->defaultRoutes().value();
        EXPECT_THAT(routes, SizeIs(2));
        for (const NetworkRoute& route : routes)
            EXPECT_TRUE(route.hasGateway);
    });
}

TEST(KernelRoutingTable, followsDefaultRoutesThatShareAHop) {
    inOwnNetwork([] {
        joinIPv4();
        ip("nexthop add id 1 via 10.1.2.1 dev v0");
        ip("route add default nhid 1");
        EXPECT_EQ(flagsAfterAWhile(generalFlags, reachable), reachable);
        ip("link set v1 down");
        EXPECT_EQ(flagsAfterAWhile(generalFlags, 0), 0u);
    });
}

TEST(KernelRoutingTable, doesNotTakeADefaultRouteToThisMachineForAWayOut) {
    inOwnNetwork([] {
        ip("link set lo up");
        ip("route add local default dev lo table 100");
        EXPECT_EQ(generalFlags(), 0u);
    });
}

TEST(KernelRoutingTable, doesNotTakeADefaultRouteThatRefusesForAWayOut) {
    inOwnNetwork([] {
        ip("link set lo up");  // by which the kernel has those of IPv6 leave
        for (const std::string family : {"-4", "-6"})
            for (const std::string kind : {"unreachable", "blackhole", "prohibit", "throw"}) {
                ip(family + " route add " + kind + " default");
                EXPECT_EQ(generalFlags(), 0u) << family << " " << kind;
                ip(family + " route del " + kind + " default");
            }
    });
}

/// A link whose far end is this program. Says so and gives -1 where the machine has none to give.
int addTunnel(const char* name, unsigned short type) {
    const int descriptor = open("/dev/net/tun", O_RDWR | O_CLOEXEC);
    ifreq request{};
    request.ifr_flags = IFF_TUN | IFF_NO_PI;
    std::strncpy(request.ifr_name, name, IFNAMSIZ - 1);
    if (descriptor < 0 || ioctl(descriptor, TUNSETIFF, &request) != 0 ||
        ioctl(descriptor, TUNSETLINK, static_cast<unsigned long>(type)) != 0) {
        std::cout << "this machine has no tunnels (/dev/net/tun): links of type " << type
                  << " were not tested\n";
        return -1;
    }
    return descriptor;
}

TEST(KernelRoutingTable, knowsTransientLinks) {
    struct Row {
        const char* name;
        unsigned short type;
        std::uint32_t flags;
    };
    const Row table[] = {
        {"dial0", ARPHRD_PPP, reachable | direct | transient},
        {"wwan0", ARPHRD_NONE, reachable | direct | transient},
        {"wwp0s20", ARPHRD_NONE, reachable | direct | transient},
        {"rmnet0", ARPHRD_RAWIP, reachable | direct | transient},
        {"tun0", ARPHRD_NONE, reachable | direct},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.name);
        inOwnNetwork([row] {
            if (addTunnel(row.name, row.type) < 0)
                return;
            ip(std::string("link set up dev ") + row.name);
            ip(std::string("addr add 10.9.0.1 peer 10.9.0.2 dev ") + row.name);
            EXPECT_EQ(flagsAfterAWhile([] { return flagsTo("10.9.0.2"); }, row.flags), row.flags);
        });
    }
}

TEST(KernelRoutingTable, tellsOfEachKindOfChange) {
    inOwnNetwork([] {
        ip("link set v0 addrgenmode none");
        ip("link set v1 addrgenmode none");
        joinIPv4();
        joinIPv6();
        ip("-6 addr change 2001:db8::3/64 dev v0 noprefixroute");
        const auto& loop = RunLoop::main();
        loop->run(0.3);
        int count = 0;
        auto subscription = RoutingTable::ofKernel()->subscribe(*loop, [&] {
            ++count;
            loop->stop();
        });
        ASSERT_NE(subscription, nullptr);
        // Of each kind one that comes without others: a length, a lifetime, a route nobody takes,
        // a mark on an address whose network has no route of the kernel's own.
        for (const char* change : {
                 "link set v0 txqueuelen 77",
                 "addr change 10.1.2.3/24 dev v0 valid_lft 1000 preferred_lft 900",
                 "route add blackhole 192.0.2.1",
                 "-6 addr change 2001:db8::3/64 dev v0 noprefixroute home",
                 "-6 route add blackhole 2001:db8:1::7",
             }) {
            SCOPED_TRACE(change);
            loop->run(0.05);
            count = 0;
            ip(change);
            EXPECT_EQ(loop->run(20), RunLoopResult::stopped);
            EXPECT_GE(count, 1);
        }
        loop->run(0.05);
        count = 0;
        subscription.reset();
        ip("route add blackhole 192.0.2.2");
        loop->run(0.05);
        EXPECT_EQ(count, 0);
    });
}

TEST(KernelRoutingTable, mayEndItsSubscriptionInsideItsCall) {
    inOwnNetwork([] {
        int count = 0;
        RoutingTable::Subscription subscription = RoutingTable::ofKernel()->subscribe(
            *RunLoop::main(), [&, held = std::make_shared<int>(1)] {
                subscription.reset();
                count += *held;
            });
        ip("link set lo up");
        RunLoop::main()->run(0.05);
        ip("link set v0 up");
        RunLoop::main()->run(0.05);
        EXPECT_EQ(count, 1);
    });
}

}  // namespace
}  // namespace quorin
