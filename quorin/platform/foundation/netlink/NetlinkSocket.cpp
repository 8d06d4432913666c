#include "quorin/platform/foundation/netlink/NetlinkSocket.h"

#include <linux/netlink.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>

namespace quorin {

NetlinkSocket::NetlinkSocket(unsigned groups)
    : socket(mnl_socket_open2(NETLINK_ROUTE, SOCK_CLOEXEC)) {
    if (socket && mnl_socket_bind(socket.get(), groups, MNL_SOCKET_AUTOPID) != 0)
        socket.reset();
}

int NetlinkSocket::ask(nlmsghdr& request, FunctionRef<void(const nlmsghdr&)> take) {
    using Take = FunctionRef<void(const nlmsghdr&)>;
    constexpr unsigned number = 1;
    request.nlmsg_seq = number;
    request.nlmsg_flags |= NLM_F_REQUEST | NLM_F_ACK;
    if (!socket || mnl_socket_sendto(socket.get(), &request, request.nlmsg_len) < 0)
        return -1;

    const mnl_cb_t hand = [](const nlmsghdr* message, void* to) {
        (*static_cast<Take*>(to))(*message);
        return MNL_CB_OK;
    };
    alignas(nlmsghdr) std::array<char, 32'768> buffer;
    for (;;) {
        const ssize_t size = mnl_socket_recvfrom(socket.get(), buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            return -1;
        const int result = mnl_cb_run(buffer.data(), static_cast<std::size_t>(size), number,
                                      mnl_socket_get_portid(socket.get()), hand, &take);
        if (result < 0)
            return errno;
        if (result == MNL_CB_STOP)
            return 0;
    }
}

}  // namespace quorin
