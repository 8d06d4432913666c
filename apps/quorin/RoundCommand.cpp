#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/ContourWork.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/FileArguments.h"
#include "apps/quorin/ParsedOption.h"

namespace quorin::app {

namespace {

struct RoundOptions {
    std::string input, output;
    std::optional<CGFloat> radius;  // instead of each anchor's own
};

std::shared_ptr<Path> rounded(const Path& contour, const RoundOptions& options) {
    if (!options.radius)
        return contour.roundedCornerPath();
    const std::shared_ptr<Path> path = Path::create(contour);
    path->segments().transform([&](PathSegment& segment) { segment.setRadius(*options.radius); });
    return path->roundedCornerPath();
}

void run(const RoundOptions& options) {
    requireDrawingName(options.output);
    Drawing drawing = loadDrawingAloud(options.input);
    replaceContours(drawing, [&](const auto& contour) { return rounded(*contour, options); });
    saveDrawing(drawing, options.output);
}

}  // namespace

void addRoundCommand(CLI::App& program) {
    const auto options = std::make_shared<RoundOptions>();
    CLI::App* const command =
        program.add_subcommand("round", "Make arcs of the sharp corners of a drawing");
    addInput(*command, options->input);
    addDrawingOutput(*command, options->output);
    addParsedOption(*command, "--radius", "R", options->radius, cornerRadiusOf,
                    "Radius of all sharp corners [each anchor's own]");
    command->footer(
        "Sharp are anchors without handles. A corner takes at most half of a straight side, and\n"
        "of a curved one the stretch that is nearly straight. Radii count in whole units of the\n"
        "drawing: where that is too coarse, transform --scale makes the drawing larger before.\n"
        "Anchors in SVG have no radii of their own, those in JSON may.\n\n"
        "Examples:\n"
        "  quorin round icon.svg soft.svg --radius 2\n"
        "  quorin round design.json design.svg");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
