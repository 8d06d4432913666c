#include "quorin/svg/SvgColor.h"

#include <string>

#include "quorin/svg/reading/NamedColors.h"
#include "tests/TestSupport.h"

namespace quorin {

void PrintTo(const DrawingColor& c, std::ostream* stream) {
    *stream << c.red << " " << c.green << " " << c.blue << " " << c.alpha;
}

namespace {

DrawingColor bytes(int red, int green, int blue, CGFloat alpha = 1) {
    return {red / 255.0, green / 255.0, blue / 255.0, alpha};
}

TEST(SvgColor, readsEveryForm) {
    struct Row {
        const char* text;
        DrawingColor color;
    };
    const Row table[] = {
        {"#f80", bytes(255, 136, 0)},
        {"#F80", bytes(255, 136, 0)},
        {"#232629", bytes(35, 38, 41)},
        {"#f808", bytes(255, 136, 0, 136 / 255.0)},
        {"#23262980", bytes(35, 38, 41, 128 / 255.0)},
        {"  #fff ", bytes(255, 255, 255)},
        {"rgb(1,2,3)", bytes(1, 2, 3)},
        {"rgb( 1 , 2 , 3 )", bytes(1, 2, 3)},
        {"RGB(1,2,3)", bytes(1, 2, 3)},
        {"rgb(300,-5,3)", bytes(255, 0, 3)},
        {"rgb(1.6,2.4,3)", bytes(2, 2, 3)},
        {"rgb(100%,50%,0%)", bytes(255, 128, 0)},
        {"rgb(9.411765%,57.254905%,100%)", bytes(24, 146, 255)},
        {"rgb(1 2 3)", bytes(1, 2, 3)},
        {"rgb(1 2 3 / 0.5)", bytes(1, 2, 3, 0.5)},
        {"rgb(1 2 3/50%)", bytes(1, 2, 3, 0.5)},
        {"rgba(1,2,3,.25)", bytes(1, 2, 3, 0.25)},
        {"rgba(1,2,3,25%)", bytes(1, 2, 3, 0.25)},
        {"rgba(1,2,3,7)", bytes(1, 2, 3, 1)},
        {"hsl(0,100%,50%)", bytes(255, 0, 0)},
        {"hsl(120,100%,25%)", bytes(0, 128, 0)},
        {"hsl(240deg 100% 50%)", bytes(0, 0, 255)},
        {"hsl(-120,100%,50%)", bytes(0, 0, 255)},
        {"hsl(0.5turn,100%,50%)", bytes(0, 255, 255)},
        {"hsl(60,0%,50%)", bytes(128, 128, 128)},
        {"hsl(300, 50%, 75%)", bytes(223, 159, 223)},
        {"hsla(0,100%,50%,0.5)", bytes(255, 0, 0, 0.5)},
        {"transparent", bytes(0, 0, 0, 0)},
        {"black", bytes(0, 0, 0)},
        {"Red", bytes(255, 0, 0)},
        {"LightGoldenrodYellow", bytes(250, 250, 210)},
        {"rebeccapurple", bytes(102, 51, 153)},
        {"aliceblue", bytes(240, 248, 255)},
        {"yellowgreen", bytes(154, 205, 50)},
        {"grey", bytes(128, 128, 128)},
        {"#cd853f icc-color(acmecmyk, 0.11, 0.48)", bytes(205, 133, 63)},
    };
    for (const auto& [text, color] : table) {
        SCOPED_TRACE(text);
        EXPECT_EQ(parseSvgColor(text), color);
    }
}

TEST(SvgColor, refusesWhatIsNoColor) {
    for (const char* text : {"",
                             "#",
                             "#12",
                             "#12345",
                             "#1234567",
                             "#123456789",
                             "#ggg",
                             "rgb",
                             "rgb(",
                             "rgb(1,2)",
                             "rgb(1,2,3",
                             "rgb(1,2,3,4,5)",
                             "rgb(1,2,x)",
                             "rgb(1,2,3)x",
                             "lab(1,2,3)",
                             "none",
                             "currentColor",
                             "redd",
                             "re",
                             "zzz",
                             "lightgoldenrodyellowish",
                             "rgb(1px,2,3)",
                             "5"}) {
        EXPECT_EQ(parseSvgColor(text), std::nullopt) << text;
    }
}

// A table in alphabetical order, so an entry out of its place would never be found.
TEST(SvgColor, findsAllNames) {
    const std::string_view names[] = {"aliceblue",
                                      "antiquewhite",
                                      "aqua",
                                      "aquamarine",
                                      "azure",
                                      "beige",
                                      "bisque",
                                      "black",
                                      "blanchedalmond",
                                      "blue",
                                      "blueviolet",
                                      "brown",
                                      "burlywood",
                                      "cadetblue",
                                      "chartreuse",
                                      "chocolate",
                                      "coral",
                                      "cornflowerblue",
                                      "cornsilk",
                                      "crimson",
                                      "cyan",
                                      "darkblue",
                                      "darkcyan",
                                      "darkgoldenrod",
                                      "darkgray",
                                      "darkgreen",
                                      "darkgrey",
                                      "darkkhaki",
                                      "darkmagenta",
                                      "darkolivegreen",
                                      "darkorange",
                                      "darkorchid",
                                      "darkred",
                                      "darksalmon",
                                      "darkseagreen",
                                      "darkslateblue",
                                      "darkslategray",
                                      "darkslategrey",
                                      "darkturquoise",
                                      "darkviolet",
                                      "deeppink",
                                      "deepskyblue",
                                      "dimgray",
                                      "dimgrey",
                                      "dodgerblue",
                                      "firebrick",
                                      "floralwhite",
                                      "forestgreen",
                                      "fuchsia",
                                      "gainsboro",
                                      "ghostwhite",
                                      "gold",
                                      "goldenrod",
                                      "gray",
                                      "green",
                                      "greenyellow",
                                      "grey",
                                      "honeydew",
                                      "hotpink",
                                      "indianred",
                                      "indigo",
                                      "ivory",
                                      "khaki",
                                      "lavender",
                                      "lavenderblush",
                                      "lawngreen",
                                      "lemonchiffon",
                                      "lightblue",
                                      "lightcoral",
                                      "lightcyan",
                                      "lightgoldenrodyellow",
                                      "lightgray",
                                      "lightgreen",
                                      "lightgrey",
                                      "lightpink",
                                      "lightsalmon",
                                      "lightseagreen",
                                      "lightskyblue",
                                      "lightslategray",
                                      "lightslategrey",
                                      "lightsteelblue",
                                      "lightyellow",
                                      "lime",
                                      "limegreen",
                                      "linen",
                                      "magenta",
                                      "maroon",
                                      "mediumaquamarine",
                                      "mediumblue",
                                      "mediumorchid",
                                      "mediumpurple",
                                      "mediumseagreen",
                                      "mediumslateblue",
                                      "mediumspringgreen",
                                      "mediumturquoise",
                                      "mediumvioletred",
                                      "midnightblue",
                                      "mintcream",
                                      "mistyrose",
                                      "moccasin",
                                      "navajowhite",
                                      "navy",
                                      "oldlace",
                                      "olive",
                                      "olivedrab",
                                      "orange",
                                      "orangered",
                                      "orchid",
                                      "palegoldenrod",
                                      "palegreen",
                                      "paleturquoise",
                                      "palevioletred",
                                      "papayawhip",
                                      "peachpuff",
                                      "peru",
                                      "pink",
                                      "plum",
                                      "powderblue",
                                      "purple",
                                      "rebeccapurple",
                                      "red",
                                      "rosybrown",
                                      "royalblue",
                                      "saddlebrown",
                                      "salmon",
                                      "sandybrown",
                                      "seagreen",
                                      "seashell",
                                      "sienna",
                                      "silver",
                                      "skyblue",
                                      "slateblue",
                                      "slategray",
                                      "slategrey",
                                      "snow",
                                      "springgreen",
                                      "steelblue",
                                      "tan",
                                      "teal",
                                      "thistle",
                                      "tomato",
                                      "turquoise",
                                      "violet",
                                      "wheat",
                                      "white",
                                      "whitesmoke",
                                      "yellow",
                                      "yellowgreen"};
    EXPECT_EQ(std::size(names), 148u);
    for (const std::string_view name : names)
        EXPECT_TRUE(namedColor(name)) << name;
}

// Pairs of spellings, and colours that are mixtures of others, hold each other in place.
TEST(SvgColor, givesSpellingsOfOneColorTheSameValue) {
    for (const auto& [one, other] :
         {std::pair("gray", "grey"), std::pair("darkgray", "darkgrey"),
          std::pair("dimgray", "dimgrey"), std::pair("lightgray", "lightgrey"),
          std::pair("slategray", "slategrey"), std::pair("darkslategray", "darkslategrey"),
          std::pair("lightslategray", "lightslategrey"), std::pair("aqua", "cyan"),
          std::pair("fuchsia", "magenta")})
        EXPECT_EQ(namedColor(one), namedColor(other)) << one;
}

}  // namespace
}  // namespace quorin
