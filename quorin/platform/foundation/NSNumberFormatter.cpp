#include "quorin/platform/foundation/NSNumberFormatter.h"

#include <unicode/uformattable.h>
#include <unicode/unum.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/UTF16.h"
#include "quorin/platform/foundation/UnicodeText.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

using Style = NSNumberFormatterStyle;
using RoundingMode = NSNumberFormatterRoundingMode;

void require(UErrorCode status) {
    if (U_FAILURE(status))
        fatalError(std::string("ICU: ") + u_errorName(status));
}

struct FormatSettings {
    Style style = Style::decimal;
    RoundingMode roundingMode = RoundingMode::halfEven;
    bool usesGroups = true;
    double increment = 0;  // 0 for none

    bool operator==(const FormatSettings&) const = default;
};

int fractionDigits(Style style) { return style == Style::decimal ? 3 : 0; }

/// Of the shortest decimal that reads back to the number.
int fractionDigits(double number) {
    std::array<char, 400> text;  // the longest are 5e-324 and its like
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
    const std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
    const std::size_t point = digits.find('.');
    return point == std::string_view::npos ? 0 : static_cast<int>(digits.size() - point - 1);
}

UNumberFormatRoundingMode icuMode(RoundingMode mode) {
    switch (mode) {
        case RoundingMode::ceiling:
            return UNUM_ROUND_CEILING;
        case RoundingMode::floor:
            return UNUM_ROUND_FLOOR;
        case RoundingMode::down:
            return UNUM_ROUND_DOWN;
        case RoundingMode::up:
            return UNUM_ROUND_UP;
        case RoundingMode::halfEven:
            return UNUM_ROUND_HALFEVEN;
        case RoundingMode::halfDown:
            return UNUM_ROUND_HALFDOWN;
        case RoundingMode::halfUp:
            return UNUM_ROUND_HALFUP;
    }
    fatalError("rounding mode " + std::to_string(static_cast<int>(mode)) + " is none");
}

class IcuFormat {
public:
    IcuFormat(const std::string& locale, const FormatSettings& settings, int digits) {
        UErrorCode status = U_ZERO_ERROR;
        format.reset(unum_open(UNUM_DECIMAL, nullptr, 0, locale.c_str(), nullptr, &status));
        require(status);
        unum_setAttribute(format.get(), UNUM_GROUPING_USED, settings.usesGroups);
        unum_setAttribute(format.get(), UNUM_ROUNDING_MODE, icuMode(settings.roundingMode));
        unum_setAttribute(format.get(), UNUM_MAX_FRACTION_DIGITS, digits);
        if (settings.increment > 0)
            unum_setDoubleAttribute(format.get(), UNUM_ROUNDING_INCREMENT, settings.increment);
    }

    std::optional<std::string> string(double number) const {
        return text([&](char16_t* units, std::int32_t capacity, UErrorCode& status) {
            return unum_formatDouble(format.get(), number, units, capacity, nullptr, &status);
        });
    }

    /// Of a number in ASCII digits.
    std::optional<std::string> string(const std::string& decimal) const {
        return text([&](char16_t* units, std::int32_t capacity, UErrorCode& status) {
            return unum_formatDecimal(format.get(), decimal.data(),
                                      static_cast<std::int32_t>(decimal.size()), units, capacity,
                                      nullptr, &status);
        });
    }

    std::optional<NSNumber> number(std::u16string_view text) const {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UFormattable, decltype(&ufmt_close)> result(ufmt_open(&status),
                                                                          &ufmt_close);
        require(status);
        std::int32_t end = 0;
        const auto size = static_cast<std::int32_t>(text.size());
        unum_parseToUFormattable(format.get(), result.get(), text.data(), size, &end, &status);
        if (U_FAILURE(status) || end != size)
            return std::nullopt;
        if (ufmt_getType(result.get(), &status) == UFMT_DOUBLE)
            return NSNumber(ufmt_getDouble(result.get(), &status));
        return NSNumber(ufmt_getInt64(result.get(), &status));
    }

private:
    template <typename Write>
    static std::optional<std::string> text(const Write& write) {
        // The greatest double in groups of two, in digits beyond 16 bits, needs about 800.
        std::array<char16_t, 1024> units;
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t size =
            write(units.data(), static_cast<std::int32_t>(units.size()), status);
        if (U_FAILURE(status))
            return std::nullopt;
        return utf8({units.data(), static_cast<std::size_t>(size)});
    }

    struct Closer {
        void operator()(UNumberFormat* open) const { unum_close(open); }
    };

    std::unique_ptr<UNumberFormat, Closer> format;
};

/// Writes numbers in a locale by settings.
class NumberWriter {
public:
    NumberWriter(const NSLocale& locale, const FormatSettings& settings)
        : format(locale.identifier(), settings, fractionDigits(settings.style)) {
        const int shownDigits = fractionDigits(settings.style);
        const int digits = fractionDigits(settings.increment);
        // ICU shows all digits of an increment, unless it is below half of the style's last digit:
        // such a one it leaves out of account.
        if (digits <= shownDigits || settings.increment <= 0.5 * std::pow(10, -shownDigits))
            return;
        FormatSettings plain = settings;
        plain.usesGroups = false;
        multiples = std::make_unique<IcuFormat>("en", plain, digits);
        plain = settings;
        plain.increment = 0;
        format = IcuFormat(locale.identifier(), plain, shownDigits);
    }

    std::optional<std::string> string(double number) const {
        if (!multiples || !std::isfinite(number))
            return format.string(number);
        const std::optional<std::string> multiple = multiples->string(number);
        return multiple ? format.string(*multiple) : std::nullopt;
    }

    const IcuFormat& plainFormat() const { return format; }

private:
    IcuFormat format;
    // Only for an increment with more digits than the style shows.
    std::unique_ptr<const IcuFormat> multiples;
};

/// The writers in use on a thread, kept because opening ICU's formats takes thirty times as long
/// as writing a number.
class NumberWriters {
public:
    static NumberWriters& ofThread() {
        thread_local NumberWriters writers;
        return writers;
    }

    const NumberWriter& find(const NSLocale& locale, const FormatSettings& settings) {
        for (const Entry& entry : entries)
            if (entry.settings == settings && entry.locale == locale)
                return entry.writer;
        Entry made{locale, settings, NumberWriter(locale, settings)};
        if (entries.size() < capacity)
            return entries.emplace_back(std::move(made)).writer;
        Entry& replaced = entries[oldest];
        oldest = (oldest + 1) % capacity;
        replaced = std::move(made);
        return replaced.writer;
    }

private:
    static constexpr std::size_t capacity = 32;

    struct Entry {
        NSLocale locale;
        FormatSettings settings;
        NumberWriter writer;
    };

    std::vector<Entry> entries;
    std::size_t oldest = 0;
};

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace

std::optional<std::string> NSNumberFormatter::string(double number) const {
    // Processors disagree on the sign of 0/0, and ICU would write it.
    if (std::isnan(number))
        number = std::numeric_limits<double>::quiet_NaN();
    FormatSettings settings{_numberStyle, _roundingMode, _usesGroupingSeparator, 0};
    if (_roundingIncrement > 0 && std::isfinite(_roundingIncrement))
        settings.increment = _roundingIncrement;
    NumberWriters& writers = NumberWriters::ofThread();
    std::optional<std::string> text = writers.find(_locale, settings).string(number);
    if (text || settings.increment == 0)
        return text;
    // ICU cannot divide where the quotient has too many digits. Such a number is a multiple of the
    // increment as well as its neighbours are.
    settings.increment = 0;
    return writers.find(_locale, settings).string(number);
}

std::optional<NSNumber> NSNumberFormatter::number(std::string_view text) const {
    constexpr std::size_t longest = 1000;  // ICU takes quadratic time
    const std::u16string units = utf16(text);
    const std::u16string_view digits = trimmed(units);
    if (digits.empty() || digits.size() > longest)
        return std::nullopt;
    return NumberWriters::ofThread().find(_locale, FormatSettings()).plainFormat().number(digits);
}

std::string NSNumberFormatter::description() const {
    std::string text = "<NSNumberFormatter: ";
    return text.append(_locale.identifier()).append(">");
}

}  // namespace quorin
