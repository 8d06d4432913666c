/// What inspector fields do with numbers: showing one, reading one, evaluating what was typed.
#include <muParser.h>
#include <unicode/unum.h>
#include <unicode/ustring.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "bench/PeerReport.h"
#include "quorin/platform/foundation/NSExpression.h"
#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/NSNumberFormatter.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr double increment = 0.1;

/// ICU's formatter as a program would keep it that has just one.
class PlainIcu {
public:
    explicit PlainIcu(const std::string& locale)
        : format(unum_open(UNUM_DECIMAL, nullptr, 0, locale.c_str(), nullptr, &status),
                 unum_close) {
        unum_setDoubleAttribute(format.get(), UNUM_ROUNDING_INCREMENT, increment);
    }

    /// Not even in UTF-8.
    std::int32_t format16(double number, std::array<UChar, 64>& units) {
        return unum_formatDouble(format.get(), number, units.data(),
                                 static_cast<std::int32_t>(units.size()), nullptr, &status);
    }

    std::string formatted(double number) {
        std::array<UChar, 64> units;
        const std::int32_t size = format16(number, units);
        std::array<char, 192> bytes;
        std::int32_t count = 0;
        u_strToUTF8(bytes.data(), static_cast<std::int32_t>(bytes.size()), &count, units.data(),
                    size, &status);
        return {bytes.data(), static_cast<std::size_t>(count)};
    }

    double number(const std::string& text) {
        std::array<UChar, 64> units;
        std::int32_t count = 0;
        u_strFromUTF8(units.data(), static_cast<std::int32_t>(units.size()), &count, text.data(),
                      static_cast<std::int32_t>(text.size()), &status);
        return unum_parseDouble(format.get(), units.data(), count, nullptr, &status);
    }

private:
    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<UNumberFormat> format;
};

std::string shown(double number) {
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterStyle::decimal);
    formatter.setRoundingIncrement(increment);
    return formatter.string(number).value();
}

void require(bool holds, const std::string& work) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: not what the peer says\n", work.c_str());
    std::exit(1);
}

void registerLocale(const char* name) {
    const NSLocale locale(name);
    const NSLocale::CurrentScope scope(locale);
    const std::vector<double> numbers{0, 12, 10.5, 360, -7.25, 1234.5678, 1920, 0.04, 98765.4321};
    const auto icu = std::make_shared<PlainIcu>(name);
    std::vector<std::string> texts;
    for (const double number : numbers) {
        texts.push_back(shown(number));
        require(texts.back() == icu->formatted(number), name);
    }

    const std::string show = std::string("show in ") + name;
    compare(show, ours, numbers.size(), [=] {
        const NSLocale::CurrentScope here(locale);
        for (const double number : numbers)
            benchmark::DoNotOptimize(shown(number));
    });
    compare(show, "ICU reused", numbers.size(), [=] {
        std::array<UChar, 64> units;
        for (const double number : numbers)
            benchmark::DoNotOptimize(icu->format16(number, units));
    });
    compare(show, "ICU opened", numbers.size(), [=] {
        for (const double number : numbers)
            benchmark::DoNotOptimize(PlainIcu(name).formatted(number));
    });

    const std::string read = std::string("read in ") + name;
    compare(read, ours, texts.size(), [=] {
        const NSNumberFormatter formatter(locale);
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(formatter.number(text));
    });
    compare(read, "ICU reused", texts.size(), [=] {
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(icu->number(text));
    });
}

void registerExpression(const std::string& text) {
    const auto parser = std::make_shared<mu::Parser>();
    parser->SetExpr(text);
    require(std::abs(parser->Eval() - NSExpression::value(text)) < 1e-12, text);
    compare(text, ours, 1, [=] { benchmark::DoNotOptimize(NSExpression::value(text)); });
    compare(text, "muParser", 1, [=] {
        parser->SetExpr(text);
        benchmark::DoNotOptimize(parser->Eval());
    });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    for (const char* locale : {"en_US", "de_DE", "sv_SE", "hi_IN"})
        registerLocale(locale);
    registerExpression("12");
    registerExpression("(10+5)/3");
    registerExpression("1.0*(1.0*10+5)/3");
    registerExpression("1.0*(1.0*1920-2*24.5)/(1.0*12+0.125)");
    return runComparison(argumentCount, arguments);
}
