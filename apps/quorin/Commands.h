#pragma once

namespace CLI {
class App;
}

namespace quorin::app {

/// Adds the command to the program. Each runs when it is the one that was asked for, prints to
/// standard output, and throws `InputError` when what it was given cannot be used.
void addInfoCommand(CLI::App& program);
void addRenderCommand(CLI::App& program);
void addConvertCommand(CLI::App& program);
void addHitCommand(CLI::App& program);
void addShapeCommand(CLI::App& program);
void addTransformCommand(CLI::App& program);
void addRoundCommand(CLI::App& program);
void addTrimCommand(CLI::App& program);
void addCompareCommand(CLI::App& program);
void addSheetCommand(CLI::App& program);
void addSpringCommand(CLI::App& program);
void addDeviceCommand(CLI::App& program);
void addDigestCommand(CLI::App& program);
void addReachCommand(CLI::App& program);
void addFieldCommand(CLI::App& program);
void addScreensCommand(CLI::App& program);
void addWatchCommand(CLI::App& program);

}  // namespace quorin::app
