#include "tests/support/AllocationCount.h"

#include <functional>
#include <vector>

#include "quorin/path/CurveLocation.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::CurveKind;
using test::RandomCurves;

std::size_t allocationsOf(const std::function<void()>& work) {
    const std::size_t before = test::allocationCount();
    work();
    return test::allocationCount() - before;
}

TEST(Allocation, isCounted) {
    EXPECT_EQ(allocationsOf([] {}), 0u);
    EXPECT_GE(allocationsOf([] { (void)Path::create(); }), 1u);
}

TEST(Allocation, isNotDoneByQuestionsToACurve) {
    RandomCurves random(CurveKind::anywhere);
    const auto path = random.path(20, true);
    const std::vector<PathCurve> curves = path->curves();
    const Line across({0, 0}, {1000, 900});
    const CGPoint point{500, 500};
    struct Row {
        const char* says;
        std::function<void(const PathCurve&)> ask;
    };
    const Row table[] = {
        {"point", [](const PathCurve& curve) { (void)curve.pointAt(0.3); }},
        {"tangent", [](const PathCurve& curve) { (void)curve.tangentAt(0.3); }},
        {"curvature", [](const PathCurve& curve) { (void)curve.curvatureAt(0.3); }},
        {"length", [](const PathCurve& curve) { (void)curve.lengthNoCache(); }},
        {"cached length", [](const PathCurve& curve) { (void)curve.length(); }},
        {"measured length", [](const PathCurve& curve) { (void)curve.length(1e-9); }},
        {"time at", [](const PathCurve& curve) { (void)curve.timeAt(0.4 * curve.length()); }},
        {"bounds", [](const PathCurve& curve) { (void)curve.bounds(); }},
        {"straightness", [](const PathCurve& curve) { (void)curve.isStraight(); }},
        {"parts", [](const PathCurve& curve) { (void)PathCurve::subdivide(curve, 0.3); }},
        {"division", [](PathCurve curve) { (void)curve.divideAt(0.3); }},
        {"stretch", [](const PathCurve& curve) { (void)curve.partialCurve(0.3, 0.6); }},
        {"nearest time", [&](const PathCurve& curve) { (void)curve.nearestTime(point); }},
        {"nearest location", [&](const PathCurve& curve) { (void)curve.nearestLocation(point); }},
        {"certified nearest location",
         [&](const PathCurve& curve) { (void)curve.nearestLocation(point, 1e-9); }},
        {"time of", [&](const PathCurve& curve) { (void)curve.timeOf(*curve.pointAt(0.3)); }},
        {"intersections", [&](const PathCurve& curve) { (void)curve.intesections(across); }},
        {"overlap", [&](const PathCurve& curve) { (void)curve.overlap(curve); }},
    };
    for (const auto& [says, ask] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(allocationsOf([&, &question = ask] {
                      for (const PathCurve& curve : curves)
                          question(curve);
                  }),
                  0u);
    }
}

TEST(Allocation, isNotDoneByQuestionsToAPath) {
    RandomCurves random(CurveKind::anywhere);
    const auto path = random.path(50, true);
    const CGPoint point{500, 500};
    EXPECT_EQ(allocationsOf([&] { (void)path->boundingBox(); }), 0u) << "without platform path";

    (void)path->contains(point);  // builds the platform path and what is remembered about it
    struct Row {
        const char* says;
        std::function<void()> ask;
    };
    const Row table[] = {
        {"hit", [&] { (void)path->hitTestOnPath(point, 2, 5); }},
        {"nearest", [&] { (void)path->nearestCurveLocation(point, 2, 500); }},
        {"certified nearest", [&] { (void)path->nearestLocation(point, 1e-9); }},
        {"length", [&] { (void)path->length(); }},
        {"measured length", [&] { (void)path->length(1e-9); }},
        {"box", [&] { (void)path->boundingBox(); }},
        {"straightness", [&] { (void)path->isStraight(); }},
        {"rectangle", [&] { (void)path->isSimpleRectangle(); }},
        {"contains",
         [&] {
             (void)path->contains({400, 300});
         }},
    };
    for (const auto& [says, ask] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(allocationsOf(ask), 0u);
    }
}

}  // namespace
}  // namespace quorin
