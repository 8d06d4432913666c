#include "quorin/platform/foundation/RoutingTable.h"

namespace quorin {
namespace {

std::uint32_t flagsOf(const NetworkLink& link) {
    std::uint32_t flags = kSCNetworkReachabilityFlagsReachable;
    if (link.isTransient)
        flags |= kSCNetworkReachabilityFlagsTransientConnection;
    if (link.isDormant)
        flags |= kSCNetworkReachabilityFlagsConnectionRequired |
                 kSCNetworkReachabilityFlagsConnectionOnTraffic;
    return flags;
}

bool leadsAnywhere(const NetworkRoute& route) {
    return route.kind != NetworkRoute::Kind::refused && route.link.hasCarrier;
}

/// A local default route, as proxies lay one to themselves, keeps everything on this machine.
bool leadsOut(const NetworkRoute& route) {
    return route.kind == NetworkRoute::Kind::unicast && leadsAnywhere(route);
}

}  // namespace

std::uint32_t reachabilityFlags(const NetworkRoute& route, const NetworkAddress& address) {
    if (!leadsAnywhere(route))
        return 0;
    const std::uint32_t flags = flagsOf(route.link);
    if (route.kind == NetworkRoute::Kind::local)
        return flags | kSCNetworkReachabilityFlagsIsLocalAddress |
               (address.isLoopback() ? 0u : kSCNetworkReachabilityFlagsIsDirect);
    return route.hasGateway ? flags : flags | kSCNetworkReachabilityFlagsIsDirect;
}

std::uint32_t reachabilityFlags(std::span<const NetworkRoute> defaultRoutes) {
    std::uint32_t flags = 0;
    for (const NetworkRoute& route : defaultRoutes)
        if (leadsOut(route))
            flags |= flagsOf(route.link);
    return flags;
}

}  // namespace quorin
