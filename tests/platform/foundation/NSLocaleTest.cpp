#include "quorin/platform/foundation/NSLocale.h"

#include <cstdlib>
#include <iostream>
#include <thread>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(NSLocale, knowsTheSeparatorsOfItsCountry) {
    struct Row {
        const char *identifier, *decimal, *grouping;
    };
    const Row table[] = {
        {"en_US", ".", ","},      {"de_DE", ",", "."}, {"fr_FR", ",", "\u202F"},
        {"sv_SE", ",", "\u00A0"}, {"hi_IN", ".", ","}, {"de_CH", ".", "\u2019"},
        {"C", ".", ","},
    };
    for (const auto& [identifier, decimal, grouping] : table) {
        SCOPED_TRACE(identifier);
        EXPECT_EQ(NSLocale(identifier).decimalSeparator(), decimal);
        EXPECT_EQ(NSLocale(identifier).groupingSeparator(), grouping);
    }
}

TEST(NSLocale, isReadAsTheEnvironmentWritesIt) {
    struct Row {
        std::string text, identifier;
    };
    const Row table[] = {
        {"de_DE", "de_DE"},
        {"de_DE.UTF-8", "de_DE"},
        {"de_DE.ISO-8859-15@euro", "de_DE"},
        {"sr_RS@latin", "sr_RS"},
        {"zh_Hant_TW", "zh_Hant_TW"},
        {"pt-br", "pt_BR"},
        {"sv", "sv"},
        {"iw_IL", "iw_IL"},
        {"ca_ES_VALENCIA", "ca_ES"},
        {"de_XX", "de_XX"},
    };
    for (const auto& [text, identifier] : table)
        EXPECT_EQ(NSLocale(text).identifier(), identifier);
}

TEST(NSLocale, isAmericanForWhatIsNone) {
    for (const std::string& text :
         {std::string("C"), std::string("C.UTF-8"), std::string("POSIX"),
          std::string("en_US_POSIX"), std::string(), std::string("."), std::string("_DE"),
          std::string("xx_YY"), std::string("/usr/share"), std::string("de DE"),
          std::string("\xFF\xFE"), std::string("\0", 1), std::string(1'000'000, 'e'),
          std::string(1'000'000, '_')}) {
        SCOPED_TRACE(text.substr(0, 20));
        EXPECT_EQ(NSLocale(text).identifier(), "en_US");
    }
}

TEST(NSLocale, equalsAnotherOfTheSameName) {
    EXPECT_EQ(NSLocale("de_DE"), NSLocale("de_DE.UTF-8"));
    EXPECT_NE(NSLocale("de_DE"), NSLocale("de_AT"));
}

TEST(NSLocale, isCurrentWithinTheInnermostScope) {
    const NSLocale::CurrentScope german("de_DE");
    {
        const NSLocale::CurrentScope hindi(NSLocale("hi_IN"));
        EXPECT_EQ(NSLocale::current().identifier(), "hi_IN");
    }
    EXPECT_EQ(NSLocale::current().identifier(), "de_DE");
}

TEST(NSLocale, isCurrentOnTheThreadOfTheScopeAlone) {
    const NSLocale ofProcess = NSLocale::current();
    const NSLocale::CurrentScope scope("hi_IN");
    std::thread([&] { EXPECT_EQ(NSLocale::current(), ofProcess); }).join();
}

TEST(NSLocaleDeathTest, isThatOfTheFirstVariableThatIsNotEmpty) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // in a process that has read none yet
    struct Row {
        const char *all, *numeric, *language, *identifier;
    };
    const Row table[] = {
        {"sv_SE.UTF-8", "de_DE", "fr_FR", "sv_SE"},
        {nullptr, "de_DE", "fr_FR", "de_DE"},
        {"", "de_DE", "fr_FR", "de_DE"},
        {"", "", "fr_FR.UTF-8@euro", "fr_FR"},
        {nullptr, nullptr, nullptr, "en_US"},
        {"C", "de_DE", "de_DE", "en_US"},
        {"nonsense", "de_DE", "de_DE", "en_US"},
    };
    const auto setTo = [](const char* variable, const char* value) {
        if (value)
            setenv(variable, value, 1);
        else
            unsetenv(variable);
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.identifier);
        EXPECT_EXIT(
            {
                setTo("LC_ALL", row.all);
                setTo("LC_NUMERIC", row.numeric);
                setTo("LANG", row.language);
                std::cerr << "<" << NSLocale::current().identifier() << ">";
                setTo("LC_ALL", "hi_IN");
                std::cerr << "<" << NSLocale::current().identifier() << ">";
                std::exit(0);
            },
            testing::ExitedWithCode(0),
            std::string("<") + row.identifier + "><" + row.identifier + ">");
    }
}

}  // namespace
}  // namespace quorin
