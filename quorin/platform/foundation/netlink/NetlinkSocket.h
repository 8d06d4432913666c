#pragma once

#include <libmnl/libmnl.h>

#include <memory>

#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// A conversation with the kernel about links and routes.
class NetlinkSocket {
public:
    /// Hears of the groups as well. Without a descriptor when the system has none to give.
    explicit NetlinkSocket(unsigned groups = 0);

    explicit operator bool() const { return socket != nullptr; }
    int descriptor() const { return mnl_socket_get_fd(socket.get()); }

    /// Sends a request and hands over each message of the answer. Gives 0, or the error that the
    /// kernel answered, or -1 when it could not be asked.
    int ask(nlmsghdr& request, FunctionRef<void(const nlmsghdr&)> take);

private:
    struct Close {
        void operator()(mnl_socket* opened) const { mnl_socket_close(opened); }
    };
    std::unique_ptr<mnl_socket, Close> socket;
};

}  // namespace quorin
