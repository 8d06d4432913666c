#include "tests/apps/ProgramRun.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "tests/support/TemporaryFolder.h"

namespace quorin::test {
namespace {

constexpr const char* program = QUORIN_PROGRAM;

ProgramRun run(const std::vector<std::string>& words) {
    const TemporaryFolder folder;
    const std::string output = folder.file("output", ""), errors = folder.file("errors", "");

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_WRONLY, 0);
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    const int failure =
        posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    EXPECT_EQ(failure, 0) << "cannot start " << words[0];
    if (failure != 0)
        return {};

    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(output), contents(errors)};
}

}  // namespace

ProgramRun runQuorin(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return run(words);
}

ProgramRun runQuorinAfter(const std::string& setup, const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {"/bin/sh", "-c", setup + "; exec \"$0\" \"$@\"", program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return run(words);
}

std::string contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::pair<std::size_t, std::size_t> sizeOfPng(const std::string& path) {
    const std::string bytes = contents(path);
    EXPECT_EQ(bytes.substr(0, 16), std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    const auto number = [&](std::size_t at) {
        std::size_t value = 0;
        for (const char c : bytes.substr(at, 4))
            value = value << 8 | static_cast<unsigned char>(c);
        return value;
    };
    return {number(16), number(20)};
}

}  // namespace quorin::test
