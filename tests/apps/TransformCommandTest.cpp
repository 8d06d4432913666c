#include <cmath>
#include <filesystem>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::contents;
using test::ProgramRun;
using test::RefusedInput;
using test::RefusedUsage;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;
using testing::AllOf;
using testing::HasSubstr;

class TransformCommand : public testing::Test {
protected:
    std::string drawing(const std::string& attributes, const std::string& content) const {
        return folder.file("a.svg", test::svgOf(attributes, content));
    }
    ProgramRun transform(const std::string& file, std::vector<std::string> options) const {
        options.insert(options.begin(), {"transform", file, output});
        return runQuorin(options);
    }
    /// The SVG that a drawing becomes.
    std::string transformed(const std::string& file, std::vector<std::string> options) const {
        EXPECT_THAT(transform(file, std::move(options)), WentWell());
        return contents(output);
    }

    const TemporaryFolder folder;
    const std::string output = folder / "out.svg";
    const std::string frame = "width='20' height='10' viewBox='2 1 40 20'";
    const std::string corner = drawing(frame, "<path d='M2 1 H12 V6 Z'/>");
};

TEST_F(TransformCommand, scalesThePageWithTheArtwork) {
    EXPECT_THAT(transformed(corner, {"--scale", "2"}),
                AllOf(HasSubstr(R"(width="40" height="20" viewBox="4 2 80 40")"),
                      HasSubstr(R"(d="M4 2H24V12Z")")));
    EXPECT_THAT(transformed(corner, {"--scale", "2,0.5"}),
                AllOf(HasSubstr(R"(width="40" height="5" viewBox="4 .5 80 10")"),
                      HasSubstr(R"(d="M4 .5H24V3Z")")));
}

TEST_F(TransformCommand, mirrorsADrawingWithinItsPage) {
    EXPECT_THAT(transformed(corner, {"--scale", "-1,1"}),
                AllOf(HasSubstr(R"(width="20" height="10" viewBox="-42 1 40 20")"),
                      HasSubstr(R"(d="M-2 1H-12V6Z")")));
}

TEST_F(TransformCommand, movesTheArtworkOnItsPage) {
    EXPECT_THAT(transformed(corner, {"--move", "-3,4"}),
                AllOf(HasSubstr(R"(width="20" height="10" viewBox="2 1 40 20")"),
                      HasSubstr(R"(d="M-1 5H9V10Z")")));
}

TEST_F(TransformCommand, sendsPointsAndHandlesThroughAMatrix) {
    const std::string curve = drawing(frame, "<path d='M1 2 C3 4 5 6 7 9'/>");
    // (x, y) becomes (10 - y, 100 + x), a quarter turn.
    EXPECT_THAT(
        transformed(curve, {"--matrix", "0,1,-1,0,10,100"}),
        AllOf(HasSubstr(R"(viewBox="2 1 40 20")"), HasSubstr(R"(d="M8 101C6 103 4 105 1 107")")));
}

TEST_F(TransformCommand, doesWhatIsAskedInItsOrderAndAsOftenAsAsked) {
    EXPECT_THAT(transformed(corner, {"--move", "1,0", "--scale", "2", "--move", "0,3"}),
                HasSubstr(R"(d="M6 5H26V15Z")"));
    EXPECT_THAT(transformed(corner, {"--scale", "2", "--move", "1,0", "--move", "0,3"}),
                HasSubstr(R"(d="M5 5H25V15Z")"));
}

TEST_F(TransformCommand, widensLinesAndDashesByTheRootOfTheArea) {
    const std::string line =
        drawing(frame,
                "<path d='M0 0 H9' stroke='red' stroke-width='3' stroke-dasharray='1 2' "
                "stroke-dashoffset='5'/>");
    EXPECT_THAT(transformed(line, {"--scale", "2,8"}),
                HasSubstr(R"(stroke-width="12" stroke-dasharray="4 8" stroke-dashoffset="20")"));
    EXPECT_THAT(transformed(line, {"--matrix", "0,2,2,0,0,0"}),
                HasSubstr(R"(stroke-width="6" stroke-dasharray="2 4" stroke-dashoffset="10")"));
}

TEST_F(TransformCommand, takesClipsAndGradientsAlong) {
    const std::string painted = drawing(
        frame,
        "<clipPath id='c'><path d='M0 0 H4 V4 Z'/></clipPath>"
        "<linearGradient id='g' gradientUnits='userSpaceOnUse' x2='9'><stop/></linearGradient>"
        "<radialGradient id='r' gradientUnits='userSpaceOnUse' cx='1' cy='1' r='1'><stop/>"
        "</radialGradient>"
        "<path d='M0 0 H9 V9 Z' fill='url(#g)' stroke='url(#r)' clip-path='url(#c)'/>"
        "<path d='M0 0 H9 V9 Z' clip-path='url(#c)'/>");
    const std::string svg = transformed(painted, {"--scale", "2", "--move", "3,5"});
    EXPECT_THAT(svg, HasSubstr(R"(<clipPath id="clip3"><path d="M3 5H11V13Z"/></clipPath>)"));
    EXPECT_THAT(svg, HasSubstr(R"(x2="9" y2="0" gradientUnits="userSpaceOnUse" )"
                               R"x(gradientTransform="matrix(2 0 0 2 3 5)")x"));
    EXPECT_THAT(svg, HasSubstr(R"(fy="1" gradientUnits="userSpaceOnUse" )"
                               R"x(gradientTransform="matrix(2 0 0 2 3 5)")x"));
}

TEST_F(TransformCommand, growsCornerRadiiAndKeepsBehaviours) {
    const std::string plain = folder / "plain.json", twice = folder / "twice.json";
    // A whole record is what convert writes of a drawing; radius and behaviour are put into it.
    EXPECT_THAT(runQuorin({"convert", corner, plain}), WentWell());
    std::string record = contents(plain);
    const std::size_t behavior = record.find("\"behavior\": 0"),
                      radius = record.find("\"radius\": 0");
    ASSERT_NE(behavior, std::string::npos) << record;
    ASSERT_NE(radius, std::string::npos) << record;
    record.replace(behavior, 13, "\"behavior\": 3").replace(radius, 11, "\"radius\": 3");
    folder.file("plain.json", record);

    EXPECT_THAT(runQuorin({"transform", plain, twice, "--scale", "2,8"}), WentWell());
    EXPECT_THAT(contents(twice), AllOf(HasSubstr("\"behavior\": 3"), HasSubstr("\"radius\": 12")));
}

TEST_F(TransformCommand, fitsThePageToWhatIsPainted) {
    // The rectangle alone; two pixels a unit across and one down.
    const std::string file =
        drawing("width='40' height='10' viewBox='0 0 20 10' preserveAspectRatio='none'",
                "<path d='M3 2 H7 V5 H3 Z'/>"
                "<path d='M0 0 H90' fill='none'/>");
    EXPECT_THAT(transformed(file, {"--fit"}),
                HasSubstr(R"(width="8" height="3" viewBox="3 2 4 3")"));
    EXPECT_THAT(transformed(file, {"--matrix", "0,1,-1,0,0,0", "--fit"}),
                HasSubstr(R"(width="6" height="4" viewBox="-5 3 3 4")"));
}

TEST_F(TransformCommand, fitsThePageAroundLinesAndTheirCorners) {
    struct Row {
        const char* says;
        const char* shape;
        CGRect page;
    };
    const CGFloat root = std::sqrt(2);
    const Row table[] = {
        {"half the width on each side", "d='M10 10 H20' stroke-width='4'", {{8, 8}, {14, 4}}},
        {"a square end may stand on its corner",
         "d='M0 0 H10' stroke-width='2' stroke-linecap='square'",
         {{-root, -root}, {10 + 2 * root, 2 * root}}},
        {"the point of a right angle reaches out by the diagonal",
         "d='M0 10 L10 0 L20 10' stroke-width='2'",
         {{-1, -root}, {22, 11 + root}}},
        {"the last corner of a closed one, which is the first",
         "d='M10 0 L20 10 H0 Z' stroke-width='2'",
         {{-1 - root, -root}, {22 + 2 * root, 11 + root}}},
        {"a corner that is cut",
         "d='M0 10 L10 0 L20 10' stroke-width='2' stroke-miterlimit='1.4'",
         {{-1, -1}, {22, 12}}},
        {"a round corner",
         "d='M0 10 L10 0 L20 10' stroke-width='2' stroke-linejoin='round'",
         {{-1, -1}, {22, 12}}},
        {"a line that turns back has no point",
         "d='M0 0 H10 H5' stroke-width='2' stroke-miterlimit='1000'",
         {{-1, -1}, {12, 2}}},
        {"what a clip leaves", "d='M-50 -50 H90 V90 H-50 Z' clip-path='url(#c)'", {{0, 0}, {5, 5}}},
    };
    for (const auto& [says, shape, page] : table) {
        SCOPED_TRACE(says);
        const std::string file = drawing("width='20' height='20'",
                                         "<clipPath id='c'><path d='M0 0 H5 V5 H0 Z'/></clipPath>"
                                         "<path stroke='red' fill='none' " +
                                             std::string(shape) + "/>");
        const std::string json = folder / "out.json";
        EXPECT_THAT(runQuorin({"transform", file, json, "--fit"}), WentWell());
        JSONDecoder().decode(contents(json), [&wanted = page](Decoder& record) {
            const CGRect box = record.decodeRect("viewBox");
            EXPECT_NEAR(box.origin.x, wanted.origin.x, 1e-12);
            EXPECT_NEAR(box.origin.y, wanted.origin.y, 1e-12);
            EXPECT_NEAR(box.size.width, wanted.size.width, 1e-12);
            EXPECT_NEAR(box.size.height, wanted.size.height, 1e-12);
        });
    }
}

TEST_F(TransformCommand, findsNoPageWhereNothingIsPainted) {
    const std::string file = drawing(frame, "<path d='M0 0 H90 V9 Z' fill='none'/>");
    EXPECT_THAT(transform(file, {"--fit"}),
                RefusedInput(file + ": nothing is painted that a page could fit"));
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(TransformCommand, refusesTransformsThatAreNone) {
    struct Row {
        const char* option;
        const char* expects;
        std::vector<std::string> texts;
    };
    const Row table[] = {
        {"--scale",
         "expected a scale as S or SX,SY, neither of them 0",
         {"", "0", "0,1", "1,0", "x", "2x", "1,2,3", "1,", ",1", "nan", "inf,1", "1e999", "+1"}},
        {"--move", "expected two numbers X,Y", {"", "1", "1,2,3", "1,", "1,inf", "nan,1", "1;2"}},
        {"--matrix",
         "expected six numbers A,B,C,D,TX,TY",
         {"", "1", "1,0,0,1,0", "1,0,0,1,0,0,0", "1,0,0,1,0,nan", "a,b,c,d,e,f", "1,0,0,1,0,"}},
        {"--matrix",
         "expected a matrix that has an inverse",
         {"0,0,0,0,0,0", "1,2,2,4,0,0", "0.1,0.3,0.2,0.6,0,0", "1e200,0,0,1e200,0,0"}},
    };
    for (const auto& [option, expects, texts] : table)
        for (const std::string& text : texts)
            EXPECT_THAT(transform(corner, {option, text}),
                        RefusedUsage(std::string(option) + ": " + expects + ", not '" + text + "'",
                                     "quorin transform"));
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(TransformCommand, refusesToGoBeyondWhatNumbersHold) {
    for (const char* scale : {"1e200", "1e-200"})
        EXPECT_THAT(
            transform(corner, {"--scale", scale}),
            RefusedUsage("The transforms go beyond what numbers can hold", "quorin transform"));
}

TEST_F(TransformCommand, asksWhatToDo) {
    EXPECT_THAT(
        transform(corner, {}),
        RefusedUsage("One of --scale, --move, --matrix and --fit is required", "quorin transform"));
}

}  // namespace
}  // namespace quorin
