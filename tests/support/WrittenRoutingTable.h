#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/RoutingTable.h"

namespace quorin::test {

/// A table that tests write, and that tells of changes when they say so.
class WrittenRoutingTable : public RoutingTable {
public:
    std::map<std::string, NetworkRoute> routes;  // by the text of the address
    std::vector<NetworkRoute> defaults;
    bool isAnswering = true, isTelling = true;
    mutable std::map<int, std::function<void()>> subscribers;
    mutable std::thread::id lastEnded;  // where a subscription ended

    void change() {
        for (const auto& [number, changed] : std::map(subscribers))
            changed();
    }

    std::optional<NetworkRoute> routeTo(const NetworkAddress& address) const override {
        if (!isAnswering)
            return std::nullopt;
        const auto found = routes.find(address.text());
        return found == routes.end() ? NetworkRoute{} : found->second;
    }
    std::optional<std::vector<NetworkRoute>> defaultRoutes() const override {
        return isAnswering ? std::optional(defaults) : std::nullopt;
    }
    Subscription subscribe(RunLoop&, std::function<void()> changed) const override {
        if (!isTelling)
            return nullptr;
        static int last = 0;
        const int number = ++last;
        subscribers[number] = std::move(changed);
        return Subscription(static_cast<void*>(&subscribers), [this, number](void*) {
            lastEnded = std::this_thread::get_id();
            subscribers.erase(number);
        });
    }
};

inline NetworkRoute unicastRoute(bool hasGateway, NetworkLink link = {.hasCarrier = true}) {
    return {NetworkRoute::Kind::unicast, hasGateway, link};
}

inline NetworkRoute localRoute() {
    return {NetworkRoute::Kind::local, false, {.hasCarrier = true}};
}

inline NetworkAddress networkAddress(const char* text) {
    return NetworkAddress::from(text).value();
}

}  // namespace quorin::test
