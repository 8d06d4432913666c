#include "quorin/platform/foundation/NetworkAddress.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace quorin {
namespace {

int systemFamily(NetworkAddress::Family family) {
    return family == NetworkAddress::Family::ipv4 ? AF_INET : AF_INET6;
}

NetworkAddress addressOf(const in_addr& four) {
    NetworkAddress address;
    std::memcpy(address.bytes.data(), &four, sizeof four);
    return address;
}

NetworkAddress addressOf(const in6_addr& six, std::uint32_t scope) {
    NetworkAddress address;
    // An IPv4 address in disguise is routed as what it is.
    if (IN6_IS_ADDR_V4MAPPED(&six)) {
        std::memcpy(address.bytes.data(), six.s6_addr + 12, 4);
        return address;
    }
    address.family = NetworkAddress::Family::ipv6;
    address.scope = scope;
    std::memcpy(address.bytes.data(), &six, sizeof six);
    return address;
}

}  // namespace

std::optional<NetworkAddress> NetworkAddress::from(const sockaddr* record) {
    if (record && record->sa_family == AF_INET) {
        sockaddr_in in{};
        std::memcpy(&in, record, sizeof in);
        return addressOf(in.sin_addr);
    }
    if (record && record->sa_family == AF_INET6) {
        sockaddr_in6 in{};
        std::memcpy(&in, record, sizeof in);
        return addressOf(in.sin6_addr, in.sin6_scope_id);
    }
    return std::nullopt;
}

std::optional<NetworkAddress> NetworkAddress::from(std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        return std::nullopt;
    const std::string terminated(text);
    in_addr four{};
    if (inet_pton(AF_INET, terminated.c_str(), &four) == 1)
        return addressOf(four);
    in6_addr six{};
    if (inet_pton(AF_INET6, terminated.c_str(), &six) == 1)
        return addressOf(six, 0);
    return std::nullopt;
}

std::string NetworkAddress::text() const {
    char text[INET6_ADDRSTRLEN] = "";
    inet_ntop(systemFamily(family), bytes.data(), text, sizeof text);
    return text;
}

bool NetworkAddress::isAny() const {
    return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
}

bool NetworkAddress::isLoopback() const {
    if (family == Family::ipv4)
        return bytes[0] == 127;
    return std::memcmp(bytes.data(), &in6addr_loopback, sizeof in6addr_loopback) == 0;
}

std::vector<NetworkAddress> resolveHost(const std::string& name) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;  // or every address would come once for each kind of socket
    addrinfo* first = nullptr;
    if (getaddrinfo(name.c_str(), nullptr, &hints, &first) != 0)
        return {};
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> list(first, &freeaddrinfo);
    std::vector<NetworkAddress> addresses;
    for (const addrinfo* entry = first; entry; entry = entry->ai_next)
        if (const auto address = NetworkAddress::from(entry->ai_addr))
            addresses.push_back(*address);
    return addresses;
}

}  // namespace quorin
