#include "quorin/svg/Drawing.h"

#include <cmath>

#include "tests/TestSupport.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::readDrawing;

TEST(Drawing, hasTheSameGeometryWhateverItsPaint) {
    const Drawing drawing = readDrawing("<path id='a' d='M1 1H2'/><path d='M1 1C1 2 3 4 5 6Z'/>");
    EXPECT_TRUE(hasSameGeometry(drawing, drawing));
    EXPECT_TRUE(hasSameGeometry(
        drawing, readDrawing("<path d='M1 1H2' fill='red'/><path d='M1 1C1 2 3 4 5 6Z'/>")));
    EXPECT_TRUE(hasSameGeometry({}, {}));
}

TEST(Drawing, hasOtherGeometryFromTheLeastChangeOn) {
    const Drawing drawing = readDrawing("<path d='M1 1H2'/><path d='M1 1C1 2 3 4 5 6Z'/>");
    for (const char* other :
         {"", "<path d='M1 1H2'/>", "<path d='M1 1C1 2 3 4 5 6Z'/><path d='M1 1H2'/>",
          "<path d='M1 1H2'/><path d='M1 1C1 2 3 4 5 6'/>", "<path d='M1 1H2M1 1C1 2 3 4 5 6Z'/>",
          "<path d='M1 1H2.0000000000000004'/><path d='M1 1C1 2 3 4 5 6Z'/>",
          "<path d='M1 1H2'/><path d='M1 1C1 2 3 4.000000000000001 5 6Z'/>",
          "<path d='M1 1H2'/><path d='M1 1C1 2 3 4 5 6Z'/><path d='M1 1H2'/>"}) {
        SCOPED_TRACE(other);
        EXPECT_FALSE(hasSameGeometry(drawing, readDrawing(other)));
        EXPECT_FALSE(hasSameGeometry(readDrawing(other), drawing));
    }
}

TEST(Drawing, countsNeitherSignsOfZeroNorShapesThatDrawNothing) {
    EXPECT_TRUE(
        hasSameGeometry(readDrawing("<path d='M0 0H1'/>"), readDrawing("<path d='M-0-0H1'/>")));
    Drawing drawing = readDrawing("<path d='M0 0H1'/>");
    drawing.shapes.push_back({"", CompoundPath::create(), {}});
    auto point = Path::create();
    point->moveTo({5, 5});
    drawing.shapes.insert(drawing.shapes.begin(), {"", CompoundPath::create({point}), {}});
    EXPECT_TRUE(hasSameGeometry(drawing, readDrawing("<path d='M0 0H1'/>")));
}

TEST(Drawing, hasOtherGeometryWithOtherClips) {
    const auto clipped = [](const std::string& pathData) {
        return readDrawing("<clipPath id='c'><path d='" + pathData +
                           "'/></clipPath><path d='M0 0H1' clip-path='url(#c)'/>");
    };
    const Drawing drawing = clipped("M0 0H5V5Z");
    EXPECT_TRUE(hasSameGeometry(drawing, clipped("M0 0H5V5Z")));
    EXPECT_FALSE(hasSameGeometry(drawing, clipped("M0 0H5V6Z")));
    EXPECT_FALSE(hasSameGeometry(drawing, readDrawing("<path d='M0 0H1'/>")));

    Drawing unseen = drawing;
    unseen.shapes[0].clips.push_back({CGPathFillRule::winding, CompoundPath::create()});
    EXPECT_TRUE(hasSameGeometry(unseen, {}));
}

}  // namespace
}  // namespace quorin
