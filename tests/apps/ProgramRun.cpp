#include "tests/apps/ProgramRun.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <utility>

#include "tests/support/TemporaryFolder.h"

namespace quorin::test {
namespace {

ProgramRun run(const std::vector<std::string>& words) {
    const TemporaryFolder folder;
    const OutputFile output(folder / "output"), errors(folder / "errors");
    const int exitCode = RunningProgram(words, output.descriptor, errors.descriptor).waitForExit();
    return {exitCode, contents(output.path), contents(errors.path)};
}

}  // namespace

OutputFile::OutputFile(std::string name)
    : path(std::move(name)), descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600)) {}

OutputFile::~OutputFile() { close(descriptor); }

RunningProgram::RunningProgram(const std::vector<std::string>& words, int output, int errors) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    if (posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
        ADD_FAILURE() << "cannot start " << words[0];
        process = 0;
    }
    posix_spawn_file_actions_destroy(&actions);
}

void RunningProgram::sendSignal(int signal) const { EXPECT_EQ(kill(process, signal), 0); }

int RunningProgram::waitForExit() {
    int status = 0;
    if (process != 0 && waitpid(process, &status, 0) == process && WIFEXITED(status))
        exitCode = WEXITSTATUS(status);
    process = 0;
    return exitCode;
}

ProgramRun runQuorin(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {quorinProgram};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return run(words);
}

ProgramRun runQuorinAfter(const std::string& setup, const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {"/bin/sh", "-c", setup + "; exec \"$0\" \"$@\"",
                                      quorinProgram};
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
