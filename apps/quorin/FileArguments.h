#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace quorin::app {

/// IN, the drawing that a command reads.
CLI::Option* addInput(CLI::App& command, std::string& file);

/// OUT, the drawing that a command writes.
CLI::Option* addDrawingOutput(CLI::App& command, std::string& file);

/// OUT, the picture that a command writes.
CLI::Option* addPictureOutput(CLI::App& command, std::string& file);

}  // namespace quorin::app
