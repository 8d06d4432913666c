#include <linux/if.h>
#include <linux/if_arp.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

#include "quorin/platform/foundation/RoutingTable.h"
#include "quorin/platform/foundation/netlink/NetlinkSocket.h"

namespace quorin {
namespace {

/// A request with room for a few attributes.
template <typename Body>
class Request {
public:
    Request(std::uint16_t type, std::uint16_t flags) : header(mnl_nlmsg_put_header(room.data())) {
        header->nlmsg_type = type;
        header->nlmsg_flags = flags;
        body = static_cast<Body*>(mnl_nlmsg_put_extra_header(header, sizeof(Body)));
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

private:
    alignas(nlmsghdr) std::array<char, 256> room{};

public:
    nlmsghdr* header;
    Body* body;
};

using Attributes = std::array<const nlattr*, 128>;

Attributes attributesOf(const nlmsghdr& message, std::size_t bodySize) {
    Attributes attributes{};
    const mnl_attr_cb_t keep = [](const nlattr* attribute, void* to) {
        if (const std::uint16_t type = mnl_attr_get_type(attribute); type < Attributes().size())
            (*static_cast<Attributes*>(to))[type] = attribute;
        return MNL_CB_OK;
    };
    mnl_attr_parse(&message, static_cast<unsigned>(bodySize), keep, &attributes);
    return attributes;
}

std::string_view textOf(const nlattr* attribute) {
    if (!attribute)
        return {};
    const char* const text = mnl_attr_get_str(attribute);
    return {text, strnlen(text, mnl_attr_get_payload_len(attribute))};
}

bool isWirelessWideArea(const ifinfomsg& body, std::string_view name) {
    return (body.ifi_flags & IFF_POINTOPOINT) != 0 &&
           (body.ifi_type == ARPHRD_RAWIP || name.starts_with("ww"));
}

NetworkLink linkOf(const nlmsghdr& message) {
    ifinfomsg body{};
    std::memcpy(&body, mnl_nlmsg_get_payload(&message), sizeof body);
    const Attributes attributes = attributesOf(message, sizeof body);
    NetworkLink link;
    link.hasCarrier = (body.ifi_flags & IFF_UP) != 0 && (body.ifi_flags & IFF_LOWER_UP) != 0;
    link.isTransient =
        body.ifi_type == ARPHRD_PPP || isWirelessWideArea(body, textOf(attributes[IFLA_IFNAME]));
    link.isDormant = (body.ifi_flags & IFF_DORMANT) != 0 ||
                     (attributes[IFLA_OPERSTATE] &&
                      mnl_attr_get_u8(attributes[IFLA_OPERSTATE]) == IF_OPER_DORMANT);
    return link;
}

/// One that has gone has no carrier. Nothing when the kernel could not be asked.
std::optional<NetworkLink> linkNumbered(int index) {
    NetlinkSocket socket;
    Request<ifinfomsg> request(RTM_GETLINK, 0);
    request.body->ifi_index = index;
    NetworkLink link;
    const int error =
        socket.ask(*request.header, [&](const nlmsghdr& message) { link = linkOf(message); });
    return error < 0 ? std::nullopt : std::optional(link);
}

/// A route and the number of its link.
struct Hop {
    NetworkRoute route;
    int link = 0;
};

NetworkRoute::Kind kindOf(unsigned char type) {
    switch (type) {
        case RTN_UNREACHABLE:
        case RTN_BLACKHOLE:
        case RTN_PROHIBIT:
        case RTN_THROW:
            return NetworkRoute::Kind::refused;
        case RTN_LOCAL:
            return NetworkRoute::Kind::local;
        default:  // broadcast and multicast leave by a link as unicast does
            return NetworkRoute::Kind::unicast;
    }
}

bool hasGateway(const rtnexthop& next) {
    bool isFound = false;
    const mnl_attr_cb_t look = [](const nlattr* attribute, void* to) {
        const std::uint16_t type = mnl_attr_get_type(attribute);
        if (type == RTA_GATEWAY || type == RTA_VIA)
            *static_cast<bool*>(to) = true;
        return MNL_CB_OK;
    };
    mnl_attr_parse_payload(RTNH_DATA(&next), next.rtnh_len - RTNH_LENGTH(0), look, &isFound);
    return isFound;
}

/// Several of a route with several next hops.
void addHops(const nlmsghdr& message, std::vector<Hop>& hops) {
    rtmsg body{};
    std::memcpy(&body, mnl_nlmsg_get_payload(&message), sizeof body);
    const Attributes attributes = attributesOf(message, sizeof body);
    Hop hop;
    hop.route.kind = kindOf(body.rtm_type);
    hop.route.hasGateway = attributes[RTA_GATEWAY] || attributes[RTA_VIA];
    const nlattr* const several = attributes[RTA_MULTIPATH];
    if (!several) {
        if (attributes[RTA_OIF])
            hop.link = static_cast<int>(mnl_attr_get_u32(attributes[RTA_OIF]));
        hops.push_back(hop);
        return;
    }
    const auto* next = static_cast<const rtnexthop*>(mnl_attr_get_payload(several));
    int left = mnl_attr_get_payload_len(several);
    for (; left >= static_cast<int>(sizeof *next) && RTNH_OK(next, left);) {
        hop.link = next->rtnh_ifindex;
        hop.route.hasGateway = hasGateway(*next);
        hops.push_back(hop);
        left -= static_cast<int>(RTNH_ALIGN(next->rtnh_len));
        next = reinterpret_cast<const rtnexthop*>(reinterpret_cast<const char*>(next) +
                                                  RTNH_ALIGN(next->rtnh_len));
    }
}

/// Nothing when the kernel could not be asked for the link.
std::optional<NetworkRoute> completed(const Hop& hop) {
    if (hop.route.kind == NetworkRoute::Kind::refused)
        return hop.route;
    const std::optional<NetworkLink> link = linkNumbered(hop.link);
    if (!link)
        return std::nullopt;
    NetworkRoute route = hop.route;
    route.link = *link;
    return route;
}

bool isDefault(const nlmsghdr& message) {
    rtmsg body{};
    std::memcpy(&body, mnl_nlmsg_get_payload(&message), sizeof body);
    return message.nlmsg_type == RTM_NEWROUTE && body.rtm_dst_len == 0 &&
           (body.rtm_flags & RTM_F_CLONED) == 0;
}

/// False when the kernel could not be asked, or its table changed all the while.
bool addDefaultHops(unsigned char family, std::vector<Hop>& hops) {
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::vector<Hop> found;
        NetlinkSocket socket;
        Request<rtmsg> request(RTM_GETROUTE, NLM_F_DUMP);
        request.body->rtm_family = family;
        const int error = socket.ask(*request.header, [&](const nlmsghdr& message) {
            if (isDefault(message))
                addHops(message, found);
        });
        if (error < 0)
            return false;
        if (error == EINTR)  // the table changed while it was being read
            continue;
        hops.insert(hops.end(), found.begin(), found.end());
        return true;
    }
    return false;
}

/// Hears that something has changed. What it was does not matter: the tables are asked anew, so a
/// lost message costs nothing but the question.
class Changes {
public:
    Changes(RunLoop& loop, std::function<void()> closure)
        : socket(RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_IFADDR |
                 RTMGRP_IPV6_ROUTE),
          changed(std::move(closure)) {
        if (socket)
            source = loop.addDescriptor(socket.descriptor(), DescriptorEvent::readable,
                                        [this] { hear(); });
    }

    explicit operator bool() const { return static_cast<bool>(socket); }

private:
    void hear() {
        constexpr int mostAtOnce = 10'000;  // the loop has others to serve
        std::array<char, 8> start;
        for (int i = 0; i < mostAtOnce; ++i) {
            if (recv(socket.descriptor(), start.data(), start.size(), MSG_DONTWAIT) >= 0)
                continue;
            if (errno != ENOBUFS && errno != EINTR)
                break;
        }
        const std::function<void()> call = changed;  // it may end this subscription
        call();
    }

    NetlinkSocket socket;
    std::function<void()> changed;
    RunLoopSource source;
};

class KernelRoutingTable : public RoutingTable {
public:
    std::optional<NetworkRoute> routeTo(const NetworkAddress& address) const override {
        const bool isShort = address.family == NetworkAddress::Family::ipv4;
        const std::size_t size = isShort ? 4 : 16;
        Request<rtmsg> request(RTM_GETROUTE, 0);
        request.body->rtm_family = isShort ? AF_INET : AF_INET6;
        request.body->rtm_dst_len = static_cast<unsigned char>(size * 8);
        mnl_attr_put(request.header, RTA_DST, size, address.bytes.data());
        if (address.scope != 0)
            mnl_attr_put_u32(request.header, RTA_OIF, address.scope);

        std::vector<Hop> hops;
        NetlinkSocket socket;
        const int error =
            socket.ask(*request.header, [&](const nlmsghdr& message) { addHops(message, hops); });
        if (error < 0 || error == ENOBUFS || error == ENOMEM)
            return std::nullopt;
        // All other errors are answers: each kind of route that refuses has one of its own.
        if (error != 0 || hops.empty())
            return NetworkRoute{};
        return completed(hops.front());
    }

    std::optional<std::vector<NetworkRoute>> defaultRoutes() const override {
        std::vector<Hop> hops;
        if (!addDefaultHops(AF_INET, hops) || !addDefaultHops(AF_INET6, hops))
            return std::nullopt;
        std::vector<NetworkRoute> routes;
        for (const Hop& hop : hops) {
            const std::optional<NetworkRoute> route = completed(hop);
            if (!route)
                return std::nullopt;
            routes.push_back(*route);
        }
        return routes;
    }

    Subscription subscribe(RunLoop& loop, std::function<void()> changed) const override {
        auto changes = std::make_shared<Changes>(loop, std::move(changed));
        return *changes ? changes : nullptr;
    }
};

}  // namespace

const std::shared_ptr<const RoutingTable>& RoutingTable::ofKernel() {
    // Never destroyed: who asks may outlive the statics.
    static const auto& table =
        *new std::shared_ptr<const RoutingTable>(std::make_shared<KernelRoutingTable>());
    return table;
}

}  // namespace quorin
