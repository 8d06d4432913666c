#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/FileInfo.h"
#include "apps/quorin/FileWork.h"
#include "apps/quorin/TextTable.h"
#include "quorin/platform/foundation/JSONEncoder.h"

namespace quorin::app {

namespace {

constexpr auto left = TextColumn::Side::left;

struct InfoOptions {
    std::vector<std::string> files;
    bool asJson = false;
    bool listsPaths = false;
};

void printJson(const std::vector<FileInfo>& infos) {
    // Drawings of huge numbers may have an infinite length, and a reader should still get a record.
    const JSONEncoder encoder({.indentation = 2, .nonFiniteAsTexts = true});
    print(encoder.encodeRecords(infos.size(),
                                [&](Encoder& record, std::size_t i) { infos[i].encode(record); }));
    print("\n");
}

/// Four columns, all empty for the null rect.
void addBox(std::vector<std::string>& row, const CGRect& box) {
    for (const CGFloat number : {box.origin.x, box.origin.y, box.size.width, box.size.height})
        row.push_back(CGRectIsNull(box) ? std::string() : shortText(number));
}

void printPaths(const FileInfo& info) {
    std::string heading = oneLine(info.file);
    heading.append(": ").append(shortText(info.size.width)).append(" by ");
    heading.append(shortText(info.size.height)).append(", ");
    heading.append(counted(info.totals.shapes, "shape")).append(", ");
    heading.append(counted(info.totals.paths, "path")).append("\n");
    print(heading);
    if (info.paths.empty())
        return;

    TextTable table({{"path"},
                     {"anchors"},
                     {"closed"},
                     {"length"},
                     {"x"},
                     {"y"},
                     {"width"},
                     {"height"},
                     {"straight"},
                     {"rectangle"},
                     {"shape"},
                     {"id", left}});
    for (std::size_t i = 0; i < info.paths.size(); ++i) {
        const PathSummary& path = info.paths[i];
        std::vector<std::string> row = {shortText(i), shortText(path.anchors),
                                        shortText(path.isClosed), shortText(path.length)};
        addBox(row, path.box);
        row.insert(row.end(), {shortText(path.isStraight), shortText(path.isRectangle),
                               shortText(path.shape), oneLine(path.id)});
        table.add(std::move(row));
    }
    print(table.text());
}

void printEachWithPaths(const std::vector<FileInfo>& infos) {
    bool isFirst = true;
    for (const FileInfo& info : infos) {
        if (info.error)
            continue;
        if (!isFirst)
            print("\n");
        isFirst = false;
        printPaths(info);
    }
}

std::vector<std::string> totalsRow(const std::string& name, const DrawingTotals& totals) {
    return {name,
            shortText(totals.shapes),
            shortText(totals.paths),
            shortText(totals.anchors),
            shortText(totals.closed),
            shortText(totals.straight),
            shortText(totals.rectangles),
            shortText(totals.length)};
}

std::vector<std::string> summaryRow(const FileInfo& info) {
    const std::string name = oneLine(info.file);
    if (info.reason) {
        std::vector<std::string> row(12);
        row.front() = name;
        row.push_back("not read: " + oneLine(*info.reason));
        return row;
    }
    std::vector<std::string> row = totalsRow(name, info.totals);
    addBox(row, boxAround(info.paths));
    if (!info.warnings.empty())
        row.push_back(counted(info.warnings.size(), "warning"));
    return row;
}

void printSummaries(const std::vector<FileInfo>& infos) {
    TextTable table({{"drawing", left},
                     {"shapes"},
                     {"paths"},
                     {"anchors"},
                     {"closed"},
                     {"straight"},
                     {"rectangles"},
                     {"length"},
                     {"x"},
                     {"y"},
                     {"width"},
                     {"height"},
                     {"notes", left}});
    DrawingTotals sum;
    std::size_t warnings = 0, readCount = 0;
    for (const FileInfo& info : infos) {
        table.add(summaryRow(info));
        sum.add(info.totals);
        warnings += info.warnings.size();
        readCount += info.error ? 0 : 1;
    }
    std::vector<std::string> last = totalsRow("all " + counted(readCount, "drawing"), sum);
    last.resize(12);
    last.push_back(counted(warnings, "warning"));
    if (readCount < infos.size())
        last.back().append(", ").append(shortText(infos.size() - readCount)).append(" not read");
    table.add(std::move(last));
    print(table.text());
}

void complainAbout(const FileInfo& info) {
    for (const SvgWarning& warning : info.warnings)
        complain(warning.description());
    if (info.error)
        complain(*info.error);
}

void run(const InfoOptions& options) {
    std::vector<FileInfo> infos(options.files.size());
    forEachFile(infos.size(), "reading",
                [&](std::size_t index) { infos[index] = infoOf(options.files[index]); });

    for (const FileInfo& info : infos)
        complainAbout(info);
    if (options.asJson)
        printJson(infos);
    else if (options.listsPaths || infos.size() == 1)
        printEachWithPaths(infos);
    else
        printSummaries(infos);

    if (std::any_of(infos.begin(), infos.end(),
                    [](const FileInfo& info) { return info.error.has_value(); }))
        throw CLI::RuntimeError(1);
}

}  // namespace

void addInfoCommand(CLI::App& program) {
    const auto options = std::make_shared<InfoOptions>();
    CLI::App* const command = program.add_subcommand(
        "info", "Tell what paths a drawing has; of several drawings, a line each");
    command->add_option("DRAWING", options->files, "Drawings to read, .svg or .json")
        ->type_name("")
        ->required();
    command->add_flag("--json", options->asJson, "Print a JSON list with all paths, numbers exact");
    command->add_flag("--paths", options->listsPaths, "List every path of several drawings too");
    command->footer(
        "Lengths are in the drawing's units. A path is straight when all its curves lie on a line\n"
        "in one direction, and a rectangle when it is closed, upright and of four straight "
        "anchors.\n\n"
        "Examples:\n"
        "  quorin info icon.svg            every path of a drawing\n"
        "  quorin info icons/*.svg         a line for each drawing, and the sums\n"
        "  quorin info --json icon.svg     the same for programs");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
