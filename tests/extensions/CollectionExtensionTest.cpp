#include "quorin/extensions/CollectionExtension.h"

#include <cmath>
#include <list>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Numbers = std::vector<int>;
using Names = std::vector<std::string>;

struct Layer {
    std::string name;
    int level = 0;
};

TEST(ToDictionary, mapsKeysToElements) {
    const Names names = {"b", "aa", "ccc"};
    EXPECT_THAT(toDictionary(names, &std::string::size),
                ElementsAre(Pair(1u, "b"), Pair(2u, "aa"), Pair(3u, "ccc")));
    EXPECT_THAT(toDictionary(Names{}, &std::string::size), IsEmpty());
}

TEST(ToDictionary, takesTheLastElementOfOneKey) {
    EXPECT_THAT(toDictionary(Names{"a", "b"}, &std::string::size), ElementsAre(Pair(1u, "b")));
}

TEST(Neighbours, standBehindAndInFrontOfTheFirstSuchElement) {
    const Numbers list = {1, 2, 3, 2, 4};
    EXPECT_EQ(elementAfter(list, 2), 3);
    EXPECT_EQ(elementBefore(list, 2), 1);
    EXPECT_EQ(elementBefore(list, 4), 2);
    EXPECT_EQ(elementAfter(std::list<int>{1, 2}, 1), 2);
}

TEST(Neighbours, areNoneAtTheEndsAndOfStrangers) {
    const Numbers list = {1, 2};
    EXPECT_EQ(elementAfter(list, 2), std::nullopt);
    EXPECT_EQ(elementBefore(list, 1), std::nullopt);
    EXPECT_EQ(elementAfter(list, 3), std::nullopt);
    EXPECT_EQ(elementBefore(list, 3), std::nullopt);
    EXPECT_EQ(elementAfter(Numbers{}, 1), std::nullopt);
    EXPECT_EQ(elementBefore(Numbers{}, 1), std::nullopt);
}

TEST(MoveInList, takesTheIndexAfterRemoval) {
    struct Row {
        int element;
        std::size_t index;
        Numbers result;
    };
    const Row table[] = {
        {1, 0, {1, 2, 3, 4}}, {1, 1, {2, 1, 3, 4}}, {1, 3, {2, 3, 4, 1}},
        {3, 0, {3, 1, 2, 4}}, {3, 3, {1, 2, 4, 3}}, {4, 1, {1, 4, 2, 3}},
    };
    for (const auto& [element, index, result] : table) {
        Numbers list = {1, 2, 3, 4};
        EXPECT_TRUE(move(list, element, index));
        EXPECT_EQ(list, result) << element << " to " << index;
    }
}

TEST(MoveInList, changesNothingForStrangersAndIndexesBeyondTheEnd) {
    Numbers list = {1, 2};
    EXPECT_FALSE(move(list, 3, 0));
    EXPECT_FALSE(move(list, 1, 2));
    EXPECT_THAT(list, ElementsAre(1, 2));
    Numbers empty;
    EXPECT_FALSE(move(empty, 1, 0));
}

TEST(DistinctValue, isWhatAllElementsHaveInCommon) {
    const std::vector<Layer> layers = {{"a", 2}, {"b", 2}};
    EXPECT_EQ(distinctValue(layers, &Layer::level), 2);
    EXPECT_EQ(distinctValue(layers, &Layer::name), std::nullopt);
    EXPECT_EQ(
        distinctValue(std::vector<Layer>{{"a", 7}}, [](const Layer& l) { return l.level + 1; }), 8);
}

TEST(DistinctValue, ofAnEmptyListIsNothing) {
    EXPECT_EQ(distinctValue(std::vector<Layer>{}, &Layer::level), std::nullopt);
}

TEST(DistinctValue, ofADifferenceAtTheEndIsNothing) {
    EXPECT_EQ(distinctValue(std::vector<Layer>{{"a", 1}, {"b", 1}, {"c", 2}}, &Layer::level),
              std::nullopt);
}

TEST(Sum, addsUpInTheTypeOfTheElements) {
    EXPECT_EQ(sum(Numbers{1, 2, 3}), 6);
    EXPECT_EQ(sum(std::vector<double>{0.5, 0.25}), 0.75);
    EXPECT_EQ(sum(std::vector<double>{1e16, 1, -1e16}), 0) << "from the first to the last";
    EXPECT_EQ(sum(Numbers{}), 0);
}

TEST(SumDeath, ofIntegersThatTheirTypeDoesNotHoldStopsTheProcess) {
    EXPECT_EQ(sum(Numbers{2'000'000'000, 147'483'647, 0}), 2'147'483'647);
    EXPECT_DEATH(sum(Numbers{2'000'000'000, 147'483'648}),
                 "a sum of integers beyond 31 bits, at 147483648");
    EXPECT_DEATH(sum(std::vector<unsigned char>{200, 56}), "beyond 8 bits, at 56");
}

TEST(Average, isTheArithmeticMean) {
    EXPECT_EQ(average(Numbers{1, 2}), 1.5);
    EXPECT_EQ(average(std::vector<double>{1, 2, 6}), 3);
    EXPECT_EQ(average(Numbers{2'000'000'000, 2'000'000'000}), 2e9) << "beyond the integers";
}

TEST(Average, ofAnEmptyListIs0) { EXPECT_EQ(average(Numbers{}), 0); }

TEST(IsAllEqual, comparesAllElements) {
    EXPECT_TRUE(isAllEqual(Names{"a", "a", "a"}));
    EXPECT_TRUE(isAllEqual(Names{"a"}));
    EXPECT_FALSE(isAllEqual(Names{"a", "a", "b"}));
    EXPECT_FALSE(isAllEqual(std::vector<double>{NAN, NAN}));
}

TEST(IsAllEqual, isTrueOfAnEmptyList) { EXPECT_TRUE(isAllEqual(Names{})); }

}  // namespace
}  // namespace quorin
