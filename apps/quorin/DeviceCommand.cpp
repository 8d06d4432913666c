#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingFile.h"
#include "quorin/extensions/DeviceIdentifier.h"
#include "quorin/platform/foundation/NSLog.h"

namespace quorin::app {

namespace {

struct DeviceOptions {
    std::string sysfs = "/sys";
    std::string defaults;  // empty for those of the user
    bool isQuiet = false;
};

void run(const DeviceOptions& options) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(options.sysfs, ignored))
        throw InputError(options.sysfs, "no such folder");
    if (options.isQuiet)
        setLogSink([](std::string_view) {});
    UserDefaults defaults(options.defaults.empty() ? UserDefaults::defaultFolder()
                                                   : options.defaults);
    print(oneLine(getDeviceUniqueIdentifier(options.sysfs, defaults)) + '\n');
}

}  // namespace

void addDeviceCommand(CLI::App& program) {
    const auto options = std::make_shared<DeviceOptions>();
    CLI::App* const command =
        program.add_subcommand("device", "Print a text that tells this machine from others");
    command->add_option("--sysfs", options->sysfs, "Where the kernel tells of the machine [/sys]")
        ->type_name("FOLDER");
    command
        ->add_option("--defaults", options->defaults,
                     "Where a generated identifier is kept\n[$XDG_CONFIG_HOME/quorin]")
        ->type_name("FOLDER");
    command->add_flag("--quiet", options->isQuiet, "Do not say what was tried in vain");
    command->footer(
        "In order: the serial number of the firmware, its UUID, the hardware address of the first\n"
        "Ethernet interface in base64, a random UUID that is kept. The first two are told to root\n"
        "only, so another user may get another text.\n\n"
        "Examples:\n"
        "  quorin device\n"
        "  quorin device --quiet");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
