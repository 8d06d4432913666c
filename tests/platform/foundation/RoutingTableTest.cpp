#include "quorin/platform/foundation/RoutingTable.h"

#include "tests/TestSupport.h"
#include "tests/support/WrittenRoutingTable.h"

namespace quorin {
namespace {

using test::localRoute;
using test::networkAddress;
using test::unicastRoute;

constexpr std::uint32_t transient = 1, reachable = 2, required = 4, onTraffic = 8,
                        intervention = 16, onDemand = 32, local = 65536, direct = 131072;

constexpr NetworkLink plain{.hasCarrier = true};
constexpr NetworkLink cut{};
constexpr NetworkLink ppp{.hasCarrier = true, .isTransient = true};
constexpr NetworkLink dormant{.hasCarrier = true, .isDormant = true};
constexpr NetworkLink dialled{.hasCarrier = true, .isTransient = true, .isDormant = true};
constexpr NetworkLink cutDialled{.isTransient = true, .isDormant = true};

NetworkRoute refused(NetworkLink link = plain) { return {NetworkRoute::Kind::refused, true, link}; }

TEST(RoutingTable, hasTheFlagsOfTheSystem) {
    EXPECT_EQ(kSCNetworkReachabilityFlagsTransientConnection, transient);
    EXPECT_EQ(kSCNetworkReachabilityFlagsReachable, reachable);
    EXPECT_EQ(kSCNetworkReachabilityFlagsConnectionRequired, required);
    EXPECT_EQ(kSCNetworkReachabilityFlagsConnectionOnTraffic, onTraffic);
    EXPECT_EQ(kSCNetworkReachabilityFlagsInterventionRequired, intervention);
    EXPECT_EQ(kSCNetworkReachabilityFlagsConnectionOnDemand, onDemand);
    EXPECT_EQ(kSCNetworkReachabilityFlagsIsLocalAddress, local);
    EXPECT_EQ(kSCNetworkReachabilityFlagsIsDirect, direct);
}

TEST(RoutingTable, turnsARouteIntoFlags) {
    struct Row {
        const char* says;
        NetworkRoute route;
        const char* to;
        std::uint32_t flags;
    };
    const NetworkRoute localButDown{NetworkRoute::Kind::local, false, cut};
    const Row table[] = {
        {"refused", refused(), "192.0.2.1", 0},
        {"refused, whatever its link", refused(ppp), "192.0.2.1", 0},
        {"an address of this machine", localRoute(), "192.0.2.1", reachable | local | direct},
        {"the same of IPv6", localRoute(), "2001:db8::1", reachable | local | direct},
        {"the loopback address", localRoute(), "127.0.0.1", reachable | local},
        {"another of its network", localRoute(), "127.9.9.9", reachable | local},
        {"the loopback address of IPv6", localRoute(), "::1", reachable | local},
        {"an address of this machine, its link down", localButDown, "192.0.2.1", 0},
        {"a neighbour", unicastRoute(false), "192.0.2.1", reachable | direct},
        {"behind a gateway", unicastRoute(true), "192.0.2.1", reachable},
        {"by PPP", unicastRoute(false, ppp), "192.0.2.1", reachable | direct | transient},
        {"by PPP behind a gateway", unicastRoute(true, ppp), "192.0.2.1", reachable | transient},
        {"by a link that dials when something is sent", unicastRoute(true, dormant), "192.0.2.1",
         reachable | required | onTraffic},
        {"by a neighbour's, too", unicastRoute(false, dormant), "192.0.2.1",
         reachable | direct | required | onTraffic},
        {"by PPP that dials", unicastRoute(true, dialled), "192.0.2.1",
         reachable | transient | required | onTraffic},
        {"no carrier", unicastRoute(true, cut), "192.0.2.1", 0},
        {"no carrier to a neighbour", unicastRoute(false, cut), "192.0.2.1", 0},
        {"no carrier on a link that dials", unicastRoute(true, cutDialled), "192.0.2.1", 0},
    };
    for (const auto& [says, route, to, flags] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(reachabilityFlags(route, networkAddress(to)), flags);
    }
}

TEST(RoutingTable, turnsDefaultRoutesIntoTheFlagsOfGeneralConnectivity) {
    struct Row {
        const char* says;
        std::vector<NetworkRoute> routes;
        std::uint32_t flags;
    };
    const Row table[] = {
        {"none", {}, 0},
        {"one behind a gateway", {unicastRoute(true)}, reachable},
        {"one on the link itself is not direct", {unicastRoute(false)}, reachable},
        {"one without carrier", {unicastRoute(true, cut)}, 0},
        {"one that is refused", {refused()}, 0},
        {"one that stays on this machine", {localRoute()}, 0},
        {"the first that leads out counts", {refused(), unicastRoute(true)}, reachable},
        {"as does the last", {unicastRoute(true), unicastRoute(true, cut)}, reachable},
        {"by PPP", {unicastRoute(false, ppp)}, reachable | transient},
        {"by a link that dials", {unicastRoute(true, dormant)}, reachable | required | onTraffic},
        {"two links together",
         {unicastRoute(true, ppp), unicastRoute(true, dormant)},
         reachable | transient | required | onTraffic},
        {"those of a link without carrier do not count",
         {unicastRoute(true), unicastRoute(true, cutDialled)},
         reachable},
    };
    for (const auto& [says, routes, flags] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(reachabilityFlags(routes), flags);
    }
}

}  // namespace
}  // namespace quorin
