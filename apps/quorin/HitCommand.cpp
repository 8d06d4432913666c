#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/FileArguments.h"
#include "apps/quorin/ParsedOption.h"
#include "quorin/platform/foundation/JSONEncoder.h"

namespace quorin::app {

namespace {

struct HitOptions {
    std::string input;
    CGPoint at;
    std::optional<CGFloat> lineWidth;  // instead of each shape's own
    CGFloat tolerance = 2;
    bool asJson = false;
};

struct OutlineHit {
    std::size_t path;
    std::string id;
    PathCurveLocation location;
};

/// What the pointer meets: the nearest place in reach on an outline, and the shapes it is inside
/// of, the topmost first as an editor would choose.
struct Hit {
    std::optional<OutlineHit> outline;
    std::vector<std::pair<std::size_t, std::string>> insideShapes;
};

CGFloat strokeWidth(const DrawingPaint& paint) {
    return std::holds_alternative<std::monostate>(paint.stroke) ? 0 : paint.strokeWidth;
}

Hit hitOf(const Drawing& drawing, const HitOptions& options) {
    Hit hit;
    std::size_t path = 0;
    for (std::size_t i = 0; i < drawing.shapes.size(); ++i) {
        const DrawingShape& shape = drawing.shapes[i];
        const CGFloat width = options.lineWidth.value_or(strokeWidth(shape.paint));
        for (const auto& contour : shape.outline->children()) {
            const auto location =
                contour->nearestCurveLocation(options.at, width, options.tolerance);
            // Of two that are equally near the later one is seen, as it is painted over the other.
            if (location &&
                (!hit.outline || location->distance() <= hit.outline->location.distance()))
                hit.outline = OutlineHit{path, shape.id, *location};
            ++path;
        }
        if (shape.outline->cg()->contains(options.at, shape.paint.fillRule))
            hit.insideShapes.insert(hit.insideShapes.begin(), {i, shape.id});
    }
    return hit;
}

void encode(const Hit& hit, Encoder& encoder) {
    if (hit.outline)
        encoder.encodeRecord("outline", [&](Encoder& record) {
            const PathCurveLocation& location = hit.outline->location;
            record.encodeInt("path", static_cast<std::int64_t>(hit.outline->path));
            record.encodeText("id", hit.outline->id);
            record.encodeInt("curve", location.curve().index().value_or(0));
            record.encodeNumber("time", location.time().rawValue);
            record.encodePoint("point", location.point());
            record.encodeNumber("distance", location.distance());
        });
    encoder.encodeRecords("inside", hit.insideShapes.size(), [&](Encoder& record, std::size_t i) {
        const auto& [shape, id] = hit.insideShapes[i];
        record.encodeInt("shape", static_cast<std::int64_t>(shape));
        record.encodeText("id", id);
    });
}

/// Nine digits: more than a pointer can place, and still readable.
std::string digits(CGFloat number) {
    std::array<char, 32> buffer;
    std::snprintf(buffer.data(), buffer.size(), "%.9g", number);
    return buffer.data();
}

std::string named(std::size_t number, const std::string& id) {
    std::string name = std::to_string(number);
    if (!id.empty())
        name.append(" (").append(oneLine(id)).append(")");
    return name;
}

std::string text(const Hit& hit) {
    std::string text = "outline   ";
    if (hit.outline) {
        const PathCurveLocation& location = hit.outline->location;
        text.append("path ").append(named(hit.outline->path, hit.outline->id));
        text.append(", curve ").append(std::to_string(location.curve().index().value_or(0)));
        text.append(", time ").append(digits(location.time().rawValue));
        text.append("\npoint     ").append(digits(location.point().x));
        text.append(", ").append(digits(location.point().y));
        text.append("\ndistance  ").append(digits(location.distance())).append("\n");
    } else {
        text += "none within reach\n";
    }
    if (hit.insideShapes.empty())
        text += "inside    no shape\n";
    for (const auto& [shape, id] : hit.insideShapes)
        text.append("inside    shape ").append(named(shape, id)).append("\n");
    return text;
}

void run(const HitOptions& options) {
    const Drawing drawing = loadDrawingAloud(options.input);
    const Hit hit = hitOf(drawing, options);
    if (!options.asJson)
        return print(text(hit));
    print(JSONEncoder({.indentation = 2}).encode([&](Encoder& encoder) { encode(hit, encoder); }));
    print("\n");
}

}  // namespace

void addHitCommand(CLI::App& program) {
    const auto options = std::make_shared<HitOptions>();
    CLI::App* const command =
        program.add_subcommand("hit", "Tell which outline and which shapes a pointer meets");
    addInput(*command, options->input);
    addParsedOption(*command, "--at", "X,Y", options->at, pointOf,
                    "The place, in the drawing's units")
        ->required();
    addParsedOption(*command, "--line-width", "W", options->lineWidth, lengthOf,
                    "Width of the lines [as drawn, 0 without a stroke]");
    addParsedOption(*command, "--tolerance", "T", options->tolerance, lengthOf,
                    "Reach beyond the edge of a line [2]");
    command->add_flag("--json", options->asJson, "Print a JSON record, numbers exact");
    command->footer(
        "Paths, shapes and curves are counted from 0, paths as info lists them. The shapes that\n"
        "the place is inside of are listed from the topmost down, painted or not.\n\n"
        "Examples:\n"
        "  quorin hit icon.svg --at 12,7.5\n"
        "  quorin hit icon.svg --at -3,4 --line-width 2 --tolerance 0.5");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
