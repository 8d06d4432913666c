/// Inspector fields at work: what a transformer adds to the formatter that it stands on.
#include <unicode/unum.h>
#include <unicode/ustring.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "bench/PeerReport.h"
#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/transformers/CoordinatesTransformer.h"
#include "quorin/transformers/CornerRadiusTransformer.h"
#include "quorin/transformers/DegreeStringTransformer.h"
#include "quorin/transformers/NumberTransformer.h"
#include "quorin/transformers/PercentValueTransformer.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr const char* localeName = "de_DE";

/// A formatter that a program keeps for the one locale and increment it has.
class PlainIcu {
public:
    PlainIcu()
        : format(unum_open(UNUM_DECIMAL, nullptr, 0, localeName, nullptr, &status), unum_close) {
        unum_setDoubleAttribute(format.get(), UNUM_ROUNDING_INCREMENT, 0.1);
    }

    std::string text(double number) {
        std::array<UChar, 64> units;
        const std::int32_t size =
            unum_formatDouble(format.get(), number, units.data(),
                              static_cast<std::int32_t>(units.size()), nullptr, &status);
        std::array<char, 192> bytes;
        std::int32_t count = 0;
        u_strToUTF8(bytes.data(), static_cast<std::int32_t>(bytes.size()), &count, units.data(),
                    size, &status);
        return {bytes.data(), static_cast<std::size_t>(count)};
    }

private:
    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<UNumberFormat> format;
};

void require(bool holds, const char* work) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: not what was expected\n", work);
    std::exit(1);
}

void registerShowing() {
    const std::vector<double> numbers{0, 12, 10.5, 360, -7.25, 1234.5678, 1920, 0.04, 98765.4321};
    const auto transformer = makeObject<NumberTransformer>();
    const auto icu = std::make_shared<PlainIcu>();
    for (const double number : numbers)
        require(transformer->transformedValue(number) == Value(icu->text(number)), "show a number");
    compare("show a number", ours, numbers.size(), [=] {
        for (const double number : numbers)
            benchmark::DoNotOptimize(transformer->transformedValue(number));
    });
    compare("show a number", "ICU reused", numbers.size(), [=] {
        for (const double number : numbers)
            benchmark::DoNotOptimize(icu->text(number));
    });
}

void registerReading(const std::string& text, double expected) {
    const auto transformer = makeObject<NumberTransformer>();
    const Value typed = text;
    require(transformer->reverseTransformedValue(typed) == Value(expected), text.c_str());
    compare("read " + text, ours, 1,
            [=] { benchmark::DoNotOptimize(transformer->reverseTransformedValue(typed)); });
}

/// Refreshes a field after a change of the model: another text than the one it shows is set, and
/// what the arrow keys would make of the value is known in time.
class Field {
public:
    Field(std::shared_ptr<ValueTransformer> itsTransformer, Value itsValue)
        : transformer(std::move(itsTransformer)),
          numerical(std::dynamic_pointer_cast<NumericalValueTransformer>(transformer)),
          value(std::move(itsValue)) {}

    void refresh() {
        const Value text = transformer->transformedValue(value);
        if (!(text == shown))
            shown = text;
        next = numerical->clampValue(numerical->incrementValue(value, 1, 1), {0, 10'000});
        benchmark::DoNotOptimize(next);
    }

private:
    std::shared_ptr<ValueTransformer> transformer;
    std::shared_ptr<NumericalValueTransformer> numerical;
    Value value, shown, next;
};

void registerRefreshing() {
    constexpr std::size_t fieldCount = 1000;
    const auto fields = std::make_shared<std::vector<Field>>();
    const std::shared_ptr<ValueTransformer> transformers[] = {
        makeObject<NumberTransformer>(), makeObject<CoordinatesTransformer>(),
        makeObject<PercentValueTransformer>(), makeObject<DegreeStringTransformer>(),
        makeObject<CornerRadiusTransformer>()};
    for (std::size_t i = 0; i < fieldCount; ++i) {
        const double number = static_cast<double>(i) * 1.37;
        const bool isRadii = i % 5 == 4;
        fields->emplace_back(transformers[i % 5],
                             isRadii ? Value(Value::List{number, number}) : Value(number));
    }
    compare("refresh 1,000 fields", ours, 1, [=] {
        for (Field& field : *fields)
            field.refresh();
    });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const NSLocale::CurrentScope german(localeName);
    registerShowing();
    registerReading("12", 12);
    registerReading("(10+5)/3", 5);
    registerReading("(1.910,5+9,5)/2", 960);
    registerRefreshing();
    return runComparison(argumentCount, arguments);
}
