#include "quorin/transformers/ValueTransformer.h"

#include <algorithm>
#include <type_traits>

#include "quorin/transformers/NumericalValueTransformer.h"
#include "quorin/transformers/PointScaleConvertiableTransformer.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::Contains;
using testing::IsSupersetOf;

static_assert(std::is_same_v<NSValueTransformer, ValueTransformer>);

struct Row {
    const char *name, *superclass, *shows;
    bool hasPointScale, isNumerical;
};

const Row classes[] = {
    {"NumberTransformer", "ValueTransformer", "NSString", true, true},
    {"CoordinatesTransformer", "NumberTransformer", "NSString", true, true},
    {"CornerRadiusTransformer", "CoordinatesTransformer", "NSString", true, true},
    {"PercentValueTransformer", "ValueTransformer", "NSString", false, true},
    {"IntValueTransformer", "ValueTransformer", "NSNumber", false, true},
    {"DoubleValueTransformer", "ValueTransformer", "NSNumber", false, false},
    {"DegreeStringTransformer", "NumberTransformer", "NSString", true, true},
    {"DegreeRadianTransformer", "ValueTransformer", "NSNumber", false, false},
    {"MillisecondTransformer", "ValueTransformer", "NSString", false, true},
    {"SuffixlessMillisecondTransformer", "MillisecondTransformer", "NSString", false, true},
    {"StringTransformer", "ValueTransformer", "NSString", false, false},
};

TEST(ValueTransformerRegistry, makesEachClassOfTheLibraryByItsName) {
    for (const auto& [name, superclass, shows, hasPointScale, isNumerical] : classes) {
        SCOPED_TRACE(name);
        const auto transformer = ValueTransformer::create(name);
        ASSERT_NE(transformer, nullptr);
        EXPECT_EQ(transformer->objectClass().name(), name);
        EXPECT_EQ(transformer->objectClass().superclass()->name(), superclass);
        EXPECT_EQ(transformer->transformedValueClass(), shows);
        EXPECT_TRUE(transformer->allowsReverseTransformation());
        EXPECT_EQ(
            std::dynamic_pointer_cast<PointScaleConvertiableTransformer>(transformer) != nullptr,
            hasPointScale);
        EXPECT_EQ(std::dynamic_pointer_cast<NumericalValueTransformer>(transformer) != nullptr,
                  isNumerical);
    }
}

TEST(ValueTransformerRegistry, makesAFreshOneEachTime) {
    const auto first = ValueTransformer::create("NumberTransformer");
    first->setValueForKey(2, "pointScale");
    const auto second = ValueTransformer::create("NumberTransformer");
    EXPECT_NE(first, second);
    EXPECT_EQ(second->valueForKey("pointScale"), Value(1.0));
}

TEST(ValueTransformerRegistry, hasNothingUnderOtherNames) {
    for (const char* name : {"", "numberTransformer", "NumberTransformer ", "ValueTransformer",
                             "NSObject", "quorin::NumberTransformer"})
        EXPECT_EQ(ValueTransformer::create(name), nullptr) << name;
}

TEST(ValueTransformerRegistry, listsItsNamesInOrder) {
    std::vector<std::string> names;
    for (const Row& row : classes)
        names.emplace_back(row.name);
    const std::vector<std::string> listed = ValueTransformer::classNames();
    EXPECT_THAT(listed, IsSupersetOf(names));
    EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
}

/// A host's own, which counts the letters of a text.
struct LengthTransformer : ValueTransformer {
    using Class = NSClassOf<LengthTransformer, ValueTransformer>;

    Value transformedValue(const Value& value) const override {
        return value.asText() ? Value(value.asText()->size()) : Value(0);
    }
    bool allowsReverseTransformation() const override { return false; }
    std::string_view transformedValueClass() const override { return "NSNumber"; }
};

TEST(ValueTransformerRegistry, takesClassesOfTheHost) {
    ValueTransformer::registerClass<LengthTransformer>();
    EXPECT_THAT(ValueTransformer::classNames(), Contains("LengthTransformer"));
    EXPECT_EQ(ValueTransformer::create("LengthTransformer")->transformedValue("four"), Value(4));
}

namespace later {

/// Has the name of another one, and measures in bits.
struct LengthTransformer : ValueTransformer {
    using Class = NSClassOf<LengthTransformer, ValueTransformer>;

    Value transformedValue(const Value& value) const override {
        return value.asText() ? Value(value.asText()->size() * 8) : Value(0);
    }
    std::string_view transformedValueClass() const override { return "NSNumber"; }
};

}  // namespace later

TEST(ValueTransformerRegistry, makesTheLaterOfTwoClassesWithOneName) {
    ValueTransformer::registerClass<LengthTransformer>();
    ValueTransformer::registerClass<later::LengthTransformer>();
    EXPECT_EQ(ValueTransformer::create("LengthTransformer")->transformedValue("four"), Value(32));
    ValueTransformer::registerClass<LengthTransformer>();
}

TEST(ValueTransformerDeath, askedForAWayBackThatIsNoneNamesTheClass) {
    const auto transformer = makeObject<LengthTransformer>();
    EXPECT_DEATH(transformer->reverseTransformedValue(4),
                 "<LengthTransformer: 0x[0-9a-f]+> does not transform back");
}

/// The same both ways.
struct NegationTransformer : ValueTransformer {
    using Class = NSClassOf<NegationTransformer, ValueTransformer>;

    Value transformedValue(const Value& value) const override {
        const auto answer = value.asBool();
        return answer ? Value(!*answer) : Value();
    }
    std::string_view transformedValueClass() const override { return "NSNumber"; }
};

TEST(ValueTransformer, goesBackTheSameWayUnlessItSaysHow) {
    const auto transformer = makeObject<NegationTransformer>();
    EXPECT_EQ(transformer->reverseTransformedValue(true), Value(false));
}

}  // namespace
}  // namespace quorin
