#include "quorin/transformers/ValueTransformer.h"
#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedUsage;
using test::runQuorin;
using test::WentWell;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

ProgramRun field(const std::string& transformer, std::vector<std::string> more) {
    more.insert(more.begin(), {"field", "--locale", "en_US", "--transformer", transformer});
    return runQuorin(more);
}

TEST(FieldCommand, printsHowEachTextIsReadAndShown) {
    const ProgramRun run =
        field("NumberTransformer", {"--point-scale", "2", "10+5", "abc", "24.68", ""});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output,
              "text   read as  shown as\n"
              "10+5   7.5      15\n"
              "abc    \"abc\"    abc\n"
              "24.68  12.34    24.7\n"
              "       \"\"\n");
}

TEST(FieldCommand, printsNumbersListsAndNothing) {
    EXPECT_EQ(field("IntValueTransformer", {"12.7"}).output,
              "text  read as  shown as\n12.7  12       12\n");
    EXPECT_EQ(field("CornerRadiusTransformer", {"4;-2;x"}).output,
              "text    read as          shown as\n4;-2;x  [4.0, 0.0, 0.0]  4;0;0\n");
    EXPECT_EQ(field("DegreeRadianTransformer", {"90"}).output,
              "text  read as  shown as\n90    nothing  nothing\n");
    EXPECT_EQ(field("DegreeStringTransformer", {"abc"}).output,
              "text  read as  shown as\nabc   0        0\n");
}

TEST(FieldCommand, usesTheLocale) {
    const std::vector<std::string> words{"field", "--transformer", "NumberTransformer", "1.234,56"};
    const std::string german = "text      read as  shown as\n1.234,56  1234.56  1.234,6\n";
    std::vector<std::string> told = words;
    told.insert(told.end(), {"--locale", "de_DE"});
    EXPECT_EQ(runQuorin(told).output, german);
    EXPECT_EQ(test::runQuorinAfter("export LC_ALL=de_DE.UTF-8", words).output, german);
    EXPECT_EQ(test::runQuorinAfter("export LC_ALL= LC_NUMERIC=de_DE", words).output, german);
    EXPECT_EQ(test::runQuorinAfter("export LC_ALL=C", words).output,
              "text      read as  shown as\n1.234,56  1.23456  1.2\n");
}

TEST(FieldCommand, usesTheLocaleAlsoWhereATransformerKeepsTheOneItWasMadeIn) {
    const std::string german = "text      read as  shown as\n1.234,5s  1234.5   1.234.500\n";
    EXPECT_EQ(runQuorin({"field", "--locale", "de_DE", "--transformer",
                         "SuffixlessMillisecondTransformer", "1.234,5s"})
                  .output,
              german);
    EXPECT_EQ(runQuorin({"field", "--transformer", "SuffixlessMillisecondTransformer", "--locale",
                         "de_DE", "1.234,5s"})
                  .output,
              german);
}

TEST(FieldCommand, setsTheTransformerUp) {
    EXPECT_EQ(field("NumberTransformer", {"--increment", "5", "12"}).output,
              "text  read as  shown as\n12    12.0     10\n");
    EXPECT_EQ(field("MillisecondTransformer", {"--no-suffix", "1.5s"}).output,
              "text  read as  shown as\n1.5s  1.5      1500\n");
    EXPECT_THAT(field("CoordinatesTransformer", {"--allow-nil", "--increment", "5", "12"}).output,
                testing::EndsWith("\n12    12.0     12\n"))
        << "its increment cannot be changed";
}

TEST(FieldCommand, stepsAndClampsWhatWasRead) {
    EXPECT_EQ(
        field("PercentValueTransformer", {"--step", "10", "--range", "0,1", "47", "130%"}).output,
        "text  read as  shown as  stepped up  clamped\n"
        "47    0.47     47%       60%         47%\n"
        "130%  1.3      130%      140%        100%\n");
}

TEST(FieldCommand, takesTextsThatStartWithAMinus) {
    EXPECT_EQ(field("NumberTransformer", {"--", "-5", "--x"}).output,
              "text  read as  shown as\n-5    -5.0     -5\n--x   \"--x\"    --x\n");
}

TEST(FieldCommand, keepsControlCharactersAndBrokenTextFromTheTerminal) {
    EXPECT_EQ(field("StringTransformer", {"a\033[2Jb\xFF"}).output,
              "text     read as    shown as\na?[2Jb?  \"a?[2Jb?\"  a?[2Jb?\n");
}

TEST(FieldCommand, listsTheTransformersForAnUnknownOne) {
    const ProgramRun run = field("numbertransformer", {"12"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.errors, AllOf(StartsWith("quorin: --transformer: expected one of "
                                             "CoordinatesTransformer, CornerRadiusTransformer, "),
                                  HasSubstr(", SuffixlessMillisecondTransformer, not "
                                            "'numbertransformer'\n")));
}

TEST(FieldCommand, refusesLocalesThatItDoesNotKnow) {
    for (const std::string locale : {"xx", "klingon_KL", "", "_DE"})
        EXPECT_THAT(
            runQuorin({"field", "--transformer", "NumberTransformer", "--locale", locale, "1"}),
            RefusedUsage("--locale: expected a locale such as de_DE or C, not '" + locale + "'",
                         "quorin field"));
    for (const std::string locale :
         {"C", "POSIX", "de", "DE_de", "pt_BR.UTF-8", "en-GB", "C.UTF-8"})
        EXPECT_THAT(
            runQuorin({"field", "--transformer", "NumberTransformer", "--locale", locale, "1"}),
            WentWell())
            << locale;
}

TEST(FieldCommand, refusesOptionsThatATransformerHasNoUseFor) {
    EXPECT_THAT(field("StringTransformer", {"--point-scale", "2", "x"}),
                RefusedUsage("--point-scale: StringTransformer has no pointScale", "quorin field"));
    EXPECT_THAT(
        field("PercentValueTransformer", {"--allow-nil", "x"}),
        RefusedUsage("--allow-nil: PercentValueTransformer has no allowNil", "quorin field"));
    EXPECT_THAT(
        field("DoubleValueTransformer", {"--step", "1", "x"}),
        RefusedUsage("--step: DoubleValueTransformer neither steps nor clamps", "quorin field"));
    EXPECT_THAT(
        field("DoubleValueTransformer", {"--range", "0,1", "x"}),
        RefusedUsage("--range: DoubleValueTransformer neither steps nor clamps", "quorin field"));
}

TEST(FieldCommand, refusesOptionsThatAreNone) {
    EXPECT_THAT(field("NumberTransformer", {"--point-scale", "0", "1"}),
                RefusedUsage("--point-scale: expected a number above 0, not '0'", "quorin field"));
    EXPECT_THAT(field("NumberTransformer", {"--range", "5,1", "1"}),
                RefusedUsage("--range: expected the lower bound first, not '5,1'", "quorin field"));
    EXPECT_THAT(field("NumberTransformer", {}), RefusedUsage("TEXT is required", "quorin field"));
    EXPECT_THAT(runQuorin({"field", "12"}),
                RefusedUsage("--transformer is required", "quorin field"));
}

TEST(FieldCommand, helpsWithExamples) {
    const ProgramRun run = runQuorin({"field", "--help"});
    EXPECT_THAT(run, WentWell());
    EXPECT_THAT(run.output, AllOf(HasSubstr("Usage: quorin field"),
                                  HasSubstr("\n  quorin field --transformer NumberTransformer ")));
}

TEST(FieldCommand, helpsWithTheNamesOfAllTransformers) {
    const std::string help = runQuorin({"field", "--help"}).output;
    for (const std::string& name : ValueTransformer::classNames())
        EXPECT_THAT(help, ContainsRegex(std::string("\n .*\\b").append(name).append("\\b")));
}

}  // namespace
}  // namespace quorin
