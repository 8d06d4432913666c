#pragma once

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>

#include "tests/TestSupport.h"

namespace quorin::test {

/// Runs `body` in a child process that has a network of its own, without any link up. Failures in
/// it fail the test. Where the machine forbids such networks the test says so and ends; the tests
/// on an injected routing table hold for the same logic.
inline void inOwnNetwork(const std::function<void()>& body) {
    constexpr int forbidden = 77;
    std::cout.flush();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (unshare(CLONE_NEWNET) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
            _exit(forbidden);
        if (std::system("ip link add v0 type veth peer name v1 >/dev/null 2>&1") != 0)
            _exit(forbidden);
        body();
        std::fflush(stdout);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (WIFEXITED(status) && WEXITSTATUS(status) == forbidden) {
        std::cout << "this machine forbids networks of one's own (unshare, ip): only the logic on "
                     "an injected routing table was tested\n";
        return;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
}

/// Has the `ip` program do something, as in `ip("link set lo up")`.
inline void ip(const std::string& command) {
    EXPECT_EQ(std::system(("ip " + command).c_str()), 0) << command;
}

}  // namespace quorin::test
