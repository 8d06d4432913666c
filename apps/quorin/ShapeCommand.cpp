#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/DrawnBox.h"
#include "apps/quorin/FileArguments.h"
#include "apps/quorin/ParsedOption.h"

namespace quorin::app {

namespace {

struct ShapeOptions {
    std::string output;
    CGPoint at, center, from, to;
    CGSize size;
    std::size_t points = 5;
    CGFloat radius1 = 0;
    std::optional<CGFloat> radius2;
    CGFloat cornerRadius = 0;
    std::optional<DrawingColor> fill, stroke;
    std::optional<CGFloat> strokeWidth;
};

std::shared_ptr<Path> rectangle(const ShapeOptions& options) {
    return Path::rectangle({options.at, options.size});
}

std::shared_ptr<Path> ellipse(const ShapeOptions& options) {
    return Path::ellipse({options.at, options.size});
}

std::shared_ptr<Path> star(const ShapeOptions& options) {
    constexpr CGFloat usual = 0.4;
    return Path::star(options.center, static_cast<std::ptrdiff_t>(options.points), options.radius1,
                      options.radius2.value_or(usual * options.radius1));
}

std::shared_ptr<Path> line(const ShapeOptions& options) {
    return Path::line(options.from, options.to);
}

DrawingBrush brushOf(const std::optional<DrawingColor>& color) {
    return color ? DrawingBrush(*color) : DrawingBrush();
}

std::shared_ptr<Path> rounded(const std::shared_ptr<Path>& path, CGFloat radius) {
    path->segments().transform([&](PathSegment& segment) { segment.setRadius(radius); });
    return path->roundedCornerPath();
}

DrawingShape shapeOf(const std::shared_ptr<Path>& path, const ShapeOptions& options) {
    DrawingShape shape;
    shape.outline = CompoundPath::create({rounded(path, options.cornerRadius)});
    shape.paint.fill = brushOf(options.fill);
    shape.paint.stroke = brushOf(options.stroke);
    shape.paint.strokeWidth = options.strokeWidth.value_or(1);
    return shape;
}

void requirePaint(const ShapeOptions& options) {
    if (!options.fill && !options.stroke)
        throw CLI::ParseError("Without fill or line there is nothing to see",
                              CLI::ExitCodes::ValidationError);
    if (options.strokeWidth && !options.stroke)
        throw CLI::ParseError("--stroke-width requires --stroke", CLI::ExitCodes::RequiresError);
}

void run(const ShapeOptions& options, std::shared_ptr<Path> (*pathOf)(const ShapeOptions&)) {
    requirePaint(options);
    requireDrawingName(options.output);
    const DrawingShape shape = shapeOf(pathOf(options), options);
    const CGRect page = drawnBox(shape);
    if (!std::isfinite(CGRectGetMaxX(page)) || !std::isfinite(CGRectGetMaxY(page)))
        throw CLI::ParseError("The shape goes beyond what numbers can hold",
                              CLI::ExitCodes::ValidationError);
    saveDrawing({page, page.size, {shape}}, options.output);
}

/// A kind of shape as a command of its own, to which the options for its numbers are added.
class ShapeKind {
public:
    ShapeKind(CLI::App& parent, const std::string& name, const std::string& description,
              std::shared_ptr<Path> (*pathOf)(const ShapeOptions&))
        : options(std::make_shared<ShapeOptions>()),
          command(parent.add_subcommand(name, description)) {
        addDrawingOutput(*command, options->output);
        command->callback([options = options, pathOf] { run(*options, pathOf); });
    }

    ShapeKind& point(const std::string& name, CGPoint ShapeOptions::*target,
                     const std::string& description, bool isRequired) {
        addParsedOption(*command, name, "X,Y", (*options).*target, pointOf, description)
            ->required(isRequired);
        return *this;
    }
    ShapeKind& box() {
        point("--at", &ShapeOptions::at, "The corner at the smallest x and y [0,0]", false);
        addParsedOption(*command, "--size", "S|WxH", options->size, extentOf, "Width and height")
            ->required();
        return *this;
    }
    ShapeKind& rays() {
        const auto countRays = [](std::string_view name, std::string_view text) {
            return countOf(name, text, 2, 10'000);
        };
        point("--center", &ShapeOptions::center, "The middle [0,0]", false);
        addParsedOption(*command, "--points", "N", options->points, countRays, "How many rays [5]");
        addParsedOption(*command, "--radius1", "R", options->radius1, positiveOf,
                        "From the middle to the tips, the first of which is at the top")
            ->required();
        addParsedOption(*command, "--radius2", "R", options->radius2, lengthOf,
                        "To the corners between them [0.4 of the other]");
        return *this;
    }
    ShapeKind& corners() {
        addParsedOption(*command, "--corner-radius", "R", options->cornerRadius, cornerRadiusOf,
                        "Of the arcs at the corners, in whole units [0]");
        return *this;
    }
    void areaWith(const std::string& footer) {
        options->fill = DrawingColor{};
        addParsedOption(*command, "--fill", "COLOUR", options->fill, colorOf,
                        "A colour as in CSS, or none [black]");
        addStroke("A colour as in CSS, or none [none]");
        command->footer(footer);
    }
    void lineWith(const std::string& footer) {
        options->stroke = DrawingColor{};
        addStroke("A colour as in CSS [black]");
        command->footer(footer);
    }

private:
    void addStroke(const std::string& description) {
        addParsedOption(*command, "--stroke", "COLOUR", options->stroke, colorOf, description);
        addParsedOption(*command, "--stroke-width", "W", options->strokeWidth, positiveOf,
                        "Of the line [1]");
    }

    std::shared_ptr<ShapeOptions> options;
    CLI::App* command;
};

void addKinds(CLI::App& shape) {
    ShapeKind(shape, "rect", "An upright rectangle", rectangle)
        .box()
        .corners()
        .areaWith(
            "Examples:\n"
            "  quorin shape rect --size 80x50 card.svg\n"
            "  quorin shape rect --size 64 --corner-radius 12 --fill teal button.svg");
    ShapeKind(shape, "ellipse", "An upright ellipse or a circle", ellipse)
        .box()
        .areaWith(
            "Examples:\n"
            "  quorin shape ellipse --size 60x40 --fill gold egg.svg\n"
            "  quorin shape ellipse --size 30 --fill none --stroke navy --stroke-width 4 ring.svg");
    ShapeKind(shape, "star", "A star", star)
        .rays()
        .corners()
        .areaWith(
            "Examples:\n"
            "  quorin shape star --radius1 50 --fill gold star.svg\n"
            "  quorin shape star --points 12 --radius1 50 --radius2 40 --corner-radius 3 "
            "seal.json");
    ShapeKind(shape, "line", "A straight line", line)
        .point("--from", &ShapeOptions::from, "Where it begins", true)
        .point("--to", &ShapeOptions::to, "Where it ends", true)
        .lineWith(
            "Example:\n"
            "  quorin shape line --from 0,0 --to 90,40 --stroke crimson --stroke-width 6 line.svg");
}

}  // namespace

void addShapeCommand(CLI::App& program) {
    CLI::App* const shape =
        program.add_subcommand("shape", "Write a drawing of a rectangle, ellipse, star or line");
    shape->require_subcommand(1);
    shape->footer(
        "The page is the box of the shape with its line. Each kind has a --help of its own.\n\n"
        "Examples:\n"
        "  quorin shape rect --size 80x50 --corner-radius 8 card.svg\n"
        "  quorin shape ellipse --at 10,10 --size 60x40 --fill gold egg.svg\n"
        "  quorin shape star --points 7 --radius1 50 --radius2 30 star.svg\n"
        "  quorin shape line --from 0,0 --to 90,40 --stroke-width 6 line.svg");
    addKinds(*shape);
}

}  // namespace quorin::app
