#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <vector>

#include "quorin/path/Curve.h"
#include "quorin/path/CurveLocation.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/HardCurves.h"
#include "tests/path/PlainSearch.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::areSame;
using test::cubic;
using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::Pointwise;

constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();
const PathCurve arch({0, 0}, {0, 10}, {0, 10}, {10, 0});
const PathCurve line({0, 0}, {}, {}, {10, 0});

TEST(CurveNearest, isAtTheAnchorForAPointExactlyOnIt) {
    for (const PathCurve& curve : {arch, line}) {
        const auto atStart = curve.nearestLocation(curve.p1());
        ASSERT_TRUE(atStart);
        EXPECT_EQ(atStart->time(), PathCurve::Time::start);
        EXPECT_EQ(atStart->distance(), 0);
        EXPECT_EQ(atStart->point(), curve.p1());
        const auto atEnd = curve.nearestLocation(curve.p2());
        ASSERT_TRUE(atEnd);
        EXPECT_EQ(atEnd->time(), PathCurve::Time::end);
        EXPECT_EQ(atEnd->distance(), 0);
        EXPECT_EQ(atEnd->point(), curve.p2());
    }
}

TEST(CurveNearest, describesThePlaceItFound) {
    const auto location = arch.nearestLocation({5, 20});
    ASSERT_TRUE(location);
    EXPECT_EQ(location->time(), PathCurve::Time(0.5));
    EXPECT_EQ(location->point(), (CGPoint{5, 7.5}));
    EXPECT_EQ(location->distance(), 12.5);
    EXPECT_FALSE(location->overlap());
    EXPECT_TRUE(location->curve() == arch);
    EXPECT_EQ(arch.nearestPoint({5, 20}), (CGPoint{5, 7.5}));
    EXPECT_EQ(arch.nearestTime({5, 20}), PathCurve::Time(0.5));
}

TEST(CurveNearest, isFoundByTheHalvingSearchOnACurvedCurve) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 300; ++i) {
        const CubicBezier curve = random.curve();
        const CGPoint from = random.pointFor(curve);
        EXPECT_TRUE(
            areSame(curve.nearestTime(from).value(), test::plainNearestSampledTime(curve, from)));
    }
}

TEST(CurveNearest, isTheTimeThatTheCurveWasAskedAt) {
    // y = x³ over [0, 1], so that the time is x.
    const CubicBezier cubed = cubic({0, 0}, {1.0 / 3, 0}, {2.0 / 3, 0}, {1, 1});
    const auto turned = [](CGPoint p) {
        const CGFloat sine = std::sin(0.5), cosine = std::cos(0.5);
        return CGPoint{p.x * cosine - p.y * sine, p.x * sine + p.y * cosine};
    };
    const CubicBezier oblique =
        cubic(turned(cubed.p1), turned(cubed.c1()), turned(cubed.c2()), turned(cubed.p2));
    const auto expectTime = [&](CGPoint from, CGFloat time) {
        EXPECT_NEAR(*cubed.nearestTime(from), time, 4e-7);
        EXPECT_NEAR(*oblique.nearestTime(turned(from)), time, 4e-7);
        EXPECT_NEAR(cubed.nearest(from, 1e-12).time, time, 1e-7);
        EXPECT_NEAR(oblique.nearest(turned(from), 1e-12).time, time, 1e-7);
    };
    for (int i = 1; i <= 10; ++i) {
        const CGFloat x = i / 10.0;
        expectTime({x, x * x * x}, x);
    }
    expectTime({1.1, 1.1}, 1);
    expectTime({-0.1, 0}, 0);
}

TEST(CurveNearest, projectsOntoAStraightCurve) {
    EXPECT_EQ(line.nearestTime({-5, 3}), PathCurve::Time::start) << "before the start";
    EXPECT_EQ(line.nearestTime({15, -3}), PathCurve::Time::end) << "beyond the end";
    EXPECT_EQ(line.nearestTime({0, 7}), PathCurve::Time::start);
    EXPECT_EQ(line.nearestTime({10, 7}), PathCurve::Time::end);
    EXPECT_EQ(line.nearestTime({0.9e-11, 7}), PathCurve::Time::start) << "u is below 1e-12";
    EXPECT_EQ(line.nearestTime({10 - 0.9e-11, 7}), PathCurve::Time::end);
    // Without handles x = 10·(3t² - 2t³).
    EXPECT_NEAR(line.nearestTime({5, 100})->rawValue, 0.5, 1e-12);
    EXPECT_NEAR(line.nearestTime({10 * (3 * 0.04 - 2 * 0.008), -1})->rawValue, 0.2, 1e-12);
}

TEST(CurveNearest, findsTheTimeOfTheProjectionWhereHandlesMakeItUneven) {
    const PathCurve cubed({0, 0}, {}, {-10, 0}, {10, 0});  // x = 10·t³
    EXPECT_NEAR(cubed.nearestTime({1.25, 4})->rawValue, 0.5, 1e-12);
    const auto location = cubed.nearestLocation({1.25, 4});
    EXPECT_NEAR(location->point().x, 1.25, 1e-11);
    EXPECT_NEAR(location->distance(), 4, 1e-11);
}

TEST(CurveNearest, isTheStartOfAStraightCurveWithoutLength) {
    const PathCurve point({3, 4}, {}, {}, {3, 4});
    EXPECT_EQ(point.nearestTime({0, 0}), PathCurve::Time::start);
    EXPECT_EQ(point.nearestTime({3, 4}), PathCurve::Time::start);
    EXPECT_EQ(point.nearestTime({1e300, -1e300}), PathCurve::Time::start);
    EXPECT_EQ(point.nearestLocation({0, 0})->distance(), 5);
}

TEST(CurveNearest, mayBeNowhereOnAStraightCurve) {
    // So long that it steps over places: from time to time it moves by more than 1e-7.
    const PathCurve longLine({0, 0}, {}, {}, {1e10, 0});
    int missed = 0;
    for (int i = 1; i < 200; ++i) {
        const CGPoint from{i * 4.987654321e7, 0};
        const auto time = longLine.nearestTime(from);
        missed += !time;
        EXPECT_EQ(longLine.nearestPoint(from).has_value(), time.has_value());
        EXPECT_EQ(longLine.nearestLocation(from).has_value(), time.has_value());
    }
    EXPECT_GT(missed, 0);
}

TEST(CurveNearest, answersTheStartForNumbersThatAreNone) {
    for (const PathCurve& curve : {arch, line}) {
        EXPECT_EQ(curve.nearestTime({notANumber, 0}), PathCurve::Time::start);
        EXPECT_EQ(curve.nearestTime({0, notANumber}), PathCurve::Time::start);
    }
    EXPECT_EQ(PathCurve(CGPoint{0, 0}, {}, {}, {notANumber, 1}).nearestTime({1, 1}),
              PathCurve::Time::start);
}

TEST(CurveTimeOf, isTheEndForAPointWithinEpsilonOfAnAnchor) {
    EXPECT_EQ(arch.timeOf({0, 0}), PathCurve::Time::start);
    EXPECT_EQ(arch.timeOf({0, 0.9e-12}), PathCurve::Time::start);
    EXPECT_EQ(arch.timeOf({10, 0}), PathCurve::Time::end);
    EXPECT_EQ(arch.timeOf({10, -0.9e-12}), PathCurve::Time::end);
    const PathCurve loop({0, 0}, {10, 0}, {0, 10}, {0, 0});
    EXPECT_EQ(loop.timeOf({0, 0}), PathCurve::Time::start) << "the start is asked first";

    // Where its time would be told from that of the anchor, were it searched for.
    const PathCurve oblique({0, 0}, {3, 4}, {-3, -4}, {9, 12});
    EXPECT_EQ(oblique.timeOf({0.6 * 0.9e-12, 0.8 * 0.9e-12}), PathCurve::Time::start);
    EXPECT_GT(oblique.timeOf({0.6 * 1.1e-12, 0.8 * 1.1e-12})->rawValue, 0) << "strictly within";
}

TEST(CurveTimeOf, findsPointsWithinGeometricEpsilon) {
    struct Row {
        const char* says;
        CGFloat off;
        bool isFound;
    };
    const Row table[] = {
        {"on the curve", 0, true},       {"1e-8 away", 1e-8, true},  {"just within", 0.99e-7, true},
        {"just beyond", 1.01e-7, false}, {"1e-6 away", 1e-6, false}, {"1e-6 inside", -1e-6, false},
        {"1e-8 inside", -1e-8, true},
    };
    for (const auto& [says, off, isFound] : table) {
        SCOPED_TRACE(says);
        // At the top, where the curve runs along x: only the roots in x lead there.
        const auto time = arch.timeOf({5, 7.5 + off});
        EXPECT_EQ(time.has_value(), isFound);
        EXPECT_NEAR(time.value_or(0.5).rawValue, 0.5, 1e-12);
        // On an upright curve only the roots in y lead there.
        const PathCurve upright({0, 0}, {10, 0}, {10, 0}, {0, 10});
        EXPECT_EQ(upright.timeOf({7.5 + off, 5}).has_value(), isFound);
    }
}

TEST(CurveTimeOf, takesRootsInXBeforeThoseInY) {
    // Crosses itself at (9, 0), at 1/4 and 3/4. In x it has no cubic term, and so the larger root
    // first; in y the roots ascend.
    const CubicBezier loop = cubic({0, -18}, {16, 26}, {16, -26}, {0, 18});
    EXPECT_NEAR(*loop.timeOf({9, 0}), 0.75, 1e-12);
    const CubicBezier turned = cubic({-18, 0}, {26, 16}, {-26, 16}, {18, 0});
    EXPECT_NEAR(*turned.timeOf({0, 9}), 0.25, 1e-12);
}

TEST(CurveTimeOf, takesTheFirstRootOnTheCurve) {
    const auto roots = [](CGFloat value, CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2) {
        const CGFloat c = 3 * (c1 - p1), b = 3 * (c2 - c1) - c, a = p2 - p1 - c - b;
        return scalar::solveCubic(a, b, c, p1 - value, 0, 1).value_or(Roots());
    };
    for (const CurveKind kind : {CurveKind::anywhere, CurveKind::wholeNumbers, CurveKind::loops}) {
        RandomCurves random(kind);
        for (int i = 0; i < 500; ++i) {
            const CubicBezier curve = random.curve();
            const CGPoint point = random.pointFor(curve);
            std::vector<CGFloat> onCurve;
            if (distance(point, curve.p1) < 1e-12)
                onCurve.push_back(0);
            else if (distance(point, curve.p2) < 1e-12)
                onCurve.push_back(1);
            for (const Roots& times :
                 {roots(point.x, curve.p1.x, curve.c1().x, curve.c2().x, curve.p2.x),
                  roots(point.y, curve.p1.y, curve.c1().y, curve.c2().y, curve.p2.y)})
                std::copy_if(times.begin(), times.end(), std::back_inserter(onCurve),
                             [&](auto t) { return distance(*curve.pointAt(t), point) < 1e-7; });
            const auto expected = onCurve.empty() ? std::nullopt : std::optional(onCurve[0]);
            EXPECT_TRUE(areSame(curve.timeOf(point), expected));
        }
    }
}

TEST(CurveTimeOf, findsEveryPointOfTheCurve) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 1000; ++i) {
        const CubicBezier curve = random.curve();
        const CGPoint point = *curve.pointAt(random.between(0, 1));
        const auto time = curve.timeOf(point);
        ASSERT_TRUE(time) << PathCurve(curve).description();
        EXPECT_LT(distance(*curve.pointAt(*time), point), 1e-7);
    }
}

TEST(CurveTimeOf, findsPointsBesideTheControlHull) {
    EXPECT_NEAR(line.timeOf({5, 0.99e-7})->rawValue, 0.5, 1e-12);
    EXPECT_NEAR(line.timeOf({5, -0.99e-7})->rawValue, 0.5, 1e-12);
    EXPECT_EQ(line.timeOf({5, 1.01e-7}), std::nullopt);
    EXPECT_EQ(line.timeOf({10 + 0.99e-7, 0}), std::nullopt) << "where no root leads";
}

TEST(CurveTimeOf, findsPointsOfUprightAndLevelLines) {
    const PathCurve upright({3, 0}, {}, {}, {3, 8});
    EXPECT_NEAR(upright.timeOf({3, 4})->rawValue, 0.5, 1e-12) << "every time has x = 3";
    const PathCurve level({0, 3}, {}, {}, {8, 3});
    EXPECT_NEAR(level.timeOf({4, 3})->rawValue, 0.5, 1e-12);
    EXPECT_EQ(upright.timeOf({4, 4}), std::nullopt);
    EXPECT_EQ(level.timeOf({9, 3}), std::nullopt);
    EXPECT_EQ(line.timeOf({notANumber, 0}), std::nullopt);
}

TEST(CurveIntersections, takeALineWithoutDirectionAsAPoint) {
    EXPECT_THAT(arch.intesections(Line::along({5, 7.5}, {0, 0})).value(),
                ElementsAre(DoubleNear(0.5, 1e-12)));
    EXPECT_THAT(arch.intesections(Line::along({0, 0}, {-0.0, 0.0})).value(), ElementsAre(0));
    EXPECT_EQ(arch.intesections(Line::along({5, 7}, {0, 0})), std::nullopt);
}

TEST(CurveIntersections, comeInTheSolversOrder) {
    // y = 30t - 30t² has no cubic term, and a quadratic's larger root comes first.
    const CGFloat root = std::sqrt(1.0 / 12);
    EXPECT_THAT(arch.intesections(Line::along({0, 5}, {1, 0})).value(),
                ElementsAre(DoubleNear(0.5 + root, 1e-12), DoubleNear(0.5 - root, 1e-12)));
    // A cubic's roots come in ascending order.
    const PathCurve wave({0, 0}, {1, 2}, {-1, -2}, {3, 0});
    EXPECT_THAT(wave.intesections(Line::along({0, 0}, {1, 0})).value(),
                ElementsAre(0, DoubleNear(0.5, 1e-12), 1));
}

TEST(CurveIntersections, reachAlongTheWholeLineInBothDirections) {
    const Line shortAndFar({100, 7.4}, {100.001, 7.4});
    EXPECT_EQ(arch.intesections(shortAndFar)->size(), 2u) << "no check of the segment's extent";
    const Line backwards({100.001, 7.4}, {100, 7.4});
    EXPECT_EQ(arch.intesections(backwards)->size(), 2u);
    EXPECT_TRUE(arch.intesections(Line::along({0, 8}, {1, 0}))->empty());
}

TEST(CurveIntersections, areNothingAtAllForACurveOnTheLine) {
    EXPECT_EQ(line.intesections(Line::along({-5, 0}, {3, 0})), std::nullopt);
    EXPECT_EQ(line.intesections(Line::along({-5, 0}, {0, 3}))->size(), 0u);
    const PathCurve oblique({0, 0}, {}, {}, {3, 4});
    EXPECT_EQ(oblique.intesections(Line::along({-3, -4}, {3, 4})), std::nullopt);
}

TEST(CurveIntersections, lieOnTheLine) {
    RandomCurves random(CurveKind::anywhere);
    int count = 0;
    for (int i = 0; i < 500; ++i) {
        const PathCurve curve(random.curve());
        const Line through({random.between(0, 1000), random.between(0, 1000)},
                           {random.between(0, 1000), random.between(0, 1000)});
        const Roots times = curve.intesections(through).value();
        for (const CGFloat t : times) {
            EXPECT_LT(through.distance(*curve.pointAt(t)), 1e-9);
            ++count;
        }
    }
    EXPECT_GT(count, 300);
}

TEST(CurveIntersections, areAllThatTheTruthCrosses) {
    RandomCurves random(CurveKind::anywhere, 2);
    for (int i = 0; i < 200; ++i) {
        const PathCurve curve(random.curve());
        const CGPoint p{random.between(0, 1000), random.between(0, 1000)};
        const CGPoint v{random.between(-1, 1), random.between(-1, 1)};
        const CurveTruth truth(curve.cubic());
        const auto sideAt = [&](int step) {
            const auto [x, y] = truth.pointAt(step / 1000.0L);
            return (x - p.x) * v.y - (y - p.y) * v.x > 0;
        };
        std::size_t crossings = 0;
        for (int step = 0; step < 1000; ++step)
            crossings += sideAt(step) != sideAt(step + 1);
        EXPECT_GE(curve.intesections(Line::along(p, v))->size(), crossings);
    }
}

TEST(CurveIntersections, standHardInputs) {
    const auto hits = [](const PathCurve& curve, const Line& along, CGFloat low, CGFloat high) {
        int count = 0;
        const Roots times = curve.intesections(along).value();
        for (const CGFloat t : times) {
            const CGFloat x = curve.pointAt(t)->x;
            count += x >= low && x <= high;
        }
        return count;
    };
    const PathCurve far(cubic({452, 240}, {462.667, 78.667}, {480.667, -146.333}, {506, -435}));
    EXPECT_TRUE(far.intesections(Line({385, 146}, {438, 243}))->empty());

    const CGPoint c{580.1377046525328, 325.5830744834947},
        d{289.35338528516013, 450.62476639303753};
    EXPECT_EQ(PathCurve(cubic(c, c, d, d)).intesections(Line({486, 597}, {313, 285}))->size(), 1u);

    const PathCurve loop(cubic({0, 0}, {4, -2}, {4, 2}, {0, 0}));
    EXPECT_EQ(hits(loop, Line({-1, 0}, {0, 0}), -1, 0), 2) << "at both ends";

    const PathCurve wave(cubic({0, 0}, {1, 2}, {0, -2}, {1, 0}));
    const Line axis({0, 0}, {1, 0});
    EXPECT_EQ(hits(wave, axis, 0, 1), 3);
    EXPECT_EQ(hits(wave, axis, 0, 0.5), 2);
    EXPECT_EQ(hits(wave, axis, 0, 0.5 - 1e-12), 1);

    const PathCurve hill(cubic({0, 0}, {2.0 / 3, 2.0 / 3}, {4.0 / 3, 2.0 / 3}, {2, 0}));
    EXPECT_THAT(hill.intesections(Line({0, 0.5}, {1, 0.5})).value(),
                ElementsAre(DoubleNear(0.5, 1e-7)));
    EXPECT_TRUE(hill.intesections(Line({0, 0.5 + 1e-12}, {1, 0.5 + 1e-12}))->empty());
}

}  // namespace
}  // namespace quorin
