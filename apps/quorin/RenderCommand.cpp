#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "apps/quorin/Commands.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/FileArguments.h"
#include "apps/quorin/PictureOptions.h"

namespace quorin::app {

namespace {

struct RenderOptions {
    std::string input, output;
    PictureOptions picture;
};

void run(const RenderOptions& options) {
    requirePictureName(options.output);
    const Drawing drawing = loadDrawingAloud(options.input);
    savePicture(*pictureOf(drawing, options.input, options.output, options.picture),
                options.output);
}

}  // namespace

void addRenderCommand(CLI::App& program) {
    const auto options = std::make_shared<RenderOptions>();
    CLI::App* const command = program.add_subcommand("render", "Paint a drawing into a PNG file");
    addInput(*command, options->input);
    addPictureOutput(*command, options->output);
    addPictureOptions(*command, options->picture);
    command->footer(
        "The drawing keeps its proportions and stands in the middle of the picture.\n\n"
        "Examples:\n"
        "  quorin render icon.svg icon.png\n"
        "  quorin render icon.svg large.png --size 800x600 --background white --anchors");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
