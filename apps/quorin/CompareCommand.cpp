#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingFile.h"

namespace quorin::app {

namespace {

struct CompareOptions {
    std::string first, second;
};

void run(const CompareOptions& options) {
    const Drawing first = loadDrawingAloud(options.first);
    const Drawing second = loadDrawingAloud(options.second);
    if (hasSameGeometry(first, second))
        return;
    print(oneLine(options.first + " and " + options.second + " have different outlines") + "\n");
    throw CLI::RuntimeError(1);
}

}  // namespace

void addCompareCommand(CLI::App& program) {
    const auto options = std::make_shared<CompareOptions>();
    CLI::App* const command = program.add_subcommand(
        "compare", "Tell whether two drawings have the same outlines, bit for bit");
    command->add_option("FIRST", options->first, "A drawing, .svg or .json")
        ->type_name("")
        ->required();
    command->add_option("SECOND", options->second, "Another drawing")->type_name("")->required();
    command->footer(
        "Prints nothing and exits with 0 when they are the same, with 1 otherwise. Paint, names\n"
        "and shapes that draw nothing do not count.\n\n"
        "Example:\n"
        "  quorin compare icon.svg icon-again.svg && echo unchanged");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
