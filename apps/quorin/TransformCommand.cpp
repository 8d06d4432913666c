#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <string>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/DrawingTransform.h"
#include "apps/quorin/DrawnBox.h"
#include "apps/quorin/FileArguments.h"

namespace quorin::app {

namespace {

struct TransformOptions {
    std::string input, output;
    CGAffineTransform shapes;  // all that was asked for, in order
    CGAffineTransform page;    // the scales among them
    bool changesAnything = false;
    bool fits = false;
};

/// What an option asks for is done behind what stood before it on the command line.
void addStep(TransformOptions& options, const CGAffineTransform& step) {
    options.shapes = CGAffineTransformConcat(options.shapes, step);
    options.changesAnything = true;
}

void addScale(TransformOptions& options, CGSize scale) {
    const CGAffineTransform step = CGAffineTransformMakeScale(scale.width, scale.height);
    addStep(options, step);
    options.page = CGAffineTransformConcat(options.page, step);
}

void requireUsable(const TransformOptions& options) {
    if (!options.changesAnything && !options.fits)
        throw CLI::ParseError("One of --scale, --move, --matrix and --fit is required",
                              CLI::ExitCodes::RequiredError);
    if (!std::isnormal(growthOf(options.shapes)))
        throw CLI::ParseError("The transforms go beyond what numbers can hold",
                              CLI::ExitCodes::ValidationError);
}

void run(const TransformOptions& options) {
    requireUsable(options);
    requireDrawingName(options.output);
    Drawing drawing = loadDrawingAloud(options.input);
    transformShapes(drawing, options.shapes);
    transformPage(drawing, options.page);
    if (options.fits) {
        const CGRect box = drawnBox(drawing);
        if (CGRectIsEmpty(box))
            throw InputError(options.input, "nothing is painted that a page could fit");
        fitPage(drawing, box);
    }
    saveDrawing(drawing, options.output);
}

/// An option that may stand several times, each of which counts in its place.
template <typename Parse, typename Use>
void addStepOption(CLI::App& command, const std::string& name, const std::string& form,
                   const Parse& parse, const Use& use, const std::string& description) {
    const auto take = [name, parse, use](const std::string& text) { use(parse(name, text)); };
    command.add_option_function<std::string>(name, take, description)
        ->type_name(form)
        ->trigger_on_parse();
}

}  // namespace

void addTransformCommand(CLI::App& program) {
    const auto options = std::make_shared<TransformOptions>();
    CLI::App* const command =
        program.add_subcommand("transform", "Scale, move, turn or skew a drawing");
    addInput(*command, options->input);
    addDrawingOutput(*command, options->output);
    addStepOption(
        *command, "--scale", "S|SX,SY", scaleOf, [options](CGSize s) { addScale(*options, s); },
        "Times as large, the page too");
    addStepOption(
        *command, "--move", "DX,DY", pointOf,
        [options](CGPoint p) { addStep(*options, CGAffineTransformMakeTranslation(p.x, p.y)); },
        "So far to the right and down");
    addStepOption(
        *command, "--matrix", "A,B,C,D,TX,TY", matrixOf,
        [options](const CGAffineTransform& matrix) { addStep(*options, matrix); },
        "x' = A x + C y + TX, y' = B x + D y + TY");
    command->add_flag("--fit", options->fits, "Make the page the box of what is painted then");
    command->footer(
        "Transforms are done in the order in which they stand, each as often as it stands. Clips\n"
        "and gradients follow; widths of lines, dashes and corner radii grow by the square root\n"
        "of what happens to areas. The page follows a --scale only; all other transforms move\n"
        "the shapes on it.\n\n"
        "Examples:\n"
        "  quorin transform icon.svg twice.svg --scale 2\n"
        "  quorin transform icon.svg mirrored.svg --scale -1,1\n"
        "  quorin transform icon.svg turned.svg --matrix 0,1,-1,0,0,0 --fit");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
