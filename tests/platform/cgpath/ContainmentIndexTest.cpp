#include "quorin/platform/cgpath/ContainmentIndex.h"

#include <thread>
#include <utility>
#include <vector>

#include "quorin/platform/cgpath/OutlineWalk.h"
#include "tests/TestSupport.h"
#include "tests/platform/cgpath/Elements.h"
#include "tests/platform/cgpath/RandomOutlines.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using namespace test;

struct Parts {
    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;

    explicit Parts(const CGPath& path) {
        path.apply([&](const CGPathElement& element) {
            types.push_back(element.type);
            points.insert(points.end(), element.points.begin(), element.points.end());
        });
    }
};

class ContainmentIndexOfKind : public ::testing::TestWithParam<OutlineKind> {};

TEST_P(ContainmentIndexOfKind, givesTheAnswerOfTheWalk) {
    RandomOutlines random(GetParam());
    int inside = 0, onOutline = 0;
    for (const int elements : {1, 2, 3, 7, 20, 60, 200, 600}) {
        const auto path = random.path(elements);
        const Parts parts(*path);
        const ContainmentIndex index(parts.types, parts.points);
        for (int question = 0; question < 120; ++question) {
            const CGPoint point = random.pointFor(*path);
            const Winding expected = windingByWalk(parts.types, parts.points, point);
            ASSERT_EQ(index.windingAround(point), expected)
                << elements << " elements, " << ::testing::PrintToString(point);
            inside += expected.number != 0;
            onOutline += expected.isOnOutline;
        }
    }
    // The questions are worth asking.
    EXPECT_GT(onOutline, 10);
    if (GetParam() != OutlineKind::degenerate) {
        EXPECT_GT(inside, 10);
    }
}

TEST_P(ContainmentIndexOfKind, givesTheAnswerOfTheWalkAtTheEdgesOfItsCells) {
    RandomOutlines random(GetParam());
    const auto path = random.path(100);
    const Parts parts(*path);
    const ContainmentIndex index(parts.types, parts.points);
    // Cells begin where pieces do, so every pair of such coordinates is a corner of one or lies on
    // the side of one.
    for (std::size_t a = 0; a < parts.points.size(); a += 9)
        for (std::size_t b = 0; b < parts.points.size(); b += 9) {
            const CGPoint point{parts.points[a].x, parts.points[b].y};
            ASSERT_EQ(index.windingAround(point), windingByWalk(parts.types, parts.points, point))
                << ::testing::PrintToString(point);
        }
}

TEST_P(ContainmentIndexOfKind, keepsToItsMemory) {
    for (const int elements : {300, 3000}) {
        const Parts parts(*RandomOutlines(GetParam()).path(elements));
        const ContainmentIndex index(parts.types, parts.points);
        EXPECT_LE(index.byteCount(), 200 * index.pieceCount()) << elements << " elements";
    }
}

INSTANTIATE_TEST_SUITE_P(Every, ContainmentIndexOfKind, ::testing::ValuesIn(allOutlineKinds),
                         [](const auto& kind) { return std::string(nameOf(kind.param)); });

TEST(ContainmentIndex, ofAnEmptyOutlineHoldsNothing) {
    const ContainmentIndex index({}, {});
    EXPECT_EQ(index.windingAround({0, 0}), Winding());
    EXPECT_EQ(index.pieceCount(), 0u);
}

TEST(ContainmentIndex, asksNoMemoryForAQuestion) {
    RandomOutlines random(OutlineKind::scribble);
    const auto path = random.path(200);
    const Parts parts(*path);
    const ContainmentIndex index(parts.types, parts.points);
    std::vector<CGPoint> questions;
    for (int question = 0; question < 500; ++question)
        questions.push_back(random.pointFor(*path));
    const std::size_t before = allocationCount();
    int sum = 0;
    for (const CGPoint point : questions)
        sum += index.windingAround(point).number;
    EXPECT_EQ(allocationCount(), before);
    EXPECT_NE(sum, 0);
}

TEST(ContainmentOverAndOver, asksNoMemoryOnceThereIsAnIndex) {
    RandomOutlines random(OutlineKind::blob);
    const auto path = random.path(200);
    std::size_t growth = 0;
    for (int question = 0; question < 100; ++question) {
        const CGPoint point = random.pointFor(*path);
        const std::size_t before = allocationCount();
        (void)path->contains(point);
        const std::size_t asked = allocationCount() - before;
        growth += asked > 0;
    }
    EXPECT_EQ(growth, 1u) << "one question builds the index, no other asks for memory";
}

TEST(ContainmentOverAndOver, buildsNoIndexForFewQuestionsOrASmallPath) {
    RandomOutlines random(OutlineKind::blob);
    const auto large = random.path(200), small = random.path(10);
    const std::size_t before = allocationCount();
    for (int question = 0; question < 5; ++question)
        (void)large->contains({500, 500});
    for (int question = 0; question < 100; ++question)
        (void)small->contains({500, 500});
    EXPECT_EQ(allocationCount(), before);
}

TEST(ContainmentOverAndOver, keepsItsAnswers) {
    for (const OutlineKind kind : allOutlineKinds) {
        SCOPED_TRACE(nameOf(kind));
        RandomOutlines random(kind);
        const auto path = random.path(100);
        std::vector<std::pair<CGPoint, bool>> answers;
        for (int question = 0; question < 10; ++question) {
            const CGPoint point = random.pointFor(*path);
            answers.emplace_back(point, path->contains(point));
        }
        for (int round = 0; round < 10; ++round)
            for (const auto& [point, answer] : answers)
                EXPECT_EQ(path->contains(point), answer);
    }
}

TEST(ContainmentOverAndOver, isTheSameForThreadsThatAskAtOnce) {
    RandomOutlines random(OutlineKind::mixed);
    const auto path = random.path(300);
    const Parts parts(*path);
    std::vector<std::pair<CGPoint, bool>> answers;
    for (int question = 0; question < 40; ++question) {
        const CGPoint point = random.pointFor(*path);
        const Winding around = windingByWalk(parts.types, parts.points, point);
        answers.emplace_back(point, around.isOnOutline || around.number != 0);
    }
    std::vector<int> wrong(4);
    std::vector<std::thread> threads;
    for (int& count : wrong)
        threads.emplace_back([&] {
            for (const auto& [point, answer] : answers)
                count += path->contains(point) != answer;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(wrong, ::testing::Each(0));
}

TEST(ContainmentOverAndOver, worksWithCoordinatesThatAreNotOrdinary) {
    CGMutablePath builder;
    builder.moveTo({0, 0});
    for (int index = 1; index <= 50; ++index)
        builder.addLineTo({index / 50.0, index % 2 == 0 ? 1e308 : 1e200});
    builder.addLineTo({1, -INFINITY});
    builder.addLineTo({NAN, 0});
    const auto path = builder.take();
    for (int question = 0; question < 40; ++question) {
        EXPECT_TRUE(path->contains({0.5, 1}));
        EXPECT_FALSE(path->contains({2, 1}));
    }
}

}  // namespace
}  // namespace quorin
