#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/foundation/SCNetworkReachability.h"

struct sockaddr;  // the system's <sys/socket.h>

namespace quorin {

/// The name under which a `Reachability` posts itself on the default notification centre when the
/// network has changed for its host.
extern const char* const kReachabilityChangedNotification;

enum class NetworkStatus : std::int64_t { notReachable = 0, reachable = 1 };

/// Whether a host can be reached, and word of it when that changes: between `startNotifier` and
/// `stopNotifier`, on the run loop that was the current one at the start.
class Reachability : public NSObject {
public:
    using Class = NSClassOf<Reachability, NSObject>;

    /// Null for names that cannot be a host's. A name is looked up in the background: until the
    /// answer is there the host counts as not reachable, and its coming is a change.
    static std::shared_ptr<Reachability> reachabilityWithHostName(std::string_view hostName,
                                                                  NetworkServices services = {});
    /// Null for null and for addresses of other families than IPv4 and IPv6.
    static std::shared_ptr<Reachability> reachabilityWithAddress(const sockaddr* hostAddress,
                                                                 NetworkServices services = {});
    /// Of the Internet in general, which is asked for by the address 0.0.0.0.
    static std::shared_ptr<Reachability> reachabilityForInternetConnection(
        NetworkServices services = {});

    explicit Reachability(std::shared_ptr<SCNetworkReachability> owned)
        : reference(std::move(owned)) {}
    ~Reachability() override;

    /// Started twice it posts once. False when the system does not tell of changes, and on a second
    /// loop while it is started on another.
    bool startNotifier();
    /// To be called on the loop of the start; elsewhere it changes nothing.
    void stopNotifier();

    /// Not reachable when the system does not answer. This and the next on any thread.
    NetworkStatus currentReachabilityStatus() const;
    /// Whether a connection would have to be made first; false when the system does not answer.
    bool connectionRequired() const;

    /// What a union of `SCNetworkReachabilityFlags` means. Logs the flags.
    NetworkStatus networkStatusForFlags(std::uint32_t flags) const;

private:
    static std::shared_ptr<Reachability> owning(std::shared_ptr<SCNetworkReachability> reference);

    std::shared_ptr<SCNetworkReachability> reference;
};

/// What a notifier is called back by: posts the instance `info` on the default notification centre.
void ReachabilityCallback(SCNetworkReachability& target, std::uint32_t flags,
                          const std::shared_ptr<Object>& info);

}  // namespace quorin
