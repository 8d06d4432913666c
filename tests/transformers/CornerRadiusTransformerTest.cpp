#include "quorin/transformers/CornerRadiusTransformer.h"

#include <cmath>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/NSMultipleValuesMarker.h"
#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using List = Value::List;

struct CornerRadiusTransformerTest : testing::Test {
    Value shown(const Value& value) const { return transformer->transformedValue(value); }

    /// The doubles that a text reads as.
    std::vector<double> read(const Value& value) const {
        std::vector<double> radii;
        const Value list = transformer->reverseTransformedValue(value);
        for (const Value& radius : *list.asList())
            radii.push_back(radius.asDouble().value());
        return radii;
    }

    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<CornerRadiusTransformer> transformer =
        makeObject<CornerRadiusTransformer>();
};

TEST_F(CornerRadiusTransformerTest, showsEqualRadiiAsOne) {
    EXPECT_EQ(shown(List{3, 3, 3, 3}), Value("3"));
    EXPECT_EQ(shown(List{3, 3.0}), Value("3"));
    EXPECT_EQ(shown(List{4.25}), Value("4.2"));
    EXPECT_EQ(shown(4.5), Value("4.5"));
    EXPECT_EQ(shown(4), Value("4"));
}

TEST_F(CornerRadiusTransformerTest, showsDifferentRadiiBetweenSemicolons) {
    EXPECT_EQ(shown(List{4, 8, 4, 0}), Value("4;8;4;0"));
    EXPECT_EQ(shown(List{1234.56, 1}), Value("1,234.6;1"));
    const NSLocale::CurrentScope german("de_DE");
    EXPECT_EQ(shown(List{1.5, 2}), Value("1,5;2"));
}

TEST_F(CornerRadiusTransformerTest, comparesRadiiExactly) {
    EXPECT_EQ(shown(List{3, std::nextafter(3, 4)}), Value("3;3"));
    EXPECT_EQ(shown(List{NAN, NAN}), Value("NaN;NaN")) << "NaN equals nothing";
    EXPECT_EQ(shown(List{0.0, -0.0}), Value("0"));
}

TEST_F(CornerRadiusTransformerTest, showsNegativeZeroAsTheFormatterDoes) {
    EXPECT_EQ(shown(-0.04), Value("-0"));
    EXPECT_EQ(shown(List{-0.04, 1}), Value("-0;1"));
}

TEST_F(CornerRadiusTransformerTest, showsTheMarkerForNoRadii) {
    EXPECT_EQ(shown(List{}).asObject(), NSMultipleValuesMarker::marker());
}

TEST_F(CornerRadiusTransformerTest, showsZeroForWhatIsNoRadius) {
    for (const Value& value : {Value(), Value("4"), Value(true), Value(NSNull::null()),
                               Value(List{4, "8"}), Value(List{4, true}), Value(List{4, nullptr})})
        EXPECT_EQ(shown(value), Value("0"));
}

TEST_F(CornerRadiusTransformerTest, showsTenthsWhateverTheIncrementIs) {
    EXPECT_EQ(transformer->roundingIncrement(), 0.01) << "as its superclass has it";
    EXPECT_EQ(shown(1.234), Value("1.2"));
    EXPECT_EQ(shown(List{1.234, 5.678}), Value("1.2;5.7"));
}

TEST_F(CornerRadiusTransformerTest, appliesThePointScale) {
    transformer->setPointScale(2);
    EXPECT_EQ(shown(1.5), Value("3"));
    EXPECT_EQ(shown(List{4, 8}), Value("8;16"));
    EXPECT_THAT(read("8;16"), ElementsAre(4, 8));
}

TEST_F(CornerRadiusTransformerTest, comparesDisplayedRadii) {
    transformer->setPointScale(10);
    EXPECT_EQ(shown(List{1e308, 1.5e308}), Value("\u221E")) << "both too large once scaled";
}

TEST_F(CornerRadiusTransformerTest, dividesByThePointScaleToTheLastBit) {
    transformer->setPointScale(3);
    EXPECT_THAT(read("5"), ElementsAre(5.0 / 3)) << "5 * (1.0 / 3) is another double";
    EXPECT_EQ(transformer->incrementValue(List{10.2}, 5, 1), Value(List{5.0 / 3 * 7}));
}

TEST_F(CornerRadiusTransformerTest, refusesNegativePiecesBeforeItDivides) {
    transformer->setPointScale(-2);
    EXPECT_THAT(read("4;-4"), ElementsAre(-2, 0));
}

TEST_F(CornerRadiusTransformerTest, readsEachPiece) {
    EXPECT_THAT(read("4;8;4;0"), ElementsAre(4, 8, 4, 0));
    EXPECT_THAT(read("5"), ElementsAre(5));
    EXPECT_THAT(read(" 2*3 ; (1+1)*4"), ElementsAre(6, 8));
    EXPECT_THAT(read("7/2"), ElementsAre(3.5));
}

TEST_F(CornerRadiusTransformerTest, reads0ForBadAndNegativePieces) {
    EXPECT_THAT(read("4;-2;x"), ElementsAre(4, 0, 0));
    EXPECT_THAT(read("4px;1+;\xFF;()"), ElementsAre(0, 0, 0, 0));
}

TEST_F(CornerRadiusTransformerTest, reads0ForEmptyPieces) {
    EXPECT_THAT(read(""), ElementsAre(0));
    EXPECT_THAT(read(";"), ElementsAre(0, 0));
    EXPECT_THAT(read("4;;8;"), ElementsAre(4, 0, 8, 0));
}

TEST_F(CornerRadiusTransformerTest, readsNoSeparatorsOfTheLocale) {
    EXPECT_THAT(read("1,234;1,5"), ElementsAre(0, 0));
    const NSLocale::CurrentScope german("de_DE");
    EXPECT_THAT(read("1,5;1.5"), ElementsAre(0, 1.5));
}

TEST_F(CornerRadiusTransformerTest, readsNeverNegativeZero) {
    EXPECT_FALSE(std::signbit(read("-0").front()));
    EXPECT_FALSE(std::signbit(read("-1").front()));
}

TEST_F(CornerRadiusTransformerTest, readsNaNAndInfinityAsTheyAre) {
    EXPECT_TRUE(std::isnan(read("0/0").front()));
    EXPECT_THAT(read("1/0;-1/0"), ElementsAre(INFINITY, 0));
}

TEST_F(CornerRadiusTransformerTest, readsOneZeroFromWhatIsNoText) {
    transformer->setAllowNil(true);
    for (const Value& value : {Value(), Value(4), Value(List{4, 8}), Value(true)})
        EXPECT_THAT(read(value), ElementsAre(0.0));
}

TEST_F(CornerRadiusTransformerTest, stepsEachRadiusOfAList) {
    EXPECT_EQ(transformer->incrementValue(List{4, 8.2, 0.5}, 1, 1), Value(List{5.0, 9.0, 2.0}));
    EXPECT_EQ(transformer->incrementValue(List{}, 1, 1), Value(List{}));
    transformer->setPointScale(2);
    EXPECT_EQ(transformer->incrementValue(List{10.2, 0}, 1, -1), Value(List{9.5, -0.5}));
}

TEST_F(CornerRadiusTransformerTest, clampsEachRadiusOfAListToUnscaledBounds) {
    transformer->setPointScale(2);
    EXPECT_EQ(transformer->clampValue(List{-1, 5, 15}, {0, 10}), Value(List{0.0, 5.0, 10.0}));
    EXPECT_EQ(transformer->clampValue(List{}, {0, 10}), Value(List{}));
    const Value zeros = transformer->clampValue(List{-0.0, NAN}, {0.0, 10});
    EXPECT_FALSE(std::signbit(zeros.asList()->at(0).asDouble().value()));
    EXPECT_TRUE(std::isnan(zeros.asList()->at(1).asDouble().value()));
}

TEST_F(CornerRadiusTransformerTest, neitherStepsNorClampsASingleRadius) {
    for (const Value& value : {Value(15.5), Value(15), Value("15"), Value(), Value(List{1, "2"}),
                               Value(List{1, true})}) {
        EXPECT_EQ(transformer->incrementValue(value, 1, 1), value);
        EXPECT_EQ(transformer->clampValue(value, {0, 10}), value);
    }
}

}  // namespace
}  // namespace quorin
