#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/ContourWork.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/FileArguments.h"
#include "apps/quorin/ParsedOption.h"
#include "apps/quorin/TextTable.h"

namespace quorin::app {

namespace {

struct TrimOptions {
    std::string input, output;
    CGFloat from = 0, to = 1;
    std::optional<CGFloat> lineWidth;
};

/// The area's paint goes to a line in its place.
void drawAsLine(DrawingPaint& paint, CGFloat width) {
    if (std::holds_alternative<std::monostate>(paint.stroke)) {
        paint.stroke = paint.fill;
        paint.strokeOpacity = paint.fillOpacity;
        paint.strokeWidth = width;
    }
    paint.fill = std::monostate();
}

void requireRange(const TrimOptions& options) {
    if (options.from < options.to)
        return;
    std::string message = "expected more than --from, which is ";
    message.append(shortText(options.from)).append(", not '");
    message.append(shortText(options.to)).append("'");
    throw CLI::ValidationError("--to", message);
}

void run(const TrimOptions& options) {
    requireRange(options);
    requireDrawingName(options.output);
    Drawing drawing = loadDrawingAloud(options.input);
    replaceContours(drawing, [&](const std::shared_ptr<Path>& contour) {
        return contour->partialPath(options.from, options.to);
    });
    if (options.lineWidth)
        for (DrawingShape& shape : drawing.shapes)
            drawAsLine(shape.paint, *options.lineWidth);
    saveDrawing(drawing, options.output);
}

}  // namespace

void addTrimCommand(CLI::App& program) {
    const auto options = std::make_shared<TrimOptions>();
    CLI::App* const command =
        program.add_subcommand("trim", "Keep a part of each outline of a drawing");
    addInput(*command, options->input);
    addDrawingOutput(*command, options->output);
    addParsedOption(*command, "--from", "F", options->from, fractionOf,
                    "Where the part begins, a fraction of the length [0]");
    addParsedOption(*command, "--to", "F", options->to, fractionOf, "Where it ends [1]");
    addParsedOption(*command, "--lines", "W", options->lineWidth, lengthOf,
                    "Draw the parts as lines instead of filling them, those without a line\n"
                    "of their own in the fill's paint and this wide");
    command->footer(
        "Each contour is measured by itself, a closed one from its first anchor around. The parts\n"
        "are open: their lines end where they do, while a fill goes straight from end to start.\n"
        "The whole of a contour, from 0 to 1, stays as it is. Dashes begin anew with each part.\n\n"
        "Examples:\n"
        "  quorin trim sketch.svg part.svg --from 0.2 --to 0.7\n"
        "  quorin trim icon.svg lines.svg --to 0.5 --lines 1");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
