#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/DrawingPicture.h"
#include "apps/quorin/FileArguments.h"
#include "apps/quorin/FileWork.h"
#include "apps/quorin/ParsedOption.h"
#include "quorin/platform/cgpath/CGMutablePath.h"

namespace quorin::app {

namespace {

struct SheetOptions {
    std::string output;
    std::vector<std::string> files;
    std::size_t columns = 0;  // 0 makes the sheet a little wider than high
    std::size_t cell = 64;
    std::optional<DrawingColor> background = DrawingColor{246 / 255.0, 247 / 255.0, 249 / 255.0, 1};
};

/// Cells in rows from the top left, with gaps between them and around all.
class SheetLayout {
public:
    SheetLayout(std::size_t count, const SheetOptions& options)
        : cell(options.cell), gap(std::max<std::size_t>(1, options.cell / 4)) {
        const auto wide = static_cast<std::size_t>(std::ceil(std::sqrt(1.5 * double(count))));
        columns = std::min(count, options.columns == 0 ? wide : options.columns);
        rows = (count + columns - 1) / columns;
    }

    PixelSize size() const { return {gap + columns * (cell + gap), gap + rows * (cell + gap)}; }
    CGRect operator[](std::size_t index) const {
        const std::size_t x = gap + index % columns * (cell + gap);
        const std::size_t y = gap + index / columns * (cell + gap);
        return CGRectMake(double(x), double(y), double(cell), double(cell));
    }

private:
    std::size_t cell, gap, columns, rows;
};

struct Cell {
    std::shared_ptr<const CGImage> picture;  // null for what cannot be read
    std::string error;
};

Cell cellOf(const std::string& file, std::size_t side) {
    Cell cell;
    try {
        const LoadedDrawing loaded = loadDrawing(file);
        requireArea(loaded.drawing, file);
        const std::shared_ptr<CGContext> context = CGContext::createBitmap(side, side);
        paint(loaded.drawing, *context, CGRectMake(0, 0, double(side), double(side)));
        cell.picture = context->makeImage();
    } catch (const std::bad_alloc&) {
        cell.error = file + ": not enough memory";
    } catch (const std::exception& error) {
        cell.error = error.what();
    }
    return cell;
}

/// A crossed frame where a drawing should be.
void paintMissing(CGContext& context, const CGRect& rect) {
    context.setStrokeColor({0.82, 0.18, 0.18, 1});
    const CGRect frame = CGRectInset(rect, 0.5, 0.5);
    const CGPoint a = frame.origin;
    const CGPoint b = {CGRectGetMaxX(frame), CGRectGetMaxY(frame)};
    CGMutablePath cross;
    cross.addRect(frame);
    cross.moveTo(a);
    cross.addLineTo(b);
    cross.moveTo({b.x, a.y});
    cross.addLineTo({a.x, b.y});
    context.addPath(*cross.take());
    context.strokePath();
}

std::shared_ptr<const CGImage> sheetOf(const std::vector<Cell>& cells,
                                       const SheetOptions& options) {
    const SheetLayout layout(cells.size(), options);
    const auto [width, height] = layout.size();
    const std::shared_ptr<CGContext> context = CGContext::createBitmap(width, height);
    if (options.background) {
        context->setFillColor(platformColor(*options.background));
        context->fillRect(CGRectMake(0, 0, double(width), double(height)));
    }
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (cells[i].picture)
            context->drawImage(*cells[i].picture, layout[i]);
        else
            paintMissing(*context, layout[i]);
    return context->makeImage();
}

/// Tells before the work that its result would be too large.
void requireFit(const PixelSize& size, const std::string& output) {
    try {
        CGImage::requireSize(size.width, size.height);
    } catch (const ImageError& error) {
        throw InputError(output, error.what());
    }
}

void run(const SheetOptions& options) {
    requirePictureName(options.output);
    std::vector<Cell> cells(options.files.size());
    requireFit(SheetLayout(cells.size(), options).size(), options.output);
    forEachFile(cells.size(), "painting",
                [&](std::size_t i) { cells[i] = cellOf(options.files[i], options.cell); });

    std::size_t missing = 0;
    for (const Cell& cell : cells)
        if (!cell.picture) {
            complain(cell.error);
            ++missing;
        }
    if (missing < cells.size())
        savePicture(*sheetOf(cells, options), options.output);
    if (missing > 0)
        throw CLI::RuntimeError(1);
}

}  // namespace

void addSheetCommand(CLI::App& program) {
    const auto options = std::make_shared<SheetOptions>();
    CLI::App* const command =
        program.add_subcommand("sheet", "Paint many drawings side by side into a PNG file");
    addPictureOutput(*command, options->output);
    command->add_option("DRAWING", options->files, "Drawings to read, .svg or .json")
        ->type_name("")
        ->required();
    const auto countUpTo = [](std::size_t most) {
        return [most](std::string_view name, std::string_view text) {
            return countOf(name, text, 1, most);
        };
    };
    addParsedOption(*command, "--columns", "N", options->columns, countUpTo(10'000),
                    "Drawings in a row [as many as make the sheet wide]");
    addParsedOption(*command, "--cell", "PIXELS", options->cell, countUpTo(4'096),
                    "Side of each drawing's square [64]");
    addParsedOption(*command, "--background", "COLOUR", options->background, colorOf,
                    "A colour as in CSS, or none [#f6f7f9]");
    command->footer(
        "A drawing that cannot be read leaves a crossed frame, a line on standard error and the\n"
        "exit code 1. What was left out of those that can be read, quorin info tells.\n\n"
        "Examples:\n"
        "  quorin sheet sheet.png icons/*.svg\n"
        "  quorin sheet sheet.png icons/*.svg --columns 20 --cell 48 --background white");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
