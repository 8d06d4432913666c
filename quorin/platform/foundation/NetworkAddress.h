#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct sockaddr;  // the system's <sys/socket.h>

namespace quorin {

/// An address of the Internet protocols, without a port. One of IPv4 that is written as one of IPv6
/// ("::ffff:192.0.2.1") is read as what it is.
struct NetworkAddress {
    enum class Family : std::uint8_t { ipv4, ipv6 };

    Family family = Family::ipv4;
    std::array<std::uint8_t, 16> bytes{};  ///< in network order; of IPv4 the first four
    std::uint32_t scope = 0;               ///< the link that an IPv6 address is only known on

    /// Nothing for null and for records of other families.
    static std::optional<NetworkAddress> from(const sockaddr* record);
    /// Reads "192.0.2.1" or "2001:db8::1"; nothing for other texts, names and shorter forms too.
    static std::optional<NetworkAddress> from(std::string_view text);

    /// As it is read; the scope is left out.
    std::string text() const;
    /// 0.0.0.0 or ::, which stand for any address.
    bool isAny() const;
    /// 127.0.0.0/8 or ::1.
    bool isLoopback() const;

    friend bool operator==(const NetworkAddress&, const NetworkAddress&) = default;
};

/// The addresses of a host by the system's means, which may take many seconds; none when it has no
/// such name.
std::vector<NetworkAddress> resolveHost(const std::string& name);

}  // namespace quorin
