#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "apps/quorin/Commands.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/FileArguments.h"

namespace quorin::app {

namespace {

struct ConvertOptions {
    std::string input, output;
};

void run(const ConvertOptions& options) {
    requireDrawingName(options.output);
    saveDrawing(loadDrawingAloud(options.input), options.output);
}

}  // namespace

void addConvertCommand(CLI::App& program) {
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App* const command =
        program.add_subcommand("convert", "Write a drawing in another form, .svg or .json");
    addInput(*command, options->input);
    addDrawingOutput(*command, options->output);
    command->footer(
        "JSON keeps anchors, handles, behaviours, corner radii and paint, every number exact. SVG\n"
        "keeps outlines and paint. An existing file is replaced when the new one is complete.\n\n"
        "Examples:\n"
        "  quorin convert icon.svg icon.json\n"
        "  quorin convert icon.json icon-again.svg");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
