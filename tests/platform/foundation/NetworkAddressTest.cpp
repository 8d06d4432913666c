#include "quorin/platform/foundation/NetworkAddress.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using Family = NetworkAddress::Family;
using std::string_view_literals::operator""sv;
using testing::Contains;
using testing::IsEmpty;

std::vector<int> bytesOf(const NetworkAddress& address) {
    const std::ptrdiff_t count = address.family == Family::ipv4 ? 4 : 16;
    return {address.bytes.begin(), address.bytes.begin() + count};
}

sockaddr_in recordOf(const char* four) {
    sockaddr_in record{};
    record.sin_family = AF_INET;
    record.sin_port = 80;
    inet_pton(AF_INET, four, &record.sin_addr);
    return record;
}

sockaddr_in6 record6Of(const char* six, std::uint32_t scope = 0) {
    sockaddr_in6 record{};
    record.sin6_family = AF_INET6;
    record.sin6_scope_id = scope;
    inet_pton(AF_INET6, six, &record.sin6_addr);
    return record;
}

template <typename Record>
std::optional<NetworkAddress> fromRecord(const Record& record) {
    return NetworkAddress::from(reinterpret_cast<const sockaddr*>(&record));
}

TEST(NetworkAddress, readsWrittenAddressesOfBothFamilies) {
    const auto four = NetworkAddress::from("192.0.2.1").value();
    EXPECT_EQ(four.family, Family::ipv4);
    EXPECT_EQ(bytesOf(four), (std::vector<int>{192, 0, 2, 1}));
    const auto six = NetworkAddress::from("2001:db8::1").value();
    EXPECT_EQ(six.family, Family::ipv6);
    EXPECT_EQ(bytesOf(six),
              (std::vector<int>{0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
    for (const char* text : {"192.0.2.1", "2001:db8::1", "0.0.0.0", "::", "255.255.255.255"})
        EXPECT_EQ(NetworkAddress::from(text).value().text(), text);
}

TEST(NetworkAddress, readsNothingElse) {
    for (const std::string_view text :
         {""sv, "example.org"sv, "127.1"sv, "256.0.0.1"sv, "192.0.2.1 "sv, "1.2.3.4/8"sv, "::g"sv,
          "fe80::1%eth0"sv, "[::1]"sv, "127.0.0.1\0.example.org"sv, "::1\0"sv}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(NetworkAddress::from(text), std::nullopt);
    }
}

TEST(NetworkAddress, readsRecordsWithoutTheirPort) {
    EXPECT_EQ(fromRecord(recordOf("192.0.2.1")), NetworkAddress::from("192.0.2.1"));
    EXPECT_EQ(fromRecord(record6Of("2001:db8::1")), NetworkAddress::from("2001:db8::1"));
    const auto scoped = fromRecord(record6Of("fe80::1", 7)).value();
    EXPECT_EQ(scoped.scope, 7u);
    EXPECT_NE(scoped, NetworkAddress::from("fe80::1"));

    EXPECT_EQ(NetworkAddress::from(static_cast<const sockaddr*>(nullptr)), std::nullopt);
    sockaddr other{};
    other.sa_family = AF_UNIX;
    EXPECT_EQ(NetworkAddress::from(&other), std::nullopt);
}

TEST(NetworkAddress, takesAnIPv4AddressInDisguiseForWhatItIs) {
    const auto plain = NetworkAddress::from("192.0.2.1");
    EXPECT_EQ(NetworkAddress::from("::ffff:192.0.2.1"), plain);
    EXPECT_EQ(NetworkAddress::from("::ffff:c000:201"), plain);
    EXPECT_EQ(fromRecord(record6Of("::ffff:192.0.2.1", 3)), plain);
    EXPECT_TRUE(NetworkAddress::from("::ffff:0.0.0.0").value().isAny());
    EXPECT_TRUE(NetworkAddress::from("::ffff:127.0.0.1").value().isLoopback());
}

TEST(NetworkAddress, knowsTheOnesThatStandForAny) {
    for (const char* text : {"0.0.0.0", "::"})
        EXPECT_TRUE(NetworkAddress::from(text).value().isAny()) << text;
    for (const char* text : {"0.0.0.1", "1.0.0.0", "::1", "1::", "127.0.0.1"})
        EXPECT_FALSE(NetworkAddress::from(text).value().isAny()) << text;
}

TEST(NetworkAddress, knowsLoopbackAddresses) {
    for (const char* text : {"127.0.0.0", "127.0.0.1", "127.255.255.255", "::1"})
        EXPECT_TRUE(NetworkAddress::from(text).value().isLoopback()) << text;
    for (const char* text : {"126.255.255.255", "128.0.0.0", "0.0.0.0", "::", "::2", "7f00::1"})
        EXPECT_FALSE(NetworkAddress::from(text).value().isLoopback()) << text;
}

TEST(ResolveHost, findsEachAddressOnceAndNoneForANameThatNobodyHas) {
    const std::vector<NetworkAddress> found = resolveHost("localhost");
    ASSERT_FALSE(found.empty());
    for (const NetworkAddress& address : found) {
        EXPECT_TRUE(address.isLoopback()) << address.text();
        EXPECT_EQ(std::count(found.begin(), found.end(), address), 1) << address.text();
    }
    EXPECT_THAT(resolveHost("127.0.0.1"), Contains(NetworkAddress::from("127.0.0.1").value()));
    EXPECT_THAT(resolveHost("a name with spaces"), IsEmpty());
}

}  // namespace
}  // namespace quorin
