#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "quorin/platform/foundation/NetworkAddress.h"
#include "quorin/platform/foundation/RunLoop.h"

namespace quorin {

/// What can be said of the way to an address.
enum SCNetworkReachabilityFlags : std::uint32_t {
    kSCNetworkReachabilityFlagsTransientConnection = 1,
    kSCNetworkReachabilityFlagsReachable = 2,
    kSCNetworkReachabilityFlagsConnectionRequired = 4,
    kSCNetworkReachabilityFlagsConnectionOnTraffic = 8,
    kSCNetworkReachabilityFlagsInterventionRequired = 16,
    kSCNetworkReachabilityFlagsConnectionOnDemand = 32,
    kSCNetworkReachabilityFlagsIsLocalAddress = 65536,
    kSCNetworkReachabilityFlagsIsDirect = 131072,
};

/// The link that packets leave by.
struct NetworkLink {
    bool hasCarrier = false;
    bool isTransient = false;  ///< PPP, or a wireless wide-area link from point to point
    bool isDormant = false;    ///< comes up when something is sent
};

/// What the system does with packets to some address.
struct NetworkRoute {
    /// `refused`: an unreachable, blackhole, prohibit or throw route, or none at all.
    enum class Kind { refused, local, unicast };

    Kind kind = Kind::refused;
    bool hasGateway = false;
    NetworkLink link;
};

/// The flags of an address that is routed so.
std::uint32_t reachabilityFlags(const NetworkRoute& route, const NetworkAddress& address);
/// The flags of connectivity in general, by all default routes there are: those of the links of
/// the routes that lead out of this machine. Neither local nor direct.
std::uint32_t reachabilityFlags(std::span<const NetworkRoute> defaultRoutes);

/// Where the system sends packets.
class RoutingTable {
public:
    RoutingTable(const RoutingTable&) = delete;
    RoutingTable& operator=(const RoutingTable&) = delete;
    virtual ~RoutingTable() = default;

    /// Nothing when the system could not be asked.
    virtual std::optional<NetworkRoute> routeTo(const NetworkAddress& address) const = 0;
    /// Those of IPv4 and of IPv6. Nothing when the system could not be asked.
    virtual std::optional<std::vector<NetworkRoute>> defaultRoutes() const = 0;

    /// A subscription, which ends with the pointer. To be released on the thread of its loop.
    using Subscription = std::shared_ptr<void>;
    /// Calls `changed` on the loop, to be called on its thread, after links, addresses or routes
    /// may have changed. Null when the system does not tell.
    virtual Subscription subscribe(RunLoop& loop, std::function<void()> changed) const = 0;

    /// That of the kernel, for the network namespace of the thread that asks.
    static const std::shared_ptr<const RoutingTable>& ofKernel();

protected:
    RoutingTable() = default;
};

}  // namespace quorin
