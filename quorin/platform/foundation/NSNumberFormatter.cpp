#include "quorin/platform/foundation/NSNumberFormatter.h"

#include <unicode/uformattable.h>
#include <unicode/unum.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "quorin/platform/foundation/UTF16.h"
#include "quorin/platform/foundation/UnicodeText.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

using Style = NSNumberFormatterStyle;
using RoundingMode = NSNumberFormatterRoundingMode;

constexpr std::size_t longestNumber = 1000;

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

using Format = std::unique_ptr<UNumberFormat, decltype(&unum_close)>;

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

Format openFormat(const NSLocale& locale, const FormatSettings& settings) {
    UErrorCode status = U_ZERO_ERROR;
    Format format(
        unum_open(UNUM_DECIMAL, nullptr, 0, locale.identifier().c_str(), nullptr, &status),
        &unum_close);
    require(status);
    unum_setAttribute(format.get(), UNUM_GROUPING_USED, settings.usesGroups);
    unum_setAttribute(format.get(), UNUM_ROUNDING_MODE, icuMode(settings.roundingMode));
    if (settings.style == Style::none)
        unum_setAttribute(format.get(), UNUM_MAX_FRACTION_DIGITS, 0);
    if (settings.increment > 0)
        unum_setDoubleAttribute(format.get(), UNUM_ROUNDING_INCREMENT, settings.increment);
    return format;
}

/// What was opened on this thread, since opening takes thirty times as long as formatting.
class OpenFormats {
public:
    static OpenFormats& ofThread() {
        thread_local OpenFormats formats;
        return formats;
    }

    UNumberFormat* find(const NSLocale& locale, const FormatSettings& settings) {
        for (std::size_t i = 0; i < count; ++i) {
            const Entry& entry = entries[i];
            if (entry.settings == settings && entry.locale == locale)
                return entry.format.get();
        }
        const std::size_t place = count < entries.size() ? count : next++ % entries.size();
        entries[place] = Entry{locale, settings, openFormat(locale, settings)};
        count = std::max(count, place + 1);
        return entries[place].format.get();
    }

private:
    struct Entry {
        NSLocale locale = NSLocale::current();
        FormatSettings settings;
        Format format{nullptr, &unum_close};
    };

    std::array<Entry, 16> entries;
    std::size_t count = 0, next = 0;
};

std::optional<std::string> formatted(const UNumberFormat* format, double number) {
    std::array<char16_t, 512> units;
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t size =
        unum_formatDouble(format, number, units.data(), units.size(), nullptr, &status);
    if (U_FAILURE(status))
        return std::nullopt;
    return utf8({units.data(), static_cast<std::size_t>(size)});
}

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace

std::optional<std::string> NSNumberFormatter::string(double number) const {
    const bool hasIncrement = _roundingIncrement > 0 && std::isfinite(_roundingIncrement);
    return formatted(
        OpenFormats::ofThread().find(_locale, {_numberStyle, _roundingMode, _usesGroupingSeparator,
                                               hasIncrement ? _roundingIncrement : 0.0}),
        number);
}

std::optional<NSNumber> NSNumberFormatter::number(std::string_view text) const {
    const std::u16string units = utf16(text);
    const std::u16string_view digits = trimmed(units);
    if (digits.empty() || digits.size() > longestNumber)
        return std::nullopt;

    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UFormattable, decltype(&ufmt_close)> result(ufmt_open(&status),
                                                                      &ufmt_close);
    require(status);
    std::int32_t end = 0;
    const auto size = static_cast<std::int32_t>(digits.size());
    unum_parseToUFormattable(OpenFormats::ofThread().find(_locale, FormatSettings{}), result.get(),
                             digits.data(), size, &end, &status);
    if (U_FAILURE(status) || end != size)
        return std::nullopt;
    if (ufmt_getType(result.get(), &status) == UFMT_DOUBLE)
        return NSNumber(ufmt_getDouble(result.get(), &status));
    return NSNumber(ufmt_getInt64(result.get(), &status));
}

std::string NSNumberFormatter::description() const {
    std::string text = "<NSNumberFormatter: ";
    return text.append(_locale.identifier()).append(">");
}

}  // namespace quorin
