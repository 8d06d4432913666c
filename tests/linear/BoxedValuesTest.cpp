#include "quorin/linear/BoxedValues.h"

#include <dlfcn.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGRect rect{{1, 2}, {3, 4}};
constexpr CATransform3D transform{2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};

class Layer : public Object {
public:
    std::string description() const override { return "layer"; }
};

std::string kindOf(const Value& a, const Value& b) { return ObjCRuntimeType(&a, &b); }

NSValue boxOfOtherType() {
    const std::array<std::uint8_t, 2> bytes{1, 2};
    return {bytes, "[2C]"};
}

TEST(ObjCRuntimeType, namesTheKindThatTwoValuesShare) {
    struct Row {
        Value a, b;
        const char* kind;
    };
    const Row table[] = {
        {1.5, 2.5, "Double"},
        {1, 2.5, "Double"},
        {true, 2, "Double"},
        {CGColor(), CGColor(), "CGColor"},
        {transform, transform, "Transform"},
        {rect, rect, "CGRect"},
        {CGPoint(), CGPoint(), "CGPoint"},
        {CGSize(), CGSize(), "CGSize"},
    };
    for (const auto& [a, b, kind] : table)
        EXPECT_EQ(kindOf(a, b), kind);
}

TEST(ObjCRuntimeType, ofARectAndAPointIsThatOfTheRect) {
    EXPECT_EQ(kindOf(rect, CGPoint()), "CGRect");
}

TEST(ObjCRuntimeType, ofANumberAndAPointIsUnknown) { EXPECT_EQ(kindOf(1.5, CGPoint()), "Unknown"); }

TEST(ObjCRuntimeType, ofTwoBoxesIsDecidedByTheFirstAlone) {
    EXPECT_EQ(kindOf(CGPoint(), rect), "CGPoint");
    EXPECT_EQ(kindOf(CGPoint(), 1.5), "CGPoint");  // a number is a box too
    EXPECT_EQ(kindOf(CGSize(), boxOfOtherType()), "CGSize");
    EXPECT_EQ(kindOf(transform, true), "Transform");
    EXPECT_EQ(kindOf(boxOfOtherType(), CGSize()), "Unknown");
}

TEST(ObjCRuntimeType, isUnknownUnlessBothAreNumbersColoursOrBoxes) {
    const Value strangers[] = {"text", Value(), Value::List{1.5}, Value::Map{{"x", 1.5}},
                               std::make_shared<Layer>()};
    const Value familiar[] = {1.5, CGColor(), rect, transform};
    for (const Value& stranger : strangers) {
        EXPECT_EQ(kindOf(stranger, stranger), "Unknown");
        for (const Value& value : familiar) {
            EXPECT_EQ(kindOf(stranger, value), "Unknown");
            EXPECT_EQ(kindOf(value, stranger), "Unknown");
        }
    }
    EXPECT_EQ(kindOf(CGColor(), rect), "Unknown");
    EXPECT_EQ(kindOf(rect, CGColor()), "Unknown");
    EXPECT_EQ(kindOf(CGColor(), 1.5), "Unknown");
}

TEST(ObjCRuntimeType, isUnknownForNullPointers) {
    const Value number = 1.5;
    EXPECT_STREQ(ObjCRuntimeType(nullptr, &number), "Unknown");
    EXPECT_STREQ(ObjCRuntimeType(&number, nullptr), "Unknown");
    EXPECT_STREQ(ObjCRuntimeType(nullptr, nullptr), "Unknown");
}

TEST(ObjCRuntimeType, knowsGeometryThatCameAsBytesByItsEncoding) {
    const std::array<std::uint8_t, 16> bytes{};
    EXPECT_EQ(kindOf(NSValue(bytes, "{CGPoint=dd}"), 1.5), "CGPoint");
    EXPECT_EQ(kindOf(NSValue(bytes, "{CGPoint=dd} "), CGPoint()), "Unknown");
    EXPECT_EQ(kindOf(NSValue(bytes, "{CGPoint"), CGPoint()), "Unknown");
}

TEST(IsTransform3DValue, isTrueForABoxedTransformOnly) {
    const auto isTransform = [](const NSValue& value) { return isTransform3DValue(&value); };
    EXPECT_TRUE(isTransform(transform));
    EXPECT_FALSE(isTransform(rect));
    EXPECT_FALSE(isTransform(CGPoint()));
    EXPECT_FALSE(isTransform(NSNumber(1.5)));
    EXPECT_FALSE(isTransform(boxOfOtherType()));
    EXPECT_FALSE(isTransform3DValue(nullptr));
}

TEST(BoxedValues, areFoundByPlainSymbolNames) {
    using KindOfTwo = const char*(const void*, const void*);
    using IsTransform = bool(const void*);
    auto* const kindOfTwo = reinterpret_cast<KindOfTwo*>(dlsym(RTLD_DEFAULT, "ObjCRuntimeType"));
    auto* const isTransform =
        reinterpret_cast<IsTransform*>(dlsym(RTLD_DEFAULT, "isTransform3DValue"));
    EXPECT_EQ(reinterpret_cast<void*>(kindOfTwo), reinterpret_cast<void*>(&ObjCRuntimeType));
    EXPECT_EQ(reinterpret_cast<void*>(isTransform), reinterpret_cast<void*>(&isTransform3DValue));
}

TEST(BoxedValues, ofNumbersAreEqualWithinAThousandthAtAnyTolerance) {
    for (const CGFloat tolerance : {0.0, 1e-9, 0.1, 1e9, infinity, nan}) {
        EXPECT_TRUE(isGeometricallyEqual(NSNumber(0.0), NSNumber(0.0009), tolerance));
        EXPECT_TRUE(isGeometricallyEqual(NSNumber(0.0009), NSNumber(0.0), tolerance));
        EXPECT_FALSE(isGeometricallyEqual(NSNumber(0.0), NSNumber(0.001), tolerance));
        EXPECT_FALSE(isGeometricallyEqual(NSNumber(0.0005), NSNumber(-0.0005), tolerance));
        EXPECT_FALSE(isGeometricallyEqual(NSNumber(1.0), NSNumber(1.5), tolerance));
    }
    const CGFloat justBelow = std::nextafter(0.001, 0);
    EXPECT_TRUE(isGeometricallyEqual(NSNumber(0.0), NSNumber(justBelow), 0));
}

TEST(BoxedValues, ofIntegersAndBooleansAreComparedAsDoubles) {
    EXPECT_TRUE(isGeometricallyEqual(NSNumber(1), NSNumber(1.0009), 0));
    EXPECT_TRUE(isGeometricallyEqual(NSNumber(1.0009), NSNumber(1), 0));
    EXPECT_TRUE(isGeometricallyEqual(NSNumber(7), NSNumber(7), 0));
    EXPECT_FALSE(isGeometricallyEqual(NSNumber(7), NSNumber(8), 10));
    EXPECT_TRUE(isGeometricallyEqual(NSNumber(true), NSNumber(1), 0));
}

TEST(BoxedValues, ofNumbersFailForNaNAndForInfinities) {
    EXPECT_FALSE(isGeometricallyEqual(NSNumber(nan), NSNumber(nan), 1));
    EXPECT_FALSE(isGeometricallyEqual(NSNumber(infinity), NSNumber(infinity), 1));
}

TEST(BoxedValues, ofPointsAndSizesAreEqualStrictlyWithinTheTolerance) {
    EXPECT_TRUE(isGeometricallyEqual(NSValue(CGPoint{1, 2}), NSValue(CGPoint{1.25, 2}), 0.5));
    EXPECT_FALSE(isGeometricallyEqual(NSValue(CGPoint{1, 2}), NSValue(CGPoint{1.5, 2}), 0.5));
    EXPECT_TRUE(isGeometricallyEqual(NSValue(CGSize{1, 2}), NSValue(CGSize{1, 2.25}), 0.5));
    EXPECT_FALSE(isGeometricallyEqual(NSValue(CGSize{1, 2}), NSValue(CGSize{1, 2.5}), 0.5));
}

TEST(BoxedValues, ofRectsAreEqualWithinTheGeometricEpsilonAtAnyTolerance) {
    const NSValue near = CGRectMake(1 + 9e-8, 2, 3, 4), far = CGRectMake(1.25, 2, 3, 4);
    for (const CGFloat tolerance : {0.0, 1e-12, 10.0}) {
        EXPECT_TRUE(isGeometricallyEqual(NSValue(rect), near, tolerance));
        EXPECT_FALSE(isGeometricallyEqual(NSValue(rect), far, tolerance));
    }
}

TEST(BoxedValues, ofTransformsAndOtherTypesAreComparedExactly) {
    CATransform3D moved = transform;
    moved.m41 += 1e-9;
    EXPECT_TRUE(isGeometricallyEqual(NSValue(transform), NSValue(transform), 0));
    EXPECT_FALSE(isGeometricallyEqual(NSValue(transform), NSValue(moved), 10));
    EXPECT_TRUE(isGeometricallyEqual(boxOfOtherType(), boxOfOtherType(), 0));
    EXPECT_FALSE(isGeometricallyEqual(boxOfOtherType(), NSValue(transform), 10));
}

TEST(BoxedValues, ofDifferentTypesAreNeverEqual) {
    const NSValue boxes[] = {NSNumber(0.0), CGPoint(),       CGSize(),
                             CGRect(),      CATransform3D(), boxOfOtherType()};
    for (const NSValue& a : boxes)
        for (const NSValue& b : boxes)
            EXPECT_EQ(isGeometricallyEqual(a, b, 10), &a == &b) << a.objCType() << b.objCType();
}

TEST(BoxedValues, equalNothingThatIsNotABox) {
    const NSValue point = CGPoint{1, 2};
    EXPECT_FALSE(isGeometricallyEqual(point, CGPoint{1, 2}, 10));
    EXPECT_FALSE(isGeometricallyEqual(NSNumber(1.5), 1.5, 10));
    EXPECT_FALSE(isGeometricallyEqual(point, std::string("point"), 10));
    EXPECT_FALSE(isGeometricallyEqual(point, Value("point"), 10));
    EXPECT_FALSE(isGeometricallyEqual(point, Value(), 10));
}

TEST(BoxedValues, equalABoxWithinAValue) {
    EXPECT_TRUE(isGeometricallyEqual(NSValue(CGPoint{1, 2}), Value(CGPoint{1, 2.25}), 0.5));
    EXPECT_TRUE(isGeometricallyEqual(NSNumber(1.5), Value(1.5), 0));
    EXPECT_FALSE(isGeometricallyEqual(NSNumber(1.5), Value(2.5), 10));
}

}  // namespace
}  // namespace quorin
