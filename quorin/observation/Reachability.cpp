#include "quorin/observation/Reachability.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <string>
#include <utility>

#include "quorin/platform/foundation/NSLog.h"
#include "quorin/platform/foundation/NSNotificationCenter.h"

namespace quorin {

const char* const kReachabilityChangedNotification = "kNetworkReachabilityChangedNotification";

namespace {

void logFlags(std::uint32_t flags, std::string_view comment) {
    const auto letter = [flags](std::uint32_t flag, char shown) {
        return (flags & flag) != 0 ? shown : '-';
    };
    std::string line = "Reachability Flag Status: ";
    line += letter(kSCNetworkReachabilityFlagsReachable, 'R');
    line += ' ';
    line += letter(kSCNetworkReachabilityFlagsTransientConnection, 't');
    line += letter(kSCNetworkReachabilityFlagsConnectionRequired, 'c');
    line += letter(kSCNetworkReachabilityFlagsConnectionOnTraffic, 'C');
    line += letter(kSCNetworkReachabilityFlagsInterventionRequired, 'i');
    line += letter(kSCNetworkReachabilityFlagsConnectionOnDemand, 'D');
    line += letter(kSCNetworkReachabilityFlagsIsLocalAddress, 'l');
    line += letter(kSCNetworkReachabilityFlagsIsDirect, 'd');
    NSLog(line.append(" ").append(comment).append("\n"));
}

}  // namespace

std::shared_ptr<Reachability> Reachability::owning(
    std::shared_ptr<SCNetworkReachability> reference) {
    return reference ? makeObject<Reachability>(std::move(reference)) : nullptr;
}

std::shared_ptr<Reachability> Reachability::reachabilityWithHostName(std::string_view hostName,
                                                                     NetworkServices services) {
    return owning(SCNetworkReachability::createWithName(hostName, std::move(services)));
}

std::shared_ptr<Reachability> Reachability::reachabilityWithAddress(const sockaddr* hostAddress,
                                                                    NetworkServices services) {
    const auto address = NetworkAddress::from(hostAddress);
    return address ? owning(SCNetworkReachability::createWithAddress(*address, std::move(services)))
                   : nullptr;
}

std::shared_ptr<Reachability> Reachability::reachabilityForInternetConnection(
    NetworkServices services) {
    sockaddr_in any{};
    any.sin_family = AF_INET;
    return reachabilityWithAddress(reinterpret_cast<const sockaddr*>(&any), std::move(services));
}

Reachability::~Reachability() { stopNotifier(); }

bool Reachability::startNotifier() {
    reference->setCallback([weak = weak_from_this(), target = reference.get()](auto flags) {
        if (const auto self = weak.lock())
            ReachabilityCallback(*target, flags, self);
    });
    return reference->schedule(RunLoop::current());
}

void Reachability::stopNotifier() { reference->unschedule(RunLoop::current()); }

void ReachabilityCallback(SCNetworkReachability&, std::uint32_t,
                          const std::shared_ptr<Object>& info) {
    NSNotificationCenter::defaultCenter().postNotification(
        NSNotification(kReachabilityChangedNotification, info));
}

NetworkStatus Reachability::currentReachabilityStatus() const {
    const auto flags = reference->flags();
    return flags ? networkStatusForFlags(*flags) : NetworkStatus::notReachable;
}

bool Reachability::connectionRequired() const {
    const auto flags = reference->flags();
    return flags && (*flags & kSCNetworkReachabilityFlagsConnectionRequired) != 0;
}

NetworkStatus Reachability::networkStatusForFlags(std::uint32_t flags) const {
    logFlags(flags, "networkStatusForFlags");
    const auto isSet = [flags](std::uint32_t flag) { return (flags & flag) != 0; };
    if (!isSet(kSCNetworkReachabilityFlagsReachable))
        return NetworkStatus::notReachable;
    const bool connectsByItself = isSet(kSCNetworkReachabilityFlagsConnectionOnTraffic) ||
                                  isSet(kSCNetworkReachabilityFlagsConnectionOnDemand);
    if (isSet(kSCNetworkReachabilityFlagsInterventionRequired) || !connectsByItself)
        return isSet(kSCNetworkReachabilityFlagsConnectionRequired) ? NetworkStatus::notReachable
                                                                    : NetworkStatus::reachable;
    return NetworkStatus::reachable;
}

}  // namespace quorin
