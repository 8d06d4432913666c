#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/ParsedOption.h"
#include "quorin/observation/Reachability.h"
#include "quorin/platform/foundation/NSLog.h"

namespace quorin::app {

namespace {

struct ReachOptions {
    std::string host;
    CGFloat timeout = 10;  // seconds
};

/// The flags as soon as they are known: a name is looked up first.
std::optional<std::uint32_t> flagsOf(SCNetworkReachability& network, CGFloat timeout) {
    if (const auto known = network.flags())
        return known;
    std::optional<std::uint32_t> flags;
    const auto loop = RunLoop::current();
    network.setCallback([&](std::uint32_t found) {
        flags = found;
        loop->stop();
    });
    network.schedule(loop);
    loop->run(timeout);
    network.unschedule(loop);
    return flags;
}

std::string namesOf(std::uint32_t flags) {
    const std::pair<std::uint32_t, const char*> names[] = {
        {kSCNetworkReachabilityFlagsTransientConnection, "transient connection"},
        {kSCNetworkReachabilityFlagsConnectionRequired, "connection required"},
        {kSCNetworkReachabilityFlagsConnectionOnTraffic, "connection on traffic"},
        {kSCNetworkReachabilityFlagsInterventionRequired, "intervention required"},
        {kSCNetworkReachabilityFlagsConnectionOnDemand, "connection on demand"},
        {kSCNetworkReachabilityFlagsIsLocalAddress, "local address"},
        {kSCNetworkReachabilityFlagsIsDirect, "direct"},
    };
    std::string text;
    for (const auto& [flag, name] : names)
        if ((flags & flag) != 0)
            text.append(", ").append(name);
    return text;
}

void run(const ReachOptions& options) {
    const auto network = SCNetworkReachability::createWithName(options.host);
    if (!network)
        throw CLI::ValidationError("HOST", "expected a name or an address");
    const auto flags = flagsOf(*network, options.timeout);
    if (!flags) {
        print(oneLine(options.host) + ": not known, the name was not resolved in time\n");
        throw CLI::RuntimeError(1);
    }
    const LogRedirection quietly([](std::string_view) {});
    const bool isReachable = makeObject<Reachability>(network)->networkStatusForFlags(*flags) ==
                             NetworkStatus::reachable;
    print(oneLine(options.host) + (isReachable ? ": reachable" : ": not reachable") +
          namesOf(*flags) + "\n");
    if (!isReachable)
        throw CLI::RuntimeError(1);
}

}  // namespace

void addReachCommand(CLI::App& program) {
    const auto options = std::make_shared<ReachOptions>();
    CLI::App* const command =
        program.add_subcommand("reach", "Tell whether there is a way to a host");
    command->add_option("HOST", options->host, "A name or an address; 0.0.0.0 for any host")
        ->type_name("")
        ->required();
    addParsedOption(*command, "--timeout", "SECONDS", options->timeout, positiveOf,
                    "How long a name may take to be resolved [10]");
    command->footer(
        "Asks the routing tables of this machine; nothing is sent but the question for a name.\n"
        "The exit code is 1 when there is no way.\n\n"
        "Examples:\n"
        "  quorin reach example.org\n"
        "  quorin reach 0.0.0.0 && echo online");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
