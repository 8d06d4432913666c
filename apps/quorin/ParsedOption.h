#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace quorin::app {

/// An option whose text `parse(name, text)` turns into a value, stored in `target`, which has to
/// live as long as the command. `form` stands for the text in the help.
template <typename Target, typename Parse>
CLI::Option* addParsedOption(CLI::App& command, const std::string& name, const std::string& form,
                             Target& target, const Parse& parse, const std::string& description) {
    const auto store = [name, parse, &target](const std::string& text) {
        target = parse(name, text);
    };
    return command.add_option_function<std::string>(name, store, description)->type_name(form);
}

}  // namespace quorin::app
