#include "apps/quorin/FileArguments.h"

namespace quorin::app {

namespace {

CLI::Option* addFile(CLI::App& command, const std::string& name, std::string& file,
                     const std::string& description) {
    return command.add_option(name, file, description)->type_name("")->required();
}

}  // namespace

CLI::Option* addInput(CLI::App& command, std::string& file) {
    return addFile(command, "IN", file, "The drawing to read, .svg or .json");
}

CLI::Option* addDrawingOutput(CLI::App& command, std::string& file) {
    return addFile(command, "OUT", file, "The file to write, ending in .svg or .json");
}

CLI::Option* addPictureOutput(CLI::App& command, std::string& file) {
    return addFile(command, "OUT", file, "The picture to write, ending in .png");
}

}  // namespace quorin::app
