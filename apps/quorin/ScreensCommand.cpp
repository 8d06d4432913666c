#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/TextTable.h"
#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/screens/ScreenCatalogue.h"

namespace quorin::app {

namespace {

struct ScreensOptions {
    std::string file;      // empty for the library's catalogue
    std::string category;  // empty for all
    bool asJson = false;
};

ScreenCatalogue catalogueOf(const std::string& file) {
    try {
        return decodeScreenTemplates(readFile(file));
    } catch (const FileError& error) {
        throw InputError(file, error.reason());
    } catch (const DecodingError& error) {
        throw InputError(file, error.what());
    }
}

ScreenCatalogue libraryCatalogue() {
    if (auto catalogue = libraryScreenTemplates())
        return *std::move(catalogue);
    // The library keeps to itself what is wrong with its catalogue, so it is read once more.
    const auto url = Bundle::library().resourceURL("ScreenTemplates", "json");
    return catalogueOf(url ? url->path() : "ScreenTemplates.json");
}

void printTable(const ScreenCatalogue& catalogue) {
    constexpr auto left = TextColumn::Side::left;
    TextTable table(
        {{"category", left}, {"screen", left}, {"width"}, {"height"}, {"density"}, {"pixels"}});
    for (const auto& screens : catalogue)
        for (const auto& screen : screens->templates()) {
            std::string pixels = shortText(screen->width() * screen->density());
            pixels.append(" × ").append(shortText(screen->height() * screen->density()));
            table.add({std::string(rawValue(screens->category())), oneLine(screen->name()),
                       shortText(screen->width()), shortText(screen->height()),
                       shortText(screen->density()), std::move(pixels)});
        }
    print(table.text());
}

void run(const ScreensOptions& options) {
    ScreenCatalogue catalogue =
        options.file.empty() ? libraryCatalogue() : catalogueOf(options.file);
    if (!options.category.empty())
        std::erase_if(catalogue, [&](const auto& screens) {
            return rawValue(screens->category()) != options.category;
        });
    if (options.asJson)
        print(encodeScreenTemplates(catalogue) + '\n');
    else
        printTable(catalogue);
}

std::vector<std::string> categoryNames() {
    std::vector<std::string> names;
    for (const DeviceCategory category : allDeviceCategories)
        names.emplace_back(rawValue(category));
    return names;
}

}  // namespace

void addScreensCommand(CLI::App& program) {
    const auto options = std::make_shared<ScreensOptions>();
    CLI::App* const command =
        program.add_subcommand("screens", "List the device screens that documents are sized after");
    command
        ->add_option("CATALOGUE", options->file,
                     "Another catalogue, .json, in place of the library's")
        ->type_name("");
    command->add_option("--category", options->category, "iPhone, iPad, Watch, TV or Web")
        ->type_name("NAME")
        ->check(CLI::IsMember(categoryNames()));
    command->add_flag("--json", options->asJson, "Print a catalogue that can be read again");
    command->footer(
        "Width and height are in points, of which each is as many pixels wide as the density "
        "says.\n\n"
        "Examples:\n"
        "  quorin screens\n"
        "  quorin screens --category Watch\n"
        "  quorin screens my-screens.json         whether a catalogue can be read, and what is in "
        "it");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
