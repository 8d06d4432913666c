#include "quorin/linear/ScalarWrapper.h"

#include <cmath>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

struct Weight {
    using NativeType = double;
    double rawValue;
    constexpr explicit Weight(double value) : rawValue(value) {}
};

struct Label {
    using NativeType = std::string;
    std::string rawValue;
    explicit Label(std::string text) : rawValue(std::move(text)) {}
};

struct Unordered {
    int value;
    friend bool operator==(const Unordered&, const Unordered&) = default;
};

struct Marker {
    using NativeType = Unordered;
    Unordered rawValue;
    explicit Marker(Unordered value) : rawValue(value) {}
};

struct Nameless {
    double rawValue;
};

template <typename Type>
concept Ordered = requires(const Type& a) {
    a < a;
};

static_assert(ScalarWrapper<Weight> && ScalarWrapper<Label> && ScalarWrapper<Marker>);
static_assert(!ScalarWrapper<double> && !ScalarWrapper<Nameless>);

TEST(ScalarWrapper, isEqualByItsValue) {
    EXPECT_TRUE(Weight(1.5) == Weight(1.5));
    EXPECT_TRUE(Weight(1.5) != Weight(1.25));
    EXPECT_TRUE(Label("a") == Label("a"));
    EXPECT_FALSE(Weight(std::nan("")) == Weight(std::nan("")));
}

TEST(ScalarWrapper, isOrderedByItsValue) {
    EXPECT_TRUE(Weight(1) < Weight(2));
    EXPECT_FALSE(Weight(2) < Weight(2));
    EXPECT_TRUE(Label("a") < Label("b"));
}

TEST(ScalarWrapper, isNotOrderedWhenItsValueIsNot) {
    EXPECT_TRUE(Marker({1}) == Marker({1}));
    EXPECT_TRUE(Ordered<Weight>);
    EXPECT_FALSE(Ordered<Marker>);
}

}  // namespace
}  // namespace quorin
