#include "quorin/svg/SvgWriter.h"

#include <limits>

#include "quorin/platform/values/KeyedCoding.h"
#include "quorin/svg/DrawnElements.h"
#include "quorin/svg/SvgReader.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"
#include "tests/svg/RandomDrawing.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::readDrawing;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

/// The path data of the first shape as it is written.
std::string written(std::string_view pathData) {
    const std::string text = writeSvg(readDrawing("<path d='" + std::string(pathData) + "'/>"));
    const std::size_t start = text.find(" d=\"") + 4;
    return text.substr(start, text.find('"', start) - start);
}

TEST(SvgWriter, writesADocument) {
    EXPECT_EQ(writeSvg(readDrawing("<path id='a' d='M1 1h8v8z' fill='red'/>")),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100\" height=\"80\" "
              "viewBox=\"0 0 100 80\">\n"
              "<path id=\"a\" d=\"M1 1H9V9Z\" fill=\"#f00\"/>\n"
              "</svg>\n");
    EXPECT_EQ(writeSvg({}), "<svg xmlns=\"http://www.w3.org/2000/svg\">\n</svg>\n");
}

TEST(SvgWriter, writesPathDataWithoutAWastedByte) {
    const std::pair<const char*, const char*> table[] = {
        {"M0.5 0.5L-0.25 10L.75 .5", "M.5.5L-.25 10L.75.5"},
        {"M1 2 3 2 3 4", "M1 2H3V4"},
        {"M1 1L1 1", "M1 1H1"},
        {"M1 1C1 2 3 4 5 6", "M1 1C1 2 3 4 5 6"},
        {"M0 0C-1-2-.5.5 10 1e-7", "M0 0C-1-2-.5.5 10 1e-7"},
        {"M100000 0H1000000", "M1e5 0H1e6"},
        {"M1 1H5V5M2 2L3 3", "M1 1H5V5M2 2L3 3"},
        {"M0 0L9 0L9 9Z", "M0 0H9V9Z"},
        {"M0 0L9 0L9 9L0 0Z", "M0 0H9V9Z"},
        {"M0 0L9 0Z", "M0 0H9Z"},
        {"M1 2Z", "M1 2Z"},
        {"M0 0C1 1 8 1 9 0C8-1 1-1 0 0Z", "M0 0C1 1 8 1 9 0C8-1 1-1 0 0Z"},
    };
    for (const auto& [pathData, expected] : table)
        EXPECT_EQ(written(pathData), expected) << pathData;
}

// A close that has nothing left to draw still ends an anchor that lies on the first.
TEST(SvgWriter, keepsAnchorsThatLieOnEachOther) {
    for (const char* pathData : {"M0 0L0 0Z", "M0 0L0 0L0 0Z", "M0 0L5 0L0 0L0 0Z",
                                 "M0 0C9 9 -9 9 0 0Z", "M0 0L0 0L5 0Z", "M0 0L0 0L0 0L0 0"}) {
        SCOPED_TRACE(pathData);
        const Drawing drawing = readDrawing("<path d='" + std::string(pathData) + "'/>");
        const SvgReadResult again = readSvg(writeSvg(drawing), "again.svg");
        EXPECT_TRUE(hasSameGeometry(drawing, again.drawing)) << written(pathData);
    }
}

TEST(SvgWriter, writesOnlyPaintThatIsUnusual) {
    const std::string usual =
        writeSvg(readDrawing("<path d='M0 0H1' stroke='none' fill='black' "
                             "stroke-width='1' opacity='1'/>"));
    EXPECT_THAT(usual, HasSubstr("<path d=\"M0 0H1\"/>"));
    const std::string unusual = writeSvg(readDrawing(
        "<path d='M0 0H1' fill='none' fill-opacity='.5' fill-rule='evenodd' stroke='#123456' "
        "stroke-opacity='.25' stroke-width='2.5' stroke-linecap='square' stroke-linejoin='round' "
        "stroke-miterlimit='7' stroke-dasharray='1,2.5' stroke-dashoffset='-3' opacity='.125' "
        "paint-order='stroke'/>"));
    EXPECT_THAT(
        unusual,
        HasSubstr("<path d=\"M0 0H1\" fill=\"none\" fill-opacity=\".5\" fill-rule=\"evenodd\" "
                  "stroke=\"#123456\" stroke-opacity=\".25\" stroke-width=\"2.5\" "
                  "stroke-linecap=\"square\" stroke-linejoin=\"round\" stroke-miterlimit=\"7\" "
                  "stroke-dasharray=\"1 2.5\" stroke-dashoffset=\"-3\" paint-order=\"stroke\" "
                  "opacity=\".125\"/>"));
}

TEST(SvgWriter, writesTranslucentColorsAsTheyAre) {
    EXPECT_THAT(writeSvg(readDrawing("<path d='M0 0H1' fill='#ff000080'/>")),
                HasSubstr("fill=\"rgba(255,0,0,.5019607843137255)\""));
    EXPECT_THAT(writeSvg(readDrawing("<path d='M0 0H1' fill='transparent'/>")),
                HasSubstr("fill=\"rgba(0,0,0,0)\""));
}

TEST(SvgWriter, sharesGradientsThatAreEqual) {
    const std::string text = writeSvg(
        readDrawing("<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='1' x2='9'>"
                    "<stop stop-color='red'/><stop offset='1' stop-opacity='.5'/></linearGradient>"
                    "<path d='M0 0H1' fill='url(#g)'/><path d='M0 0H2' fill='url(#g)'/>"
                    "<path id='gradient1' d='M0 0H2' transform='scale(2)' stroke='url(#g)'/>"));
    EXPECT_THAT(text, HasSubstr("<defs>\n<linearGradient id=\"gradient2\" x1=\"1\" y1=\"0\" "
                                "x2=\"9\" y2=\"0\" gradientUnits=\"userSpaceOnUse\">"
                                "<stop offset=\"0\" stop-color=\"#f00\"/>"
                                "<stop offset=\"1\" stop-color=\"#000\" stop-opacity=\".5\"/>"
                                "</linearGradient>\n"));
    EXPECT_THAT(text, HasSubstr("<path d=\"M0 0H1\" fill=\"url(#gradient2)\"/>\n"
                                "<path d=\"M0 0H2\" fill=\"url(#gradient2)\"/>"));
    EXPECT_THAT(text, HasSubstr("gradientTransform=\"matrix(2 0 0 2 0 0)\""));
    EXPECT_THAT(text, HasSubstr("stroke=\"url(#gradient3)\""));
}

TEST(SvgWriter, clipsClipsWhereAShapeHasSeveral) {
    const std::string clips =
        "<clipPath id='a'><path d='M0 0H1V1Z' clip-rule='evenodd'/></clipPath>"
        "<clipPath id='b'><path d='M0 0H2V2Z'/></clipPath>";
    const std::string text = writeSvg(readDrawing(
        clips +
        "<g clip-path='url(#a)'><path d='M0 0H1' clip-path='url(#b)'/><path d='M0 0H3'/></g>"));
    EXPECT_THAT(text, HasSubstr("<defs>\n<clipPath id=\"clip1\"><path d=\"M0 0H1V1Z\" "
                                "clip-rule=\"evenodd\"/></clipPath>\n"
                                "<clipPath id=\"clip2\" clip-path=\"url(#clip1)\">"
                                "<path d=\"M0 0H2V2Z\"/></clipPath>\n</defs>\n"
                                "<path d=\"M0 0H1\" clip-path=\"url(#clip2)\"/>\n"
                                "<path d=\"M0 0H3\" clip-path=\"url(#clip1)\"/>\n"));
}

TEST(SvgWriter, escapesIdsAndWritesEachOnce) {
    Drawing drawing = readDrawing("<path d='M0 0H1'/><path d='M0 0H2'/>");
    drawing.shapes[0].id = drawing.shapes[1].id = "<a b=\"&'\n\x01>";
    const std::string text = writeSvg(drawing);
    EXPECT_THAT(text, HasSubstr("<path id=\"&lt;a b=&quot;&amp;'&#10;&gt;\" d=\"M0 0H1\"/>"));
    EXPECT_THAT(text, HasSubstr("<path d=\"M0 0H2\"/>"));
    EXPECT_EQ(readSvg(text, "t").drawing.shapes[0].id, "<a b=\"&'\n>");
}

TEST(SvgWriter, keepsAFrameWhoseProportionsDiffer) {
    Drawing drawing;
    drawing.viewBox = CGRectMake(1, 2, 30, 40);
    drawing.size = {100, 100};
    EXPECT_THAT(writeSvg(drawing), HasSubstr("preserveAspectRatio=\"none\""));
    const Drawing back = readSvg(writeSvg(drawing), "t").drawing;
    EXPECT_EQ(back.viewBox, drawing.viewBox);
    EXPECT_EQ(back.size, drawing.size);
    drawing.size = {60, 80};
    EXPECT_THAT(writeSvg(drawing), Not(HasSubstr("preserveAspectRatio")));
}

TEST(SvgWriter, refusesNumbersThatAreNotFinite) {
    const CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    Drawing drawing = readDrawing("<path d='M0 0H1'/><path d='M0 0H1'/>");
    drawing.shapes[1].paint.strokeWidth = infinity;
    EXPECT_THAT([&] { writeSvg(drawing); },
                ThrowsMessage<EncodingError>(StrEq("shapes[1]: number is not finite")));
    drawing.shapes.pop_back();
    auto path = Path::create();
    path->moveTo({0, 0});
    path->addLineTo({std::numeric_limits<CGFloat>::quiet_NaN(), 0});
    drawing.shapes[0].outline = CompoundPath::create({path});
    EXPECT_THAT([&] { writeSvg(drawing); },
                ThrowsMessage<EncodingError>(StrEq("shapes[0]: number is not finite")));
    drawing.shapes.clear();
    drawing.viewBox.origin.x = infinity;
    EXPECT_THAT([&] { writeSvg(drawing); },
                ThrowsMessage<EncodingError>(StrEq("viewBox: number is not finite")));
}

// An absolute control point c, read back, becomes the handle c − p, and drawn p + (c − p); that
// this is c again holds because c was such a sum before.
RC_GTEST_PROP(SvgWriter, writesWhatIsReadBackToTheBit, ()) {
    const Drawing drawing = test::randomDrawing(*rc::gen::arbitrary<std::uint64_t>());
    const std::string text = writeSvg(drawing);
    const SvgReadResult back = readSvg(text, "t.svg");
    RC_LOG() << text;
    RC_ASSERT(back.warnings.empty());
    RC_ASSERT(hasSameGeometry(back.drawing, drawing));

    std::size_t index = 0;
    for (const DrawingShape& shape : drawing.shapes) {
        bool drawsAnything = false;
        for (const auto& contour : shape.outline->children())
            forEachDrawnElement(*contour, [&](const CGPathElement&) { drawsAnything = true; });
        if (!drawsAnything)
            continue;
        RC_ASSERT(back.drawing.shapes.at(index).id == shape.id);
        for (std::size_t i = 0; i < shape.clips.size(); ++i)
            RC_ASSERT(back.drawing.shapes[index].clips.at(i).rule == shape.clips[i].rule);
        RC_ASSERT(back.drawing.shapes.at(index++).paint == shape.paint);
    }
}

}  // namespace
}  // namespace quorin
