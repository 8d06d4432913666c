#include <quorin/observation/Reachability.h>
#include <quorin/platform/foundation/NSNotificationCenter.h>
#include <quorin/platform/foundation/RunLoop.h>

#include <iostream>
#include <string>

using quorin::NetworkStatus;
using quorin::NSNotificationCenter;
using quorin::NSNotificationName;
using quorin::Reachability;
using quorin::RunLoop;

const char* textOf(NetworkStatus status) {
    return status == NetworkStatus::reachable ? "reachable" : "not reachable";
}

/// Follows a host for some seconds: pull the plug to see it change.
int main(int argumentCount, char** arguments) {
    const char* const host = argumentCount > 1 ? arguments[1] : "127.0.0.1";
    const double seconds = argumentCount > 2 ? std::stod(arguments[2]) : 0.1;

    const auto network = Reachability::reachabilityWithHostName(host);
    if (!network || !network->startNotifier()) {
        std::cerr << host << " cannot be followed\n";
        return 1;
    }
    const auto observer = NSNotificationCenter::defaultCenter().addObserver(
        NSNotificationName(quorin::kReachabilityChangedNotification), network, [&](const auto&) {
            std::cout << host << " is now " << textOf(network->currentReachabilityStatus()) << '\n';
        });
    RunLoop::current()->run(seconds);
    std::cout << host << " is " << textOf(network->currentReachabilityStatus()) << '\n';
    NSNotificationCenter::defaultCenter().removeObserver(observer);
}
