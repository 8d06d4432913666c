#include <CLI/CLI.hpp>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingFile.h"
#include "quorin/Version.h"

namespace quorin::app {

namespace {

enum ExitCode { wentWell = 0, badInput = 1, badUsage = 2 };

bool hasCommands(const CLI::App& command) {
    return !command.get_subcommands([](const CLI::App*) { return true; }).empty();
}

/// One line about what is wrong and one about where to read on.
std::string usageMessage(const CLI::App* program, const CLI::Error& error) {
    const CLI::App* chosen = program;
    std::string command = program->get_name();
    while (!chosen->get_subcommands().empty()) {
        chosen = chosen->get_subcommands().front();
        command.append(" ").append(chosen->get_name());
    }
    std::string reason = error.what();
    const std::vector<std::string> unknown = chosen->remaining();
    if (hasCommands(*chosen) && !unknown.empty()) {
        reason =
            unknown.front().starts_with('-') ? "there is no option '" : "there is no command '";
        reason.append(unknown.front()).append("'");
    }
    std::string message = "quorin: ";
    message.append(oneLine(reason)).append("\nRun '").append(command);
    return message.append(" --help' for more.\n");
}

void describe(CLI::App& program) {
    program.set_version_flag("--version", std::string("quorin ") + QuorinGraphicsVersionString);
    program.require_subcommand(1);
    program.failure_message(usageMessage);
    program.footer(
        "Examples:\n"
        "  quorin info icon.svg                  what paths are in a drawing\n"
        "  quorin info --json icons/*.svg        the same of many, for programs\n"
        "  quorin render icon.svg icon.png --size 512 --anchors\n"
        "  quorin convert icon.svg icon.json     anchors, handles, behaviours and paint\n"
        "  quorin shape star --radius1 50 --fill gold star.svg\n"
        "  quorin transform icon.svg twice.svg --scale 2\n"
        "  quorin round icon.svg soft.svg --radius 2\n"
        "  quorin trim icon.svg part.svg --from 0.2 --to 0.7\n"
        "  quorin hit icon.svg --at 12,7.5       what a click there meets\n"
        "  quorin sheet sheet.png icons/*.svg    many drawings in one picture\n"
        "  quorin spring rk4 --plot curve.png    how a spring comes to rest\n"
        "  quorin device                         which machine this is\n"
        "  quorin digest icon.svg                whether files are the same\n"
        "  quorin reach example.org              whether there is a way to a host\n"
        "  quorin field --transformer NumberTransformer 12*2    what a field makes of it\n"
        "  quorin screens                        the device screens of new documents\n"
        "  quorin watch icon.svg                 a picture that keeps up with the drawing\n"
        "\n"
        "A drawing is an .svg file or the .json that convert writes. Each command has a --help\n"
        "of its own. The exit code is 0 when all went well, 1 for input that cannot be used, and\n"
        "2 for a command line that cannot.");
    addInfoCommand(program);
    addRenderCommand(program);
    addConvertCommand(program);
    addShapeCommand(program);
    addTransformCommand(program);
    addRoundCommand(program);
    addTrimCommand(program);
    addHitCommand(program);
    addCompareCommand(program);
    addSheetCommand(program);
    addSpringCommand(program);
    addDeviceCommand(program);
    addDigestCommand(program);
    addReachCommand(program);
    addFieldCommand(program);
    addScreensCommand(program);
    addWatchCommand(program);
}

int obey(int argumentCount, char** arguments) {
    CLI::App program("Looks into vector drawings, makes, changes and paints them; follows springs.",
                     "quorin");
    describe(program);
    try {
        program.parse(argumentCount, arguments);
        return wentWell;
    } catch (const CLI::RuntimeError& error) {
        return error.get_exit_code();  // a command has said already what is wrong
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? wentWell : badUsage;
    }
}

int run(int argumentCount, char** arguments) {
    try {
        const int code = obey(argumentCount, arguments);
        const bool isPrinted = finishOutput();
        return code == wentWell && !isPrinted ? badInput : code;
    } catch (const std::bad_alloc&) {
        complain("not enough memory");
    } catch (const std::exception& error) {
        complain(error.what());
    }
    return badInput;
}

}  // namespace

}  // namespace quorin::app

int main(int argumentCount, char** arguments) { return quorin::app::run(argumentCount, arguments); }
