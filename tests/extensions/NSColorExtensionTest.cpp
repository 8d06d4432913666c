#include "quorin/extensions/NSColorExtension.h"

#include <cmath>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(WebRGB, ofOpaqueWhiteHas256) {
    EXPECT_EQ(webRGB(CGColor{1, 1, 1, 1}), "rgba(256, 256, 256, 1.0)");
    EXPECT_EQ(webRGB(NSColor::white(1)), "rgba(256, 256, 256, 1.0)");
}

TEST(WebRGB, dropsTheFractionOf256Times) {
    EXPECT_EQ(webRGB(CGColor{0.5, 0.999, 1.0 / 257, 1}), "rgba(128, 255, 0, 1.0)");
}

TEST(WebRGB, printsAlphaAsDescriptionsDo) {
    EXPECT_EQ(webRGB(CGColor{0, 0, 0, 0.1}), "rgba(0, 0, 0, 0.1)");
    EXPECT_EQ(webRGB(CGColor{0, 0, 0, 0}), "rgba(0, 0, 0, 0.0)");
    EXPECT_EQ(webRGB(CGColor{0, 0, 0, 0.00001}), "rgba(0, 0, 0, 1e-05)");
}

TEST(WebRGB, convertsShadesOfGray) {
    EXPECT_EQ(webRGB(NSColor::white(0.25, 0.5)), "rgba(64, 64, 64, 0.5)");
}

TEST(WebRGB, ofAPatternIsTransparentBlack) {
    EXPECT_EQ(webRGB(NSColor::pattern()), "rgba(0, 0, 0, 0.0)");
    EXPECT_EQ(NSColor::pattern().usingGenericRGB(), std::nullopt);
}

TEST(WebRGB, hasAnAnswerForEveryNumber) {
    EXPECT_EQ(webRGB(CGColor{-0.5, 1.5, NAN, 1}), "rgba(-128, 384, 0, 1.0)");
    EXPECT_EQ(webRGB(CGColor{-0.001, -0.0, -0.999, -1}), "rgba(0, 0, -255, -1.0)")
        << "towards zero";
    EXPECT_EQ(webRGB(CGColor{INFINITY, -INFINITY, 0, NAN}),
              "rgba(9223372036854775807, -9223372036854775808, 0, nan)");
}

}  // namespace
}  // namespace quorin
