#include "quorin/path/AnchorArray.h"

#include <limits>
#include <new>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

PathAnchor at(CGFloat x) { return {{x, 0}, {}, {}}; }

AnchorArray arrayOf(std::initializer_list<CGFloat> places) {
    AnchorArray array;
    for (const CGFloat x : places)
        array.append() = at(x);
    return array;
}

std::vector<CGFloat> placesOf(const AnchorArray& array) {
    std::vector<CGFloat> places;
    for (const PathAnchor& anchor : array.span())
        places.push_back(anchor.point.x);
    return places;
}

TEST(AnchorArray, isBornEmpty) {
    EXPECT_TRUE(AnchorArray().isEmpty());
    EXPECT_THAT(placesOf(AnchorArray()), IsEmpty());
    EXPECT_THAT(placesOf(AnchorArray(AnchorArray())), IsEmpty());
}

TEST(AnchorArray, appendsPrependsAndRemoves) {
    AnchorArray array = arrayOf({1, 2, 3});
    array.prepend(at(0));
    EXPECT_THAT(placesOf(array), ElementsAre(0, 1, 2, 3));
    array.removeAt(1);
    EXPECT_THAT(placesOf(array), ElementsAre(0, 2, 3));
    array.removeAt(2);
    EXPECT_THAT(placesOf(array), ElementsAre(0, 2));
    array.removeLast();
    EXPECT_THAT(placesOf(array), ElementsAre(0));
    array.removeAll();
    EXPECT_THAT(placesOf(array), IsEmpty());
}

TEST(AnchorArray, copiesAreIndependentAndMovesLeaveNothing) {
    AnchorArray array = arrayOf({1, 2});
    AnchorArray copy = array;
    copy[0] = at(9);
    EXPECT_THAT(placesOf(array), ElementsAre(1, 2));
    const AnchorArray moved = std::move(copy);
    EXPECT_THAT(placesOf(moved), ElementsAre(9, 2));
    array = moved;
    EXPECT_THAT(placesOf(array), ElementsAre(9, 2));
    array = AnchorArray();
    EXPECT_TRUE(array.isEmpty());
}

TEST(AnchorArray, clearsAnAnchorAppendedWhereAnotherStood) {
    AnchorArray array = arrayOf({7, 8});
    array.removeLast();
    EXPECT_EQ(array.append(), PathAnchor());
}

TEST(AnchorArray, insertsAtEveryPosition) {
    for (std::size_t i = 0; i <= 3; ++i) {
        AnchorArray array = arrayOf({1, 2, 3});
        array.insertAt(i, at(9));
        std::vector<CGFloat> expected = {1, 2, 3};
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(i), 9);
        EXPECT_EQ(placesOf(array), expected);
    }
}

TEST(AnchorArray, prependsAnAnchorOfItsOwnWhileItGrows) {
    AnchorArray array = arrayOf({7});
    for (int i = 0; i < 100; ++i)
        array.prepend(array[0]);
    EXPECT_EQ(array.count(), 101u);
    EXPECT_EQ(array[0], at(7));
}

TEST(AnchorArray, staysInPlaceWithinWhatWasReserved) {
    AnchorArray array;
    array.reserve(100);
    array.append() = at(0);
    const PathAnchor* const place = &array[0];
    for (int i = 1; i < 100; ++i)
        array.append() = at(i);
    array.removeAll();
    array.reserve(10);
    array.append() = at(5);
    EXPECT_EQ(&array[0], place);
}

TEST(AnchorArray, refusesToReserveMoreThanThereIs) {
    AnchorArray array = arrayOf({1, 2});
    const std::size_t most = std::numeric_limits<std::size_t>::max();
    EXPECT_THROW(array.reserve(most), std::bad_alloc);
    EXPECT_THAT(placesOf(array), ElementsAre(1, 2));
}

RC_GTEST_PROP(AnchorArray, doesAsAVectorDoes, ()) {
    AnchorArray array;
    std::vector<CGFloat> expected;
    const auto choices = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 8));
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const auto x = static_cast<CGFloat>(i);
        if (choices[i] == 0) {
            array.prepend(at(x));
            expected.insert(expected.begin(), x);
        } else if (choices[i] == 1 && !expected.empty()) {
            array.removeAt(expected.size() / 2);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(expected.size() / 2));
        } else {
            array.append() = at(x);
            expected.push_back(x);
        }
    }
    RC_ASSERT(placesOf(array) == expected);
}

}  // namespace
}  // namespace quorin
