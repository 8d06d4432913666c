#include "quorin/platform/foundation/NSExpression.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <regex>
#include <string>

#include "quorin/platform/foundation/PlatformException.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::StartsWith;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::size_t million = 1'000'000;

bool isSame(double a, double b) {
    return std::isnan(a) ? std::isnan(b)
                         : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// Nothing for what is malformed.
std::optional<double> valueOf(std::string_view text) {
    try {
        return NSExpression::value(text);
    } catch (const PlatformException&) {
        return std::nullopt;
    }
}

std::string reasonAgainst(std::string_view text) {
    try {
        return "none, but " + std::to_string(NSExpression::value(text));
    } catch (const PlatformException& exception) {
        EXPECT_EQ(exception.name(), "NSInvalidArgumentException");
        return exception.reason();
    }
}

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

TEST(NSExpression, computesAsWritten) {
    struct Row {
        const char* text;
        double value;
    };
    const Row table[] = {
        {"12", 12},
        {".5", 0.5},
        {"5.", 5},
        {"5.*.5", 2.5},
        {"007", 7},
        {"7/2", 3.5},
        {"1+2*3", 7},
        {"(1+2)*3", 9},
        {"2*(3+1)", 8},
        {"10-4-3", 3},
        {"24/4/3", 2},
        {"24/4*3", 18},
        {"2-3+4", 3},
        {"8/(4/2)", 4},
        {"10-(4-3)", 9},
        {"-5", -5},
        {"--5", 5},
        {"---5", -5},
        {"- - 5", 5},
        {"1--1", 2},
        {"1---1", 0},
        {"1+-1", 0},
        {"2*-3", -6},
        {"2/-4", -0.5},
        {"-2*-3", 6},
        {"-(2+3)", -5},
        {"--(2)", 2},
        {"-(-(2))*3", 6},
        {"1-(2)", -1},
        {"1.0*-5", -5},
        {"1.0*(1.0*10+5)/3", 5},
        {" \t1\r\n + \v\f 2 ", 3},
        {"( ( 1 ) )", 1},
        {"0.1+0.2", 0.30000000000000004},
    };
    for (const auto& [text, value] : table) {
        SCOPED_TRACE(text);
        EXPECT_EQ(valueOf(text), std::optional(value));
    }
}

TEST(NSExpression, roundsEveryOperationFromLeftToRight) {
    EXPECT_EQ(NSExpression::value("0.1+0.2+0.3"), (0.1 + 0.2) + 0.3);
    EXPECT_EQ(NSExpression::value("0.1+(0.2+0.3)"), 0.1 + (0.2 + 0.3));
    EXPECT_NE(NSExpression::value("0.1+0.2+0.3"), NSExpression::value("0.1+(0.2+0.3)"));
    EXPECT_EQ(NSExpression::value("49/49*49"), 49.0);
    EXPECT_EQ(NSExpression::value("1/49*49"), 1.0 / 49 * 49);
    EXPECT_EQ(NSExpression::value("9007199254740992+1+1"), 9007199254740992.0);
}

TEST(NSExpression, divisionByZeroIsANumber) {
    EXPECT_EQ(NSExpression::value("1/0"), infinity);
    EXPECT_EQ(NSExpression::value("-1/0"), -infinity);
    EXPECT_EQ(NSExpression::value("1/-0"), -infinity);
    EXPECT_TRUE(std::isnan(NSExpression::value("0/0")));
    EXPECT_EQ(NSExpression::value("1/(1/0)"), 0);
}

TEST(NSExpression, keepsTheSignOfZero) {
    for (const char* text : {"-0", "(-0)", "-(0)", "0*-1", "-0-0", "---0"})
        EXPECT_TRUE(isSame(NSExpression::value(text), -0.0)) << text;
    for (const char* text : {"0", "--0", "-0+0", "0-0"})
        EXPECT_TRUE(isSame(NSExpression::value(text), 0.0)) << text;
}

TEST(NSExpression, readsNumbersToTheNearestDouble) {
    EXPECT_EQ(NSExpression::value("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(NSExpression::value("9007199254740993.00000000000000000000001"), 9007199254740994.0);
    EXPECT_EQ(NSExpression::value("0.1000000000000000055511151231257827"), 0.1);
    EXPECT_EQ(NSExpression::value(repeated("9", 400)), infinity);
    EXPECT_EQ(NSExpression::value("0." + repeated("0", 400) + "1"), 0.0);
    EXPECT_EQ(NSExpression::value("1" + repeated("0", 308)), 1e308);
}

TEST(NSExpression, refusesEverythingElse) {
    for (const char* text :
         {"",      " ",     "abc",     "1+",     "+1",      "1++1",     "1*+1",    "*1",
          "1**2",  "1//2",  "1*/2",    "-",      "--",      ".",        "-.",      "1..2",
          "1.2.3", "1 2",   "1. 5",    "1 .5",   "(",       ")",        "()",      "(1",
          "1)",    "(1))",  "((1)",    "(1)2",   "2(1)",    "(1)(2)",   "1e5",     "1E5",
          "1e-5",  "0x10",  "inf",     "nan",    "1inf",    "infinity", "NaN",     "1,5",
          "1;2",   "1%",    "2^3",     "1=1",    "sqrt(4)", "%@",       "$x",      "self",
          "'1'",   "\"1\"", "1 /* */", "\u0661", "\uFF11",  "1\u00A02", "\u22125", "1\u00D72",
          "\xFF",  "1\x80", "\x01"})
        EXPECT_EQ(valueOf(text), std::nullopt) << text;
    EXPECT_EQ(valueOf(std::string_view("1\0", 2)), std::nullopt);
    EXPECT_EQ(valueOf(std::string_view("\0001", 2)), std::nullopt);
}

TEST(NSExpression, saysInWhichColumnWhatWasNotExpected) {
    struct Row {
        std::string text, reason;
    };
    const Row table[] = {
        {"", "column 1: expected a number or '(', found the end"},
        {"1+", "column 3: expected a number or '(', found the end"},
        {"1.0*", "column 5: expected a number or '(', found the end"},
        {" + 1", "column 2: expected a number or '(', found '+'"},
        {"1 2", "column 3: expected an operator, found '2'"},
        {"1)", "column 2: expected an operator, found ')'"},
        {"(1 x", "column 4: expected an operator or ')', found 'x'"},
        {"(1", "column 3: expected an operator or ')', found the end"},
        {"1e5", "column 2: expected an operator, found 'e'"},
        {"1\u00D72", "column 2: expected an operator, found '\u00D7'"},
        {"1\xFF", "column 2: expected an operator, found byte 0xFF"},
        {"1\xE2\x82", "column 2: expected an operator, found byte 0xE2"},
        {std::string("1\0", 2), "column 2: expected an operator, found byte 0x00"},
        {"1+\x7F", "column 3: expected a number or '(', found byte 0x7F"},
    };
    for (const auto& [text, reason] : table)
        EXPECT_EQ(reasonAgainst(text), reason);
}

TEST(NSExpression, countsColumnsInCharacters) {
    std::string text = "1+\u00E9";
    EXPECT_EQ(reasonAgainst(text), "column 3: expected a number or '(', found '\u00E9'");
    EXPECT_THAT(reasonAgainst("12\u00E9\u00E9"), StartsWith("column 3:"));
}

TEST(NSExpression, nests256ParenthesesAndNoMore) {
    for (const char* opening : {"(", "-(", "1+(", "2*(", "( "}) {
        SCOPED_TRACE(opening);
        const auto nested = [&](std::size_t depth) {
            return repeated(opening, depth) + "1" + repeated(")", depth);
        };
        EXPECT_TRUE(valueOf(nested(256)).has_value());
        EXPECT_EQ(valueOf(nested(257)), std::nullopt);
    }
    EXPECT_EQ(NSExpression::value(repeated("2*(", 256) + "1" + repeated(")", 256)),
              std::ldexp(1, 256));
    EXPECT_EQ(reasonAgainst(repeated("(", 257)),
              "column 257: expected at most 256 open parentheses, found '('");
}

TEST(NSExpression, countsOnlyParenthesesThatAreOpen) {
    EXPECT_EQ(NSExpression::value("0" + repeated("+((1))", 10'000)), 10'000);
}

TEST(NSExpression, bearsAMillionCharacters) {
    EXPECT_THAT(reasonAgainst(repeated("(", million)), StartsWith("column 257:"));
    EXPECT_THAT(reasonAgainst(repeated("-", million)), StartsWith("column 1000001:"));
    EXPECT_EQ(NSExpression::value(repeated("-", million) + "5"), 5);
    EXPECT_EQ(NSExpression::value(repeated("-", million + 1) + "5"), -5);
    EXPECT_EQ(NSExpression::value(repeated("-", million) + "(5)"), 5);
    EXPECT_EQ(NSExpression::value("1" + repeated("+1", million / 2)), 500'001);
    EXPECT_EQ(NSExpression::value("1" + repeated("*1", million / 2)), 1);
    EXPECT_EQ(NSExpression::value("1" + repeated("--1", million / 3)), 333'334);
    EXPECT_EQ(NSExpression::value(repeated(" ", million) + "1"), 1);
    EXPECT_EQ(NSExpression::value(repeated("7", million)), infinity);
    EXPECT_EQ(NSExpression::value("0." + repeated("0", million) + "1"), 0);
    EXPECT_THAT(reasonAgainst(repeated(".", million)), StartsWith("column 1:"));
    EXPECT_THAT(reasonAgainst(repeated(" ", million)), StartsWith("column 1000001:"));
    EXPECT_THAT(reasonAgainst(repeated("\u00E9", million)), StartsWith("column 1:"));
    EXPECT_THAT(reasonAgainst(repeated("1.", million)), StartsWith("column 4:"));
}

/// Says by the grammar alone whether a text is an expression, for texts without deep nesting.
bool isExpression(const std::string& text) {
    static const std::regex number("[0-9]+\\.?[0-9]*|\\.[0-9]+"), blank(" "),
        group("\\(-*n([-+*/]-*n)*\\)"), whole("-*n([-+*/]-*n)*");
    std::string tokens = std::regex_replace(text, number, "n");
    tokens = std::regex_replace(tokens, blank, "");
    for (;;) {
        std::string fewer = std::regex_replace(tokens, group, "n");
        if (fewer == tokens)
            return std::regex_match(tokens, whole);
        tokens = std::move(fewer);
    }
}

TEST(NSExpression, takesWhatTheGrammarTakesOfAllShortTexts) {
    constexpr std::string_view letters = "1.+-*( )";
    for (std::size_t length = 0; length <= 5; ++length) {
        std::size_t count = 1;
        for (std::size_t i = 0; i < length; ++i)
            count *= letters.size();
        for (std::size_t number = 0; number < count; ++number) {
            std::string text;
            for (std::size_t rest = number; text.size() < length; rest /= letters.size())
                text += letters[rest % letters.size()];
            ASSERT_EQ(valueOf(text).has_value(), isExpression(text)) << text;
        }
    }
}

RC_GTEST_PROP(NSExpression, takesWhatTheGrammarTakesOfLongerTexts, ()) {
    const auto text = *rc::gen::container<std::string>(rc::gen::weightedElement<char>({{8, '1'},
                                                                                       {2, '.'},
                                                                                       {3, '+'},
                                                                                       {4, '-'},
                                                                                       {3, '*'},
                                                                                       {2, '/'},
                                                                                       {3, '('},
                                                                                       {3, ')'},
                                                                                       {1, ' '}}));
    RC_ASSERT(valueOf(text).has_value() == isExpression(text));
}

RC_GTEST_PROP(NSExpression, readsOrRefusesAnyText, (const std::string& text)) {
    for (const std::string& each : {text, "1.0*" + text, "(" + text + ")"}) {
        try {
            (void)NSExpression::value(each);
        } catch (const PlatformException& exception) {
            RC_ASSERT(exception.reason().starts_with("column "));
        }
    }
}

/// A random expression that knows its value and can be written in many ways.
class Tree {
public:
    Tree(std::mt19937& random, int height) {
        const auto kind = height == 0 ? 0 : random() % 8;
        if (kind < 2) {
            writeNumber(random);
        } else if (kind == 2) {
            operation = 'n';
            left = std::make_unique<Tree>(random, height - 1);
        } else {
            operation = "+-*/"[random() % 4];
            left = std::make_unique<Tree>(random, height - 1);
            right = std::make_unique<Tree>(random, height - 1);
        }
    }

    double value() const {
        switch (operation) {
            case '+':
                return left->value() + right->value();
            case '-':
                return left->value() - right->value();
            case '*':
                return left->value() * right->value();
            case '/':
                return left->value() / right->value();
            case 'n':
                return -left->value();
            default:
                return std::strtod(digits.c_str(), nullptr);
        }
    }

    std::string text(std::mt19937& random) const {
        std::string result = blanks(random);
        if (right) {
            result += left->textWithin(random, precedence());
            result += operation;
            // Operations go from left to right, so its equal needs parentheses on the right.
            result += right->textWithin(random, precedence() + 1);
        } else {
            result += left ? "-" + left->textWithin(random, 3) : digits;
        }
        return result + blanks(random);
    }

private:
    void writeNumber(std::mt19937& random) {
        const std::string whole = std::to_string(random() % 1000);
        const std::string fraction = std::to_string(random());
        const std::string forms[] = {whole, whole + ".", "." + fraction, whole + "." + fraction};
        digits = forms[random() % 4];
    }

    int precedence() const { return !right ? 3 : operation == '+' || operation == '-' ? 1 : 2; }

    std::string textWithin(std::mt19937& random, int least) const {
        const bool isBracketed = precedence() < least || random() % 4 == 0;
        return isBracketed ? "(" + text(random) + ")" : text(random);
    }

    static std::string blanks(std::mt19937& random) {
        std::string result;
        while (random() % 4 == 0)
            result += " \t\n\r"[random() % 4];
        return result;
    }

    char operation = 0;
    std::string digits;
    std::unique_ptr<Tree> left, right;
};

RC_GTEST_PROP(NSExpression, comesToTheValueOfTheTreeItWasWrittenFrom, ()) {
    std::mt19937 random(*rc::gen::arbitrary<std::uint32_t>());
    const Tree tree(random, *rc::gen::inRange(0, 9));
    const std::string text = tree.text(random);
    RC_LOG() << text << "\n";
    RC_ASSERT(isSame(NSExpression::value(text), tree.value()));
}

}  // namespace
}  // namespace quorin
