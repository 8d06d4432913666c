#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <memory>
#include <string>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/CurvePlot.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/ParsedOption.h"
#include "apps/quorin/SpringCurves.h"
#include "apps/quorin/TextTable.h"

namespace quorin::app {

namespace {

struct SpringOptions {
    SpringNumbers numbers;
    bool asCsv = false;
    std::string plot;  // empty for none
    PixelSize size = {800, 500};
};

/// So near to 1 the library's springs count as being at rest.
constexpr CGFloat restDistance = 0.002;

/// The index of the first of the values at the end that are all at rest, their count if none is.
std::size_t settledFrom(const TimeCurve& curve) {
    std::size_t index = curve.values.size();
    while (index > 0 && std::abs(curve.values[index - 1] - 1) < restDistance)
        --index;
    return index;
}

std::string tableOf(const TimeCurve& curve) {
    const std::size_t count = curve.values.size(), settled = settledFrom(curve);
    std::string text = "settles    ";
    text.append(settled < count ? "at " : "not within ");
    text.append(shortText(curve.timeAt(std::min(settled, count - 1)))).append(" s\novershoot  ");
    const auto highest = std::max_element(curve.values.begin(), curve.values.end());
    if (*highest > 1)
        text.append(shortText((*highest - 1) * 100)).append(" % at ");
    else
        text.append("none, nearest at ");
    text.append(shortText(curve.timeAt(static_cast<std::size_t>(highest - curve.values.begin()))));
    text.append(" s\nvalues     ").append(std::to_string(count)).append(", one every ");
    return text.append(shortText(curve.step)).append(" s\n");
}

void appendNumber(std::string& text, CGFloat number) {
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    text.append(buffer.data(), result.ptr);
}

std::string csvOf(const TimeCurve& curve) {
    std::string text = "time,value\n";
    for (std::size_t i = 0; i < curve.values.size(); ++i) {
        appendNumber(text, curve.timeAt(i));
        text += ',';
        appendNumber(text, curve.values[i]);
        text += '\n';
    }
    return text;
}

CGSize plotSize(const PixelSize& size) {
    const auto width = static_cast<CGFloat>(size.width);
    return {width, size.height == 0 ? std::max(1.0, std::round(width * 0.625))
                                    : static_cast<CGFloat>(size.height)};
}

void savePlot(const TimeCurve& curve, const SpringOptions& options) {
    if (!isPlottable(curve))
        throw InputError(options.plot, "the times or values are beyond what axes can show");
    const CGSize size = plotSize(options.size);
    if (!isPictureName(options.plot))
        return saveDrawing(plotDrawing(curve, size), options.plot);
    try {
        savePicture(*plotPicture(curve, size), options.plot);
    } catch (const ImageError& error) {
        throw InputError(options.plot, error.what());
    }
}

void requirePlotName(const std::string& file) {
    if (!isPictureName(file) && !isDrawingName(file))
        throw InputError(file, "the name of a plot must end in .png, .svg or .json");
}

void run(const SpringOptions& options, const TimeCurve& curve) {
    if (!options.plot.empty())
        savePlot(curve, options);
    print(options.asCsv ? csvOf(curve) : tableOf(curve));
}

/// A kind of spring as a command of its own, to which the options for its numbers are added.
class SpringKind {
public:
    SpringKind(CLI::App& parent, const std::string& name, const std::string& description,
               TimeCurve (*curveOf)(const SpringNumbers&))
        : options(std::make_shared<SpringOptions>()),
          command(parent.add_subcommand(name, description)) {
        command->callback([options = options, curveOf] {
            if (!options->plot.empty())
                requirePlotName(options->plot);
            run(*options, curveOf(options->numbers));
        });
    }

    /// A number that has to be positive.
    template <typename Target>
    SpringKind& positive(const std::string& name, const std::string& form,
                         Target SpringNumbers::*number, const std::string& description) {
        addParsedOption(*command, name, form, options->numbers.*number, positiveOf, description);
        return *this;
    }
    SpringKind& ratioUpTo1() {
        addParsedOption(*command, "--ratio", "Z", options->numbers.ratio, swingingRatioOf,
                        "Damping ratio above 0, up to 1 [0.5]");
        return *this;
    }
    /// The options that all kinds have come last.
    void example(const std::string& text) {
        addParsedOption(*command, "--velocity", "V", options->numbers.velocity, numberOf,
                        "Progress per second at the start [0]");
        addParsedOption(*command, "--delta", "S", options->numbers.delta, positiveOf,
                        "Seconds between two values [1/60]");
        command->add_flag("--csv", options->asCsv, "Print all values, a time and a value a line");
        command
            ->add_option("--plot", options->plot,
                         "Draw the curve with axes into a .png file, or without\n"
                         "numbers into an .svg or .json drawing")
            ->type_name("FILE");
        addParsedOption(*command, "--size", "W|WxH", options->size, pixelSizeOf,
                        "Of the plot, in pixels [800x500]");
        command->footer(text);
    }

private:
    std::shared_ptr<SpringOptions> options;
    CLI::App* command;
};

void addKinds(CLI::App& spring) {
    SpringKind(spring, "rk4", "A mass with tension and friction, followed step by step", rk4Curve)
        .positive("--tension", "T", &SpringNumbers::tension, "Force for each unit of way [200]")
        .positive("--friction", "F", &SpringNumbers::friction,
                  "Force against each unit of velocity [15]")
        .example(
            "Velocities beyond 100 either way count as 100. The steps have to be short enough for\n"
            "the motion to come to rest. The first value is the one after the first step.\n\n"
            "Examples:\n"
            "  quorin spring rk4 --tension 300 --friction 12 --plot curve.png\n"
            "  quorin spring rk4 --velocity 20 --csv");
    SpringKind(spring, "timed", "A damping ratio, and a duration in which it settles", timedCurve)
        .ratioUpTo1()
        .positive("--duration", "S", &SpringNumbers::duration, "Seconds it may take [1]")
        .example(
            "The spring is searched for in twelve steps, which bound only a part of its swing: a\n"
            "little of it may be left after the duration. Above 1 there is quorin spring "
            "damped.\n\n"
            "Examples:\n"
            "  quorin spring timed --ratio 0.4 --duration 0.8\n"
            "  quorin spring timed --ratio 0.8 --csv --delta 0.01");
    SpringKind(spring, "oscillator", "Damping, stiffness and mass, in closed form", oscillatorCurve)
        .positive("--damping", "C", &SpringNumbers::damping, "Force against velocity [10]")
        .positive("--stiffness", "K", &SpringNumbers::stiffness, "Force for each unit of way [100]")
        .positive("--mass", "M", &SpringNumbers::mass, "What is moved [1]")
        .positive("--ratio", "Z", &SpringNumbers::ratio,
                  "Chooses the form below, at or above 1 [by the others]")
        .positive("--duration", "S", &SpringNumbers::duration,
                  "Seconds to follow it [until it has swung out]")
        .example(
            "Above a ratio of 1 the form still swings; damped creeps to rest as such springs "
            "do.\n\n"
            "Examples:\n"
            "  quorin spring oscillator --damping 4 --stiffness 200 --mass 2\n"
            "  quorin spring oscillator --damping 20 --plot critical.png");
    SpringKind(spring, "damped", "The true motion, also of springs that creep to rest", dampedCurve)
        .positive("--ratio", "Z", &SpringNumbers::ratio, "Damping ratio, any above 0 [0.5]")
        .positive("--duration", "S", &SpringNumbers::duration, "Seconds it may take [1]")
        .example(
            "The spring is the slowest one that is within 0.001 of rest after the duration.\n\n"
            "Examples:\n"
            "  quorin spring damped --ratio 2 --plot creeping.png\n"
            "  quorin spring damped --ratio 0.3 --duration 2 --velocity 5");
}

}  // namespace

void addSpringCommand(CLI::App& program) {
    CLI::App* const spring = program.add_subcommand(
        "spring", "Follow a spring to rest: when it settles, its values, a plot");
    spring->require_subcommand(1);
    spring->footer(
        "Each kind is described by numbers of its own and has a --help. A value counts as settled\n"
        "from where on it stays within 0.002 of 1.\n\n"
        "Examples:\n"
        "  quorin spring rk4 --tension 300 --friction 12\n"
        "  quorin spring timed --ratio 0.4 --duration 0.8 --plot curve.png\n"
        "  quorin spring oscillator --damping 4 --stiffness 200 --csv");
    addKinds(*spring);
}

}  // namespace quorin::app
