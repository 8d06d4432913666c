#include "quorin/extensions/Rearrangement.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Numbers = std::vector<int>;

/// A list that does the steps as they come, with a record of them.
struct FollowingList {
    Numbers list;
    std::vector<std::string> steps = {};
    std::size_t moves = 0;

    auto adds() {
        return [this](int element, std::size_t index) {
            RC_ASSERT(index <= list.size());
            RC_ASSERT(std::count(list.begin(), list.end(), element) == 0);
            list.insert(list.begin() + static_cast<std::ptrdiff_t>(index), element);
            note("add", element, index);
        };
    }
    auto movesThem() {
        return [this](int element, std::size_t index) {
            takeOut(element);
            RC_ASSERT(index <= list.size());
            list.insert(list.begin() + static_cast<std::ptrdiff_t>(index), element);
            note("move", element, index);
            ++moves;
        };
    }
    auto removes() {
        return [this](int element) {
            takeOut(element);
            steps.push_back("remove " + std::to_string(element));
        };
    }

private:
    void takeOut(int element) {
        const auto found = std::find(list.begin(), list.end(), element);
        RC_ASSERT(found != list.end());
        list.erase(found);
    }
    void note(std::string what, int element, std::size_t index) {
        what.append(" ").append(std::to_string(element)).append(" to ");
        steps.push_back(what.append(std::to_string(index)));
    }
};

FollowingList followed(const Numbers& set, const Numbers& array) {
    FollowingList following{set};
    rearrangeObjectsWithArray(set, array, following.adds(), following.movesThem(),
                              following.removes());
    return following;
}

TEST(RearrangeObjectsWithArray, tellsRemovalsFirstAndIndexesAsTheyAreThen) {
    EXPECT_THAT(followed({1, 2, 3, 5}, {3, 4, 5, 1}).steps,
                ElementsAre("remove 2", "add 4 to 2", "move 1 to 3"))
        << "1 still stands in front while 4 comes";
    EXPECT_THAT(followed({1, 2, 3}, {3, 1, 2}).steps, ElementsAre("move 3 to 0"));
}

TEST(RearrangeObjectsWithArray, tellsNothingOfWhatStays) {
    EXPECT_THAT(followed({1, 2, 3}, {1, 2, 3}).steps, IsEmpty());
    EXPECT_THAT(followed({}, {}).steps, IsEmpty());
    EXPECT_THAT(followed({1, 2}, {}).steps, ElementsAre("remove 1", "remove 2"));
    EXPECT_THAT(followed({}, {2, 1}).steps, ElementsAre("add 2 to 0", "add 1 to 1"));
}

TEST(RearrangeObjectsWithArray, countsARepeatedElementWhereItIsFirst) {
    EXPECT_THAT(followed({1}, {2, 1, 2}).list, ElementsAre(2, 1));
}

/// Different numbers from 0 to 9 in any order.
rc::Gen<Numbers> orders() {
    return rc::gen::map(rc::gen::container<Numbers>(rc::gen::inRange(0, 10)), [](Numbers numbers) {
        Numbers different;
        for (const int number : numbers)
            if (std::count(different.begin(), different.end(), number) == 0)
                different.push_back(number);
        return different;
    });
}

/// By trying all subsets: how many of `set` can stay while the others move.
std::size_t mostThatStay(const Numbers& set, const Numbers& array) {
    std::size_t most = 0;
    for (std::size_t subset = 0; subset < std::size_t{1} << set.size(); ++subset) {
        Numbers kept;
        for (std::size_t i = 0; i < set.size(); ++i)
            if (subset >> i & 1)
                kept.push_back(set[i]);
        auto at = array.begin();
        const bool isInOrder = std::all_of(kept.begin(), kept.end(), [&](int element) {
            at = std::find(at, array.end(), element);
            return at != array.end();
        });
        if (isInOrder)
            most = std::max(most, kept.size());
    }
    return most;
}

RC_GTEST_PROP(RearrangeObjectsWithArray, leadsToTheWantedOrder, ()) {
    const Numbers set = *orders(), array = *orders();
    RC_ASSERT(followed(set, array).list == array);
}

RC_GTEST_PROP(RearrangeObjectsWithArray, movesAsFewAsPossible, ()) {
    const Numbers set = *rc::gen::resize(7, orders()), array = *rc::gen::resize(7, orders());
    const auto staying =
        static_cast<std::size_t>(std::count_if(set.begin(), set.end(), [&](int element) {
            return std::count(array.begin(), array.end(), element) > 0;
        }));
    RC_ASSERT(followed(set, array).moves == staying - mostThatStay(set, array));
}

TEST(RearrangeObjectsWithReversedArray, putsTheLastElementFirst) {
    FollowingList following{{5, 1}};
    rearrangeObjectsWithReversedArray(std::set<int>{1, 5}, Numbers{1, 7}, following.adds(),
                                      following.movesThem(), following.removes());
    EXPECT_THAT(following.steps, ElementsAre("remove 5", "add 7 to 0", "move 1 to 1"));
    EXPECT_THAT(following.list, ElementsAre(7, 1));
}

RC_GTEST_PROP(RearrangeObjectsWithReversedArray, leadsToTheReverseFromAnyOrder, ()) {
    const Numbers shown = *orders();
    Numbers array = *orders();
    FollowingList following{shown};
    rearrangeObjectsWithReversedArray(std::set<int>(shown.begin(), shown.end()), array,
                                      following.adds(), following.movesThem(), following.removes());
    std::reverse(array.begin(), array.end());
    RC_ASSERT(following.list == array);
}

TEST(RearrangeObjectsWithArray, takesAHundredThousandElements) {
    Numbers set(100'000);
    std::iota(set.begin(), set.end(), 0);
    const Numbers array(set.rbegin(), set.rend());
    std::size_t moves = 0;
    rearrangeObjectsWithArray(
        set, array, [](int, std::size_t) { ADD_FAILURE(); }, [&](int, std::size_t) { ++moves; },
        [](int) { ADD_FAILURE(); });
    EXPECT_EQ(moves, set.size() - 1);
}

}  // namespace
}  // namespace quorin
