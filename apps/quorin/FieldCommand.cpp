#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/ParsedOption.h"
#include "apps/quorin/TextTable.h"
#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/values/TextForm.h"
#include "quorin/transformers/NumericalValueTransformer.h"
#include "quorin/transformers/ValueTransformer.h"

namespace quorin::app {

namespace {

struct FieldOptions {
    std::string transformer;
    NSLocale locale = NSLocale::current();
    std::optional<CGFloat> pointScale, increment, step;
    std::optional<ClosedRange<CGFloat>> range;
    bool allowNil = false, hasNoSuffix = false;
    std::vector<std::string> texts;
};

[[noreturn]] void refuse(const std::string& option, const std::string& expected,
                         std::string_view text) {
    std::string message = "expected ";
    message.append(expected).append(", not '").append(text).append("'");
    throw CLI::ValidationError(option, message);
}

/// The name itself: made here, a transformer would keep the locale from before `--locale`.
std::string transformerOf(const std::string& option, const std::string& name) {
    if (ValueTransformer::create(name))
        return name;
    std::string names;
    for (const std::string& known : ValueTransformer::classNames())
        names.append(names.empty() ? "one of " : ", ").append(known);
    refuse(option, names, name);
}

std::string languageOf(const std::string& locale) {
    std::string language = locale.substr(0, locale.find_first_of("_-.@"));
    for (char& letter : language)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return language;
}

NSLocale localeOf(const std::string& option, const std::string& name) {
    // Without a language of its own a locale is the fallback, which nobody asked for.
    NSLocale locale(name);
    const std::string language = languageOf(name);
    if (language != languageOf(locale.identifier()) && language != "c" && language != "posix")
        refuse(option, "a locale such as de_DE or C", name);
    return locale;
}

ClosedRange<CGFloat> rangeOf(const std::string& option, const std::string& text) {
    const CGPoint bounds = pointOf(option, text);
    if (bounds.x > bounds.y)
        refuse(option, "the lower bound first", text);
    return {bounds.x, bounds.y};
}

void setUp(ValueTransformer& transformer, const char* option, const char* key, const Value& value) {
    const NSClass& itsClass = transformer.objectClass();
    if (!itsClass.property(key))
        throw CLI::ValidationError(option, std::string(itsClass.name()).append(" has no ") + key);
    transformer.setValueForKey(value, key);
}

std::shared_ptr<ValueTransformer> setUpTransformer(const FieldOptions& options) {
    auto transformer = ValueTransformer::create(options.transformer);
    if (options.pointScale)
        setUp(*transformer, "--point-scale", "pointScale", *options.pointScale);
    if (options.increment)
        setUp(*transformer, "--increment", "roundingIncrement", *options.increment);
    if (options.allowNil)
        setUp(*transformer, "--allow-nil", "allowNil", true);
    if (options.hasNoSuffix)
        setUp(*transformer, "--no-suffix", "usesMillisecondSuffix", false);
    return transformer;
}

const NumericalValueTransformer* numericalOf(const ValueTransformer& transformer,
                                             const FieldOptions& options) {
    if (!options.step && !options.range)
        return nullptr;
    const auto* numerical = dynamic_cast<const NumericalValueTransformer*>(&transformer);
    if (!numerical)
        throw CLI::ValidationError(options.step ? "--step" : "--range",
                                   options.transformer + " neither steps nor clamps");
    return numerical;
}

std::string described(const Value& value) {
    if (const auto integer = value.asInteger())
        return textForm(*integer);
    if (const auto number = value.asDouble())
        return textForm(*number);
    if (const std::string* text = value.asText())
        return std::string("\"").append(*text).append("\"");
    if (const Value::List* list = value.asList()) {
        std::string text = "[";
        for (const Value& each : *list)
            text.append(text.size() > 1 ? ", " : "").append(described(each));
        return text.append("]");
    }
    return value.isNothing() ? "nothing" : "<multiple values>";
}

std::string cell(const std::string& text) { return oneLine(validUtf8(text)); }

std::string shown(const ValueTransformer& transformer, const Value& value) {
    const Value display = transformer.transformedValue(value);
    return cell(display.asText() ? *display.asText() : described(display));
}

std::string tableOf(const FieldOptions& options) {
    const auto transformer = setUpTransformer(options);
    const NumericalValueTransformer* numerical = numericalOf(*transformer, options);
    std::vector<TextColumn> columns;
    for (const char* heading : {"text", "read as", "shown as"})
        columns.push_back({heading, TextColumn::Side::left});
    if (options.step)
        columns.push_back({"stepped up", TextColumn::Side::left});
    if (options.range)
        columns.push_back({"clamped", TextColumn::Side::left});

    TextTable table(columns);
    for (const std::string& text : options.texts) {
        const Value value = transformer->reverseTransformedValue(text);
        std::vector<std::string> row{cell(text), cell(described(value)),
                                     shown(*transformer, value)};
        if (options.step)
            row.push_back(shown(*transformer, numerical->incrementValue(value, *options.step, 1)));
        if (options.range)
            row.push_back(shown(*transformer, numerical->clampValue(value, *options.range)));
        table.add(std::move(row));
    }
    return table.text();
}

/// In lines that fit a terminal, one below another.
std::string listed(const std::vector<std::string>& names) {
    constexpr std::size_t width = 80;
    std::string text, line = " ";
    for (const std::string& name : names) {
        if (line.size() + 1 + name.size() > width) {
            text.append(line).append("\n");
            line = " ";
        }
        line.append(" ").append(name);
    }
    return text.append(line);
}

}  // namespace

void addFieldCommand(CLI::App& program) {
    const auto options = std::make_shared<FieldOptions>();
    CLI::App* const command =
        program.add_subcommand("field", "Show how inspector fields read and show what is typed");
    addParsedOption(*command, "--transformer", "NAME", options->transformer, transformerOf,
                    "The class of the field's transformer, see below")
        ->required();
    command
        ->add_option("TEXT", options->texts,
                     "What is typed; -- before the first when one starts with -")
        ->type_name("")
        ->required();
    addParsedOption(*command, "--locale", "L", options->locale, localeOf,
                    "Such as de_DE or C [that of the environment]");
    addParsedOption(*command, "--point-scale", "S", options->pointScale, positiveOf,
                    "Displayed units for each point [1]");
    addParsedOption(*command, "--increment", "N", options->increment, lengthOf,
                    "What is shown is a multiple of it, 0 for any");
    command->add_flag("--allow-nil", options->allowNil, "An empty field means no value");
    command->add_flag("--no-suffix", options->hasNoSuffix, "Milliseconds without \"ms\"");
    addParsedOption(*command, "--step", "N", options->step, numberOf,
                    "Also show the value one step of N further");
    addParsedOption(*command, "--range", "LOW,HIGH", options->range, rangeOf,
                    "Also show the value kept in the range");
    std::string footer =
        "Texts are read as the transformer does it, arithmetic included, and what comes out is\n"
        "shown again. A text in quotes was not understood and stays as it was typed. Steps are in\n"
        "what the field shows, but seconds for milliseconds; ranges are in what is read.\n\n"
        "Transformers:\n";
    footer.append(listed(ValueTransformer::classNames()));
    footer.append(
        "\n\nExamples:\n"
        "  quorin field --transformer NumberTransformer --point-scale 2 10+5 '12 * 2' abc\n"
        "  quorin field --transformer PercentValueTransformer --locale de_DE 12,5 '50 %'\n"
        "  quorin field --transformer CornerRadiusTransformer --step 1 '4;8;4;0'");
    command->footer(footer);
    command->callback([options] {
        const NSLocale::CurrentScope scope(options->locale);
        print(tableOf(*options));
    });
}

}  // namespace quorin::app
