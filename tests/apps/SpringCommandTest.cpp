#include <charconv>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <vector>

#include "quorin/motion/DampedSpring.h"
#include "quorin/motion/RK4Spring.h"
#include "quorin/motion/UIKitSpring.h"
#include "quorin/platform/drawing/CGImage.h"
#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::contents;
using test::ProgramRun;
using test::RefusedInput;
using test::RefusedUsage;
using test::runQuorin;
using test::sizeOfPng;
using test::TemporaryFolder;
using test::WentWell;
using testing::AllOf;
using testing::Each;
using testing::HasSubstr;
using testing::Pair;
using testing::StartsWith;
using Samples = std::vector<std::pair<CGFloat, CGFloat>>;

/// The lines behind the heading.
Samples samplesOf(const std::string& csv) {
    EXPECT_THAT(csv, StartsWith("time,value\n"));
    Samples samples;
    const char* at = csv.data() + 11;
    const char* const end = csv.data() + csv.size();
    while (at < end) {
        CGFloat time = 0, value = 0;
        at = std::from_chars(at, end, time).ptr;
        at = std::from_chars(at + 1, end, value).ptr + 1;
        samples.emplace_back(time, value);
    }
    EXPECT_EQ(at, end) << "the last line has its end";
    return samples;
}

ProgramRun spring(std::vector<std::string> words) {
    words.insert(words.begin(), "spring");
    return runQuorin(words);
}

Samples springSamples(std::vector<std::string> words) {
    words.push_back("--csv");
    const ProgramRun run = spring(std::move(words));
    EXPECT_THAT(run, WentWell());
    return samplesOf(run.output);
}

/// Values at `first`, `first` + 1 and so on times the step.
Samples timed(const std::vector<CGFloat>& values, std::size_t first, CGFloat step) {
    Samples samples;
    for (std::size_t i = 0; i < values.size(); ++i)
        samples.emplace_back(static_cast<CGFloat>(first + i) * step, values[i]);
    return samples;
}

class SpringPlot : public testing::Test {
protected:
    const TemporaryFolder folder;
    const std::string picture = folder / "curve.png";
};

TEST(SpringCommand, printsTheValuesOfASpringWithTensionAndFriction) {
    EXPECT_EQ(springSamples({"rk4"}), timed(RK4SpringAnimation(200, 15, 0, 1.0 / 60), 1, 1.0 / 60));
    EXPECT_EQ(springSamples({"rk4", "--tension", "300", "--friction", "12", "--velocity", "-4",
                             "--delta", "0.01"}),
              timed(RK4SpringAnimation(300, 12, -4, 0.01), 1, 0.01));
}

TEST(SpringCommand, printsTheValuesOfASpringWithRatioAndDuration) {
    EXPECT_EQ(springSamples({"timed"}),
              timed(UIKitSpringAnimation(0.5, 0, 1, 1.0 / 60), 0, 1.0 / 60));
    EXPECT_EQ(springSamples({"timed", "--ratio", "1", "--duration", "2", "--velocity", "3",
                             "--delta", "0.25"}),
              timed(UIKitSpringAnimation(1, 3, 2, 0.25), 0, 0.25));
}

TEST(SpringCommand, printsTheValuesOfADampedSpring) {
    EXPECT_EQ(springSamples({"damped", "--ratio", "2", "--duration", "3", "--delta", "0.1"}),
              timed(dampedSpringAnimation(2, 0, 3, 0.1), 0, 0.1));
}

TEST(SpringCommand, followsAnOscillatorUntilItHasSwungOut) {
    // Damping 2 and mass 1: the envelope is e^-t. With stiffness 10 the angular frequency is 3.
    const auto truth = [](CGFloat t) {
        return 1 - std::exp(-t) * (std::cos(3 * t) + std::sin(3 * t) / 3);
    };
    const Samples samples =
        springSamples({"oscillator", "--damping", "2", "--stiffness", "10", "--delta", "0.125"});
    ASSERT_EQ(samples.size(), 56u) << "0 to 6.875 s, as e^-6.9 is 0.001";
    for (const auto& [time, value] : samples)
        EXPECT_NEAR(value, truth(time), 1e-13);
    EXPECT_EQ(samples.back().first, 6.875);

    // Damping 20 and stiffness 100 are critical.
    for (const auto& [time, value] :
         springSamples({"oscillator", "--damping", "20", "--duration", "0.5", "--velocity", "3"}))
        EXPECT_NEAR(value, 1 + std::exp(-10 * time) * (-1 + (-10 + 3) * time), 1e-13);
}

TEST(SpringCommand, swingsAnOscillatorInTheFormThatIsAskedFor) {
    const std::vector<std::string> strong = {"oscillator", "--damping", "30", "--duration", "0.1"};
    auto critical = strong, over = strong;
    critical.insert(critical.end(), {"--ratio", "1"});
    over.insert(over.end(), {"--ratio", "7"});
    EXPECT_EQ(springSamples(over), springSamples(strong));
    EXPECT_NE(springSamples(critical), springSamples(strong));
}

TEST(SpringCommand, saysWhenASpringSettlesAndHowFarItOvershoots) {
    // Half a turn of the swing takes π/√75 s and leads e^(-π/√3) beyond rest.
    const ProgramRun run =
        spring({"oscillator", "--damping", "10", "--stiffness", "100", "--delta", "0.001"});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output,
              "settles    at 1.225 s\n"
              "overshoot  16.303 % at 0.363 s\n"
              "values     1382, one every 0.001 s\n");
}

TEST(SpringCommand, saysOfASpringThatCreepsWhatItReaches) {
    EXPECT_EQ(
        spring({"damped", "--ratio", "2", "--duration", "1", "--delta", "0.25"}).output,
        "settles    not within 0.75 s\novershoot  none, nearest at 0.75 s\nvalues     4, one every "
        "0.25 s\n");
}

TEST(SpringCommand, printsEachNumberAsShortAsItReadsBack) {
    const ProgramRun run = spring({"damped", "--delta", "0.1", "--duration", "0.4", "--csv"});
    EXPECT_THAT(run.output, StartsWith("time,value\n0,0\n0.1,"));
    EXPECT_THAT(run.output, HasSubstr("\n0.30000000000000004,"));
}

TEST_F(SpringPlot, hasAxesAGridAndTheCurve) {
    EXPECT_THAT(spring({"rk4", "--tension", "300", "--friction", "12", "--plot", picture}),
                WentWell());
    EXPECT_THAT(sizeOfPng(picture), Pair(800, 500));
    const auto image = CGImage::readPNG(picture);
    const auto isBlue = [&](std::size_t x, std::size_t y) {
        const auto pixel = image->pixelAt(x, y);
        return pixel[2] > 150 && pixel[0] < 140;
    };
    EXPECT_EQ(image->pixelAt(2, 2), (CGImage::Pixel{255, 255, 255, 255}));
    EXPECT_EQ(image->pixelAt(64, 100), (CGImage::Pixel{0x9C, 0xA3, 0xAF, 255})) << "value axis";
    EXPECT_EQ(image->pixelAt(400, 444), (CGImage::Pixel{0x9C, 0xA3, 0xAF, 255})) << "time axis";
    // From 0 at the bottom left to rest at the right, which lies 396 / (1.31 · 1.06) above.
    EXPECT_TRUE(isBlue(65, 443));
    for (std::size_t x = 70; x < 770; x += 50) {
        std::size_t covered = 0;
        for (std::size_t y = 48; y < 444; ++y)
            covered += isBlue(x, y);
        EXPECT_GE(covered, 1u) << x;
    }
    EXPECT_TRUE(isBlue(760, 158) || isBlue(760, 159)) << "the end, at rest";
}

TEST_F(SpringPlot, bearsNumbersWhereThereIsRoomForThem) {
    const auto darkPixels = [&](const std::string& size) {
        EXPECT_THAT(spring({"rk4", "--plot", picture, "--size", size}), WentWell());
        const auto image = CGImage::readPNG(picture);
        std::size_t count = 0;
        for (std::size_t y = 0; y < image->height(); ++y)
            for (std::size_t x = 0; x < image->width(); ++x)
                if (const auto pixel = image->pixelAt(x, y);
                    pixel[0] < 130 && pixel[1] < 130 && pixel[2] < 130)
                    ++count;
        return count;
    };
    EXPECT_GT(darkPixels("400x300"), 100u) << "title and numbers";
    EXPECT_EQ(darkPixels("100x80"), 0u);
    EXPECT_THAT(sizeOfPng(picture), Pair(100, 80));
    EXPECT_EQ(darkPixels("1"), 0u);
    EXPECT_THAT(sizeOfPng(picture), Pair(1, 1));
}

TEST_F(SpringPlot, canBeADrawing) {
    for (const char* name : {"curve.svg", "curve.JSON"}) {
        const std::string file = folder / name;
        EXPECT_THAT(spring({"timed", "--plot", file, "--size", "64x48"}), WentWell());
        EXPECT_THAT(runQuorin({"info", file}).output, StartsWith(file + ": 64 by 48, 5 shapes"));
    }
}

TEST_F(SpringPlot, staysSmallForManyValues) {
    const std::string file = folder / "curve.svg";
    EXPECT_THAT(spring({"oscillator", "--damping", "0.05", "--stiffness", "2000", "--delta",
                        "0.003", "--plot", file}),
                WentWell());
    EXPECT_LT(std::filesystem::file_size(file), 150'000u);
}

TEST_F(SpringPlot, leavesTheTableOrTheValuesToStandardOutput) {
    EXPECT_THAT(spring({"rk4", "--plot", picture}).output, StartsWith("settles "));
    EXPECT_THAT(spring({"rk4", "--plot", picture, "--csv"}).output, StartsWith("time,value\n"));
}

TEST_F(SpringPlot, refusesNamesAndSizesThatAreNone) {
    const std::string other = folder / "curve.gif";
    EXPECT_THAT(spring({"rk4", "--plot", other}),
                RefusedInput(other + ": the name of a plot must end in .png, .svg or .json"));
    EXPECT_THAT(spring({"rk4", "--plot", picture, "--size", "0"}),
                RefusedUsage("--size: expected pixels as N or WxH, up to 32767, not '0'",
                             "quorin spring rk4"));
    const ProgramRun huge = spring({"rk4", "--plot", picture, "--size", "30000x30000"});
    EXPECT_EQ(huge.exitCode, 1);
    EXPECT_THAT(huge.errors, StartsWith("quorin: " + picture + ": an image of 30000 x 30000"));
    EXPECT_EQ(folder.count(), 0);
}

TEST_F(SpringPlot, refusesCurvesThatNoAxisCanShow) {
    const std::string line = picture + ": the times or values are beyond what axes can show";
    EXPECT_THAT(spring({"oscillator", "--velocity", "1e20", "--plot", picture}),
                RefusedInput(line));
    EXPECT_THAT(spring({"damped", "--duration", "1e20", "--delta", "1e18", "--plot", picture}),
                RefusedInput(line));
    EXPECT_THAT(spring({"damped", "--duration", "1e-20", "--delta", "1e-21", "--plot", picture}),
                RefusedInput(line));
    EXPECT_EQ(folder.count(), 0);
}

TEST(SpringCommand, refusesNumbersWithWhichASpringNeverSettles) {
    struct Row {
        const char* kind;
        std::vector<std::string> options;
    };
    const Row table[] = {
        {"rk4", {"--tension", "--friction", "--delta"}},
        {"timed", {"--duration", "--delta"}},
        {"oscillator", {"--damping", "--stiffness", "--mass", "--ratio", "--duration", "--delta"}},
        {"damped", {"--ratio", "--duration", "--delta"}},
    };
    for (const auto& [kind, options] : table)
        for (const std::string& option : options)
            for (const std::string text : {"0", "-1", "nan"})
                EXPECT_THAT(spring({kind, option, text}),
                            RefusedUsage(option + ": expected a number above 0, not '" + text + "'",
                                         std::string("quorin spring ") + kind));
    for (const std::string text : {"-0", "1e-999", "inf", "1e999", "1s", ""})
        EXPECT_THAT(spring({"rk4", "--delta", text}),
                    RefusedUsage("--delta: expected a number above 0, not '" + text + "'",
                                 "quorin spring rk4"));
    for (const std::string text : {"nan", "-inf", "fast", ""})
        EXPECT_THAT(
            spring({"rk4", "--velocity", text}),
            RefusedUsage("--velocity: expected a number, not '" + text + "'", "quorin spring rk4"));
}

TEST(SpringCommand, refusesRatiosThatTheSearchForADurationDoesNotTake) {
    for (const std::string text : {"0", "-1", "1.01", "nan", "x"})
        EXPECT_THAT(
            spring({"timed", "--ratio", text}),
            RefusedUsage("--ratio: expected a ratio above 0 and up to 1, not '" + text + "'",
                         "quorin spring timed"));
}

TEST(SpringCommand, refusesRatiosThatDoNotFitTheOscillator) {
    EXPECT_THAT(spring({"oscillator", "--ratio", "1.5"}),
                RefusedUsage("--ratio: expected 1 or less, as the ratio of damping, stiffness and "
                             "mass is 0.5",
                             "quorin spring oscillator"));
    EXPECT_THAT(spring({"oscillator", "--damping", "30", "--ratio", "0.5"}),
                RefusedUsage("--ratio: expected 1 or more, as the ratio of damping, stiffness and "
                             "mass is 1.5",
                             "quorin spring oscillator"));
    // Damping 20 is critical, neither below nor above 1.
    for (const auto& [ratio, expects] : {std::pair{"0.9", "1 or more"}, {"1.1", "1 or less"}})
        EXPECT_THAT(spring({"oscillator", "--damping", "20", "--ratio", ratio}),
                    RefusedUsage(std::string("--ratio: expected ") + expects +
                                     ", as the ratio of damping, stiffness and mass is 1",
                                 "quorin spring oscillator"));
    EXPECT_EQ(spring({"oscillator", "--damping", "20", "--ratio", "1"}).exitCode, 0);
}

TEST(SpringCommand, refusesStepsThatDoNotBringASpringToRest) {
    EXPECT_THAT(spring({"rk4", "--delta", "0.5"}),
                RefusedUsage("--delta: steps of 0.5 s are too long for this spring, whose motion "
                             "grows without end",
                             "quorin spring rk4"));
    EXPECT_THAT(spring({"rk4", "--delta", "1e-9"}),
                RefusedUsage("--delta: steps of 1e-09 s do not bring this spring to rest within "
                             "1000000 of them",
                             "quorin spring rk4"));
}

TEST(SpringCommand, refusesStepsThatMakeTooManyValues) {
    for (const std::string kind : {"timed", "oscillator", "damped"})
        EXPECT_THAT(spring({kind, "--duration", "2", "--delta", "0.0000019"}),
                    RefusedUsage("--delta: steps of 1.9e-06 s make more than 1000000 values in 2 s",
                                 "quorin spring " + kind));
}

TEST(SpringCommand, refusesMotionsBeyondWhatNumbersHold) {
    EXPECT_THAT(
        spring({"oscillator", "--velocity", "1e308"}),
        RefusedUsage("The motion goes beyond what numbers can hold", "quorin spring oscillator"));
}

TEST(SpringCommand, saysWhenTheSearchForADurationFindsNothing) {
    // The stiffness is about the square of 5 / duration.
    EXPECT_THAT(spring({"timed", "--duration", "1e-200", "--delta", "1e-201"}),
                RefusedUsage("No such spring was found, but quorin spring damped may have one",
                             "quorin spring timed"));
}

TEST(SpringCommand, asksForAKind) {
    EXPECT_THAT(spring({}), RefusedUsage("A subcommand is required", "quorin spring"));
    EXPECT_THAT(spring({"rk5"}), RefusedUsage("there is no command 'rk5'", "quorin spring"));
}

TEST(SpringCommand, helpsWithExamplesOfEachKind) {
    for (const std::string kind : {"rk4", "timed", "oscillator", "damped"}) {
        const ProgramRun run = spring({kind, "--help"});
        EXPECT_THAT(run, WentWell());
        EXPECT_THAT(run.output, AllOf(HasSubstr("Usage: quorin spring " + kind),
                                      HasSubstr("\n  quorin spring " + kind + " ")));
    }
}

}  // namespace
}  // namespace quorin
