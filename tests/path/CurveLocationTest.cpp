#include "quorin/path/CurveLocation.h"

#include <limits>

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

const PathCurve arch({0, 0}, {0, 10}, {0, 10}, {10, 0});

TEST(PathCurveLocation, computesAPointThatIsNotGiven) {
    const PathCurveLocation location(arch, 0.5);
    EXPECT_EQ(location.point(), (CGPoint{5, 7.5}));
    EXPECT_EQ(location.time(), PathCurve::Time(0.5));
    EXPECT_TRUE(location.curve() == arch);
}

TEST(PathCurveLocation, reportsTheGreatestFiniteDistanceWhereNoneWasMeasured) {
    EXPECT_EQ(PathCurveLocation(arch, 0.5).distance(), 1.7976931348623157e308);
    EXPECT_EQ(PathCurveLocation(arch, 0.5, CGPoint{1, 2}).distance(), 1.7976931348623157e308);
}

TEST(PathCurveLocation, isNoOverlapUnlessToldSo) {
    EXPECT_FALSE(PathCurveLocation(arch, 0.5).overlap());
    EXPECT_TRUE(PathCurveLocation(arch, 0.5, std::nullopt, true).overlap());
}

TEST(PathCurveLocation, keepsWhatItIsGiven) {
    const PathCurveLocation location(arch, 0.25, CGPoint{-1, -2}, true, 7.5);
    EXPECT_EQ(location.point(), (CGPoint{-1, -2})) << "even off the curve";
    EXPECT_TRUE(location.overlap());
    EXPECT_EQ(location.distance(), 7.5);
}

TEST(PathCurveLocation, diesOfATimeOutsideTheCurveWithoutAPoint) {
    EXPECT_DEATH(PathCurveLocation(arch, 1.5), "location at time 1.5.* outside \\[0, 1\\]");
    EXPECT_DEATH(PathCurveLocation(arch, -0.25), "location at time -0.25.* outside \\[0, 1\\]");
}

TEST(PathCurveLocation, takesATimeOutsideTheCurveWithAPoint) {
    const PathCurveLocation location(arch, 1.5, CGPoint{3, 4});
    EXPECT_EQ(location.time(), PathCurve::Time(1.5));
    EXPECT_EQ(location.point(), (CGPoint{3, 4}));
}

TEST(PathCurveLocation, measuresItsOffsetFromTheStartOfTheCurve) {
    EXPECT_EQ(PathCurveLocation(arch, 0).offset(), PathCurve::Offset(0));
    EXPECT_EQ(PathCurveLocation(arch, 0.3).offset(), arch.offsetAt(0.3));
    EXPECT_EQ(PathCurveLocation(arch, 1).offset(), PathCurve::Offset(arch.length()));
    const PathCurve line({0, 0}, {}, {}, {10, 0});
    EXPECT_EQ(PathCurveLocation(line, 0.5).offset(), PathCurve::Offset(5));
}

TEST(PathCurveLocation, carriesTheCurvesPlaceInItsPath) {
    const auto path = Path::create();
    const PathCurveLocation location(PathCurve(arch.cubic(), path, 4), 0.5);
    EXPECT_EQ(location.curve().index(), 4);
    EXPECT_EQ(location.curve().path(), path);
}

}  // namespace
}  // namespace quorin
