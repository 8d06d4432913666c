#include "quorin/observation/StopWatch.h"

#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

/// A watch whose clock stands until it is set.
struct TestedWatch {
    explicit TestedWatch(std::string title)
        : watch(StopWatch::create(
              std::move(title), [this] { return now; }, output)) {}

    /// What is printed, and nothing of what was printed before.
    std::string report(std::optional<std::string> title = std::nullopt) {
        output.str("");
        watch->report(std::move(title));
        return output.str();
    }
    void lapAt(double time, std::string title) {
        now = time;
        watch->lap(std::move(title));
    }

    double now = 100;
    std::ostringstream output;
    std::shared_ptr<StopWatch> watch;
};

TEST(StopWatch, startsWithALapOfItsTitle) {
    const TestedWatch tested("open");
    ASSERT_EQ(tested.watch->laps().size(), 1u);
    EXPECT_EQ(tested.watch->laps()[0].title, "open");
    EXPECT_EQ(tested.watch->laps()[0].time, 100);
}

TEST(StopWatch, reportsEachLapInMillisecondsSinceTheStart) {
    TestedWatch tested("open");
    tested.lapAt(100.0125, "load");
    tested.lapAt(101.5, "draw");
    EXPECT_EQ(tested.report(), "open:\nload: 12.5ms\ndraw: 1500.0ms\n");
}

TEST(StopWatch, reportsTheLapOfTheReportItself) {
    TestedWatch tested("open");
    tested.now = 100.25;
    EXPECT_EQ(tested.report("end"), "open:\nend: 250.0ms\n");
}

TEST(StopWatch, printsNoHeadingForAnEmptyTitle) {
    TestedWatch tested("");
    tested.lapAt(100.5, "load");
    EXPECT_EQ(tested.report(), "load: 500.0ms\n");
}

TEST(StopWatch, printsTheHeadingAloneWithoutFurtherLaps) {
    EXPECT_EQ(TestedWatch("open").report(), "open:\n");
    EXPECT_EQ(TestedWatch("").report(), "");
}

TEST(StopWatch, measuresTheNextReportFromWhatWasTheSecondLap) {
    TestedWatch tested("open");
    tested.lapAt(101, "load");
    tested.lapAt(103, "draw");
    EXPECT_EQ(tested.report(), "open:\nload: 1000.0ms\ndraw: 3000.0ms\n");
    EXPECT_EQ(tested.report(), "load:\ndraw: 2000.0ms\n");
    EXPECT_EQ(tested.report("end"), "draw:\nend: 0.0ms\n");
}

TEST(StopWatch, printsTitlesThatAreEmptyOrRepeatedAsTheyAre) {
    TestedWatch tested("open");
    tested.lapAt(101, "");
    tested.lapAt(102, "open");
    EXPECT_EQ(tested.report(""), "open:\n: 1000.0ms\nopen: 2000.0ms\n: 2000.0ms\n");
}

TEST(StopWatch, roundsToTenthsAndPrintsAnyTime) {
    TestedWatch tested("open");
    tested.now = 0;
    EXPECT_EQ(tested.watch->laps()[0].time, 100);
    tested.lapAt(100.00006, "above");
    tested.lapAt(100.00004, "below");
    tested.lapAt(99, "before");
    EXPECT_EQ(tested.report(), "open:\nabove: 0.1ms\nbelow: 0.0ms\nbefore: -1000.0ms\n");

    TestedWatch extreme("");
    extreme.lapAt(-1e305, "far");
    EXPECT_EQ(extreme.report().size(), std::string("far: -.0ms\n").size() + 309);
    extreme.lapAt(1e308, "beyond");
    EXPECT_EQ(extreme.report(), "far:\nbeyond: infms\n");
}

TEST(StopWatch, printsAPointInEveryLocale) {
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };
    TestedWatch tested("");
    tested.output.imbue(std::locale(std::locale::classic(), new Comma));
    tested.lapAt(102, "load");
    EXPECT_EQ(tested.report(), "load: 2000.0ms\n");
}

TEST(StopWatch, goesByTheMediaClockAndPrintsToStandardOutputUnlessToldOtherwise) {
    const double before = CACurrentMediaTime();
    const auto watch = StopWatch::create("open");
    EXPECT_GE(watch->laps()[0].time, before);
    EXPECT_LE(watch->laps()[0].time, CACurrentMediaTime());
    ::testing::internal::CaptureStdout();
    watch->report();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "open:\n");
}

TEST(StopWatchDeath, aReportWithoutALapLeftStopsTheProcess) {
    TestedWatch tested("open");
    tested.report();
    EXPECT_TRUE(tested.watch->laps().empty());
    EXPECT_DEATH(tested.watch->report(), "report of a watch with 0 laps");
    EXPECT_EQ(tested.report("again"), "again:\n") << "a title brings a lap";
}

}  // namespace
}  // namespace quorin
