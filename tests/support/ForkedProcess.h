#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "tests/TestSupport.h"

namespace quorin::test {

/// Runs `body` in a process of its own, which ends with the number it returns, 99 if it throws.
template <typename Body>
pid_t forked(const Body& body) {
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process != 0)
        return process;
    int code = 99;
    try {
        code = body();
    } catch (...) {
    }
    _exit(code);
}

/// The exit code, or 1,000 and the number of the signal.
inline int resultOf(pid_t process) {
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1'000 + WTERMSIG(status);
}

}  // namespace quorin::test
