#include "quorin/svg/reading/SvgStyle.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const DrawingColor red{1, 0, 0, 1};

SvgStyle styled(std::initializer_list<std::pair<const char*, const char*>> properties,
                const SvgStyle& parent = {}) {
    SvgStyle style = parent.inherited();
    for (const auto& [property, value] : properties)
        EXPECT_EQ(applyProperty(style, parent, property, value), SvgPropertyResult::applied)
            << property << ": " << value;
    return style;
}

TEST(SvgStyle, beginsWithBlackFillAndNoStroke) {
    const SvgStyle style;
    EXPECT_TRUE(style.fill.hasColor);
    EXPECT_EQ(style.fill.color.color, (DrawingColor{0, 0, 0, 1}));
    EXPECT_FALSE(style.stroke.hasColor);
    EXPECT_EQ(style.strokeWidth.value, 1);
    EXPECT_EQ(style.miterLimit, 4);
}

TEST(SvgStyle, readsPaints) {
    EXPECT_FALSE(styled({{"fill", "none"}}).fill.hasColor);
    EXPECT_EQ(styled({{"fill", "#f00"}}).fill.color.color, red);
    EXPECT_TRUE(styled({{"fill", "currentColor"}}).fill.color.isCurrent);
    EXPECT_TRUE(styled({{"stroke", "CURRENTCOLOR"}}).stroke.color.isCurrent);

    const SvgPaintValue reference = styled({{"fill", "url(#a)"}}).fill;
    EXPECT_EQ(reference.reference, "a");
    EXPECT_FALSE(reference.hasColor);
    const SvgPaintValue fallback = styled({{"stroke", "url( '#a b' ) red"}}).stroke;
    EXPECT_EQ(fallback.reference, "a b");
    EXPECT_TRUE(fallback.hasColor);
    EXPECT_EQ(fallback.color.color, red);
    EXPECT_FALSE(styled({{"fill", "url(#a) none"}}).fill.hasColor);
    EXPECT_TRUE(styled({{"fill", "url(#a) currentColor"}}).fill.color.isCurrent);
}

TEST(SvgStyle, readsLengthsNumbersAndWords) {
    const SvgStyle style = styled({{"stroke-width", "2pt"},
                                   {"stroke-miterlimit", "7"},
                                   {"stroke-linecap", "round"},
                                   {"stroke-linejoin", "bevel"},
                                   {"stroke-dashoffset", "-3"},
                                   {"fill-rule", "evenodd"},
                                   {"fill-opacity", "50%"},
                                   {"stroke-opacity", "2"},
                                   {"opacity", ".25"},
                                   {"stop-color", "red"},
                                   {"stop-opacity", "0.5"},
                                   {"visibility", "collapse"},
                                   {"display", "none"},
                                   {"paint-order", "stroke markers fill"},
                                   {"vector-effect", "non-scaling-stroke"},
                                   {"mix-blend-mode", "multiply"},
                                   {"transform", "scale(2)"}});
    EXPECT_DOUBLE_EQ(style.strokeWidth.value, 96.0 / 36);
    EXPECT_EQ(style.miterLimit, 7);
    EXPECT_EQ(style.lineCap, DrawingLineCap::round);
    EXPECT_EQ(style.lineJoin, DrawingLineJoin::bevel);
    EXPECT_EQ(style.dashOffset.value, -3);
    EXPECT_EQ(style.fillRule, CGPathFillRule::evenOdd);
    EXPECT_EQ(style.fillOpacity, 0.5);
    EXPECT_EQ(style.strokeOpacity, 1);
    EXPECT_EQ(style.opacity, 0.25);
    EXPECT_EQ(style.stopColor.color, red);
    EXPECT_EQ(style.stopOpacity, 0.5);
    EXPECT_FALSE(style.isVisible);
    EXPECT_FALSE(style.isDisplayed);
    EXPECT_TRUE(style.isStrokeFirst);
    EXPECT_FALSE(style.isStrokeScaled);
    EXPECT_TRUE(style.isBlended);
    EXPECT_EQ(style.transform, (CGAffineTransform{2, 0, 0, 2, 0, 0}));
}

std::vector<CGFloat> dashes(const char* value) {
    std::vector<CGFloat> lengths;
    for (const SvgLength& dash : styled({{"stroke-dasharray", value}}).dashes)
        lengths.push_back(dash.value);
    return lengths;
}

TEST(SvgStyle, readsDashes) {
    EXPECT_THAT(dashes("1,2"), ElementsAre(1, 2));
    EXPECT_THAT(dashes("1 , 2px\t3 4"), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(dashes("5"), ElementsAre(5, 5));
    EXPECT_THAT(dashes("1 2 3"), ElementsAre(1, 2, 3, 1, 2, 3));
    EXPECT_THAT(dashes("none"), IsEmpty());
    EXPECT_THAT(dashes("0 0"), IsEmpty());
    EXPECT_THAT(dashes(""), IsEmpty());
}

TEST(SvgStyle, tellsPaintOrders) {
    for (const char* fillFirst :
         {"normal", "fill", "markers", "fill stroke", "markers fill stroke"})
        EXPECT_FALSE(styled({{"paint-order", fillFirst}}).isStrokeFirst) << fillFirst;
    for (const char* strokeFirst : {"stroke", "stroke fill", "markers stroke"})
        EXPECT_TRUE(styled({{"paint-order", strokeFirst}}).isStrokeFirst) << strokeFirst;
}

TEST(SvgStyle, passesOnlySomePropertiesToChildren) {
    const SvgStyle parent = styled({{"fill", "red"},
                                    {"stroke-width", "5"},
                                    {"color", "red"},
                                    {"visibility", "hidden"},
                                    {"opacity", "0.5"},
                                    {"clip-path", "url(#c)"},
                                    {"transform", "scale(2)"},
                                    {"stop-color", "red"}});
    const SvgStyle child = parent.inherited();
    EXPECT_EQ(child.fill.color.color, red);
    EXPECT_EQ(child.strokeWidth.value, 5);
    EXPECT_EQ(child.color, red);
    EXPECT_FALSE(child.isVisible);
    EXPECT_EQ(child.opacity, 1);
    EXPECT_EQ(child.clip, "");
    EXPECT_EQ(child.transform, CGAffineTransform::identity);
    EXPECT_NE(child.stopColor.color, red);
}

TEST(SvgStyle, obeysInheritInitialAndUnset) {
    const SvgStyle parent = styled({{"fill", "red"}, {"opacity", "0.5"}});
    EXPECT_EQ(styled({{"opacity", "inherit"}}, parent).opacity, 0.5);
    EXPECT_EQ(styled({{"fill", "blue"}, {"fill", "inherit"}}, parent).fill.color.color, red);
    EXPECT_EQ(styled({{"fill", "initial"}}, parent).fill.color.color, (DrawingColor{0, 0, 0, 1}));
    EXPECT_EQ(styled({{"fill", "blue"}, {"fill", "unset"}}, parent).fill.color.color, red);
    EXPECT_EQ(styled({{"opacity", "0.1"}, {"opacity", "unset"}}, parent).opacity, 1);
}

TEST(SvgStyle, takesTheParentsColorForCurrentColorInColor) {
    const SvgStyle parent = styled({{"color", "red"}});
    EXPECT_EQ(styled({{"color", "currentColor"}}, parent).color, red);
}

TEST(SvgStyle, remembersEffects) {
    EXPECT_EQ(styled({{"clip-path", "url(#c)"}}).clip, "c");
    EXPECT_EQ(styled({{"mask", "none"}}).mask, "");
    EXPECT_EQ(styled({{"filter", "blur(2px)"}}).filter, "blur(2px)");
    EXPECT_TRUE(styled({{"marker", "url(#m)"}}).markers.mid);
    EXPECT_TRUE(styled({{"marker-end", "url(#m)"}, {"marker-start", "none"}}).markers.end);
    EXPECT_FALSE(styled({{"marker-end", "url(#m)"}, {"marker", "none"}}).markers.end);
}

TEST(SvgStyle, changesNothingForValuesItCannotRead) {
    const std::pair<const char*, const char*> table[] = {
        {"fill", "context-fill"},
        {"fill", "url(x.svg)"},
        {"fill", "url(#a) purpleish"},
        {"fill", ""},
        {"color", "none"},
        {"opacity", "half"},
        {"stroke-width", "-1"},
        {"stroke-width", "wide"},
        {"stroke-miterlimit", "0"},
        {"stroke-linecap", "flat"},
        {"stroke-linejoin", "up"},
        {"stroke-dasharray", "1 x"},
        {"stroke-dasharray", "-1"},
        {"fill-rule", "odd"},
        {"visibility", "maybe"},
        {"transform", "scale("},
        {"stop-color", "inherited"},
    };
    for (const auto& [property, value] : table) {
        SCOPED_TRACE(std::string(property) + ": " + value);
        SvgStyle style;
        EXPECT_EQ(applyProperty(style, {}, property, value), SvgPropertyResult::unreadable);
        EXPECT_EQ(style.fill.reference, "");
        EXPECT_TRUE(style.fill.hasColor);
        EXPECT_EQ(style.strokeWidth.value, 1);
        EXPECT_EQ(style.opacity, 1);
        EXPECT_THAT(style.dashes, IsEmpty());
    }
}

TEST(SvgStyle, doesNotKnowOtherProperties) {
    SvgStyle style;
    for (const char* name : {"", "font-size", "d", "Fill", "zoom", "a"})
        EXPECT_EQ(applyProperty(style, {}, name, "1"), SvgPropertyResult::unknown) << name;
}

}  // namespace
}  // namespace quorin
