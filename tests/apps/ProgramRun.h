#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin::test {

/// What became of a run of the quorin program.
struct ProgramRun {
    int exitCode = -1;  ///< -1 when a signal ended it
    std::string output, errors;
};

/// An empty file that is open for writing.
class OutputFile {
public:
    explicit OutputFile(std::string name);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    const std::string path;
    const int descriptor;
};

/// The quorin program at work. Its outputs go to two open descriptors.
class RunningProgram {
public:
    /// `words` start with the path of a program, which need not be quorin.
    RunningProgram(const std::vector<std::string>& words, int output, int errors);
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram() { waitForExit(); }

    void sendSignal(int signal) const;
    /// The exit code, -1 when a signal ended it.
    int waitForExit();

private:
    int process = 0;
    int exitCode = -1;
};

/// Where the build put the program.
inline const std::string quorinProgram = QUORIN_PROGRAM;

/// Runs the program to its end, its two outputs going to files.
ProgramRun runQuorin(const std::vector<std::string>& arguments);

/// The same from a shell that runs `setup` first, for example "exec >&-".
ProgramRun runQuorinAfter(const std::string& setup, const std::vector<std::string>& arguments);

/// All bytes of a file.
std::string contents(const std::string& path);

/// Width and height as the header of a PNG file has them.
std::pair<std::size_t, std::size_t> sizeOfPng(const std::string& path);

MATCHER(WentWell, "") { return arg.exitCode == 0 && arg.errors.empty(); }

/// Nothing printed but one line on standard error, exactly this one behind "quorin: ".
MATCHER_P(RefusedInput, line, "") {
    return arg.exitCode == 1 && arg.output.empty() &&
           arg.errors == "quorin: " + std::string(line) + "\n";
}

/// A line that says what is wrong with the command line and one that says where to read on.
MATCHER_P2(RefusedUsage, line, command, "") {
    return arg.exitCode == 2 && arg.output.empty() &&
           arg.errors ==
               "quorin: " + std::string(line) + "\nRun '" + command + " --help' for more.\n";
}

inline void PrintTo(const ProgramRun& run, std::ostream* stream) {
    *stream << "exit code " << run.exitCode << "\n--- output\n"
            << run.output << "--- errors\n"
            << run.errors;
}

}  // namespace quorin::test
