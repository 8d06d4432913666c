#include "quorin/platform/foundation/SCNetworkReachability.h"

#include <chrono>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace quorin {

using Clock = std::chrono::steady_clock;

/// The addresses of a name, shared with the thread that asks for them.
struct SCNetworkReachability::Resolution {
    explicit Resolution(std::string_view host) : name(host) {}

    const std::string name;
    std::mutex mutex;  // of all below
    bool isRunning = false, isWantedAgain = false;
    std::optional<std::vector<NetworkAddress>> addresses;
    Clock::time_point answered;
    std::shared_ptr<RunLoop> loop;
    std::weak_ptr<SCNetworkReachability> owner;
};

std::shared_ptr<SCNetworkReachability> SCNetworkReachability::createWithName(
    std::string_view name, NetworkServices services) {
    if (name.empty() || name.find('\0') != std::string_view::npos)
        return nullptr;
    if (const auto address = NetworkAddress::from(name))
        return createWithAddress(*address, std::move(services));
    const std::shared_ptr<SCNetworkReachability> made(
        new SCNetworkReachability(std::move(services)));
    made->resolution = std::make_shared<Resolution>(name);
    made->resolution->owner = made;
    made->resolve();
    return made;
}

std::shared_ptr<SCNetworkReachability> SCNetworkReachability::createWithAddress(
    const NetworkAddress& address, NetworkServices services) {
    const std::shared_ptr<SCNetworkReachability> made(
        new SCNetworkReachability(std::move(services)));
    made->addresses = {address};
    return made;
}

SCNetworkReachability::~SCNetworkReachability() {
    // A loop that waits for this answer alone would never be let go once its thread has ended.
    if (resolution) {
        const std::lock_guard lock(resolution->mutex);
        resolution->loop.reset();
    }
    // What waits in a loop is that loop's thread's to end.
    if (subscription && RunLoop::current() != loop)
        loop->perform([ended = std::move(subscription)] {});
}

std::optional<std::uint32_t> SCNetworkReachability::flagsOf(const NetworkAddress& address) const {
    if (address.isAny()) {
        const auto routes = services.routes->defaultRoutes();
        return routes ? std::optional(reachabilityFlags(*routes)) : std::nullopt;
    }
    const auto route = services.routes->routeTo(address);
    return route ? std::optional(reachabilityFlags(*route, address)) : std::nullopt;
}

std::optional<std::uint32_t> SCNetworkReachability::flagsOfAll(
    std::span<const NetworkAddress> hosts) const {
    if (hosts.empty())
        return 0;
    std::optional<std::uint32_t> all;
    for (const NetworkAddress& host : hosts)
        if (const auto some = flagsOf(host))
            all = all.value_or(0) | *some;
    return all;
}

std::optional<std::uint32_t> SCNetworkReachability::flags() {
    if (resolution) {
        const std::chrono::duration<double> freshness(services.freshness);
        std::unique_lock lock(resolution->mutex);
        const std::optional<std::vector<NetworkAddress>> known = resolution->addresses;
        const bool isStale =
            known && !resolution->isRunning && Clock::now() - resolution->answered > freshness;
        lock.unlock();
        if (isStale)
            resolve();
        return known ? flagsOfAll(*known) : std::nullopt;
    }
    return flagsOfAll(addresses);
}

void SCNetworkReachability::resolve() {
    if (!resolution)
        return;
    {
        const std::lock_guard lock(resolution->mutex);
        resolution->isWantedAgain = true;
        if (std::exchange(resolution->isRunning, true))
            return;
    }
    const auto work = [shared = resolution, ask = services.resolve] {
        std::unique_lock lock(shared->mutex);
        while (std::exchange(shared->isWantedAgain, false)) {
            lock.unlock();
            std::vector<NetworkAddress> found = ask(shared->name);
            lock.lock();
            shared->addresses = std::move(found);
            shared->answered = Clock::now();
        }
        shared->isRunning = false;
        const std::shared_ptr<RunLoop> told = shared->loop;
        lock.unlock();
        // The owner is held on its own thread only, so that this one never is its last.
        if (told)
            told->perform([shared] {
                if (const auto self = shared->owner.lock())
                    self->update();
            });
    };
    try {
        std::thread(work).detach();  // the system's resolver cannot be called off
    } catch (const std::system_error&) {
        const std::lock_guard lock(resolution->mutex);
        resolution->isRunning = false;
        resolution->answered = Clock::now();
        if (!resolution->addresses)
            resolution->addresses.emplace();
    }
}

void SCNetworkReachability::update() {
    if (!subscription)
        return;
    const std::optional<std::uint32_t> now = flags();
    if (!now || now == lastFlags)
        return;
    lastFlags = now;
    if (const Callback called = callback)
        called(*now);
}

bool SCNetworkReachability::schedule(const std::shared_ptr<RunLoop>& runLoop) {
    if (subscription)
        return loop == runLoop;
    // The subscription first: what changes between the two is told of then.
    subscription = services.routes->subscribe(*runLoop, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->resolve();
            self->update();
        }
    });
    if (!subscription)
        return false;
    loop = runLoop;
    if (resolution) {
        const std::lock_guard lock(resolution->mutex);
        resolution->loop = runLoop;
    }
    lastFlags = flags();
    return true;
}

bool SCNetworkReachability::unschedule(const std::shared_ptr<RunLoop>& runLoop) {
    if (!subscription || loop != runLoop)
        return false;
    subscription.reset();
    if (resolution) {
        const std::lock_guard lock(resolution->mutex);
        resolution->loop.reset();
    }
    return true;
}

}  // namespace quorin
