#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/NetworkAddress.h"
#include "quorin/platform/foundation/RoutingTable.h"
#include "quorin/platform/foundation/RunLoop.h"

namespace quorin {

/// What the reachability of hosts is found out by.
struct NetworkServices {
    std::shared_ptr<const RoutingTable> routes = RoutingTable::ofKernel();
    /// Called on a thread of its own, where it may take its time; must not throw.
    std::function<std::vector<NetworkAddress>(const std::string& host)> resolve = resolveHost;
    /// How many seconds an answer for a name holds: whoever reads flags later has it asked anew.
    double freshness = 5;
};

/// Whether packets would find a way to a host, by the tables of this machine: nothing is sent but
/// the questions for a host's name.
///
/// Names are resolved on a thread of their own, so the flags of a fresh one are not known at once.
/// They are asked for again whenever the network changes, and when somebody reads flags that rest
/// on an answer a few seconds old.
class SCNetworkReachability : public std::enable_shared_from_this<SCNetworkReachability> {
public:
    using Callback = std::function<void(std::uint32_t flags)>;

    /// Null for an empty name and one with a zero byte. A written address is a name too.
    static std::shared_ptr<SCNetworkReachability> createWithName(std::string_view name,
                                                                 NetworkServices services = {});
    /// 0.0.0.0 and :: ask for connectivity in general.
    static std::shared_ptr<SCNetworkReachability> createWithAddress(const NetworkAddress& address,
                                                                    NetworkServices services = {});

    SCNetworkReachability(const SCNetworkReachability&) = delete;
    SCNetworkReachability& operator=(const SCNetworkReachability&) = delete;
    ~SCNetworkReachability();

    /// A union of `SCNetworkReachabilityFlags`, over all addresses of a name. Nothing as long as a
    /// name is being resolved for the first time, or when the system does not answer. Never waits
    /// for names; may be read on any thread.
    std::optional<std::uint32_t> flags();

    void setCallback(Callback closure) { callback = std::move(closure); }
    /// Calls back on this loop, the calling thread's, whenever the flags have become others, also
    /// when they become known. Twice on one loop is once. False when the system does not tell of
    /// changes, and for a second loop.
    bool schedule(const std::shared_ptr<RunLoop>& runLoop);
    /// False when it is not scheduled there.
    bool unschedule(const std::shared_ptr<RunLoop>& runLoop);

private:
    struct Resolution;

    explicit SCNetworkReachability(NetworkServices used) : services(std::move(used)) {}

    std::optional<std::uint32_t> flagsOf(const NetworkAddress& address) const;
    std::optional<std::uint32_t> flagsOfAll(std::span<const NetworkAddress> hosts) const;
    void resolve();
    void update();

    NetworkServices services;
    std::shared_ptr<Resolution> resolution;  // null for an address
    std::vector<NetworkAddress> addresses;   // those of a name stand in its resolution
    Callback callback;
    std::shared_ptr<RunLoop> loop;
    RoutingTable::Subscription subscription;
    std::optional<std::uint32_t> lastFlags;
};

}  // namespace quorin
