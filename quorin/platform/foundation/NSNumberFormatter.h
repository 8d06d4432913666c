#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/values/NSNumber.h"
#include "quorin/platform/values/Object.h"

namespace quorin {

enum class NSNumberFormatterStyle {
    none,     ///< whole numbers without groups
    decimal,  ///< groups of digits and at most three digits of fraction
};

/// Where a number goes that lies between two that can be shown.
enum class NSNumberFormatterRoundingMode {
    ceiling,
    floor,
    down,  ///< toward zero
    up,    ///< away from zero
    halfEven,
    halfDown,  ///< to the nearest, a half toward zero
    halfUp,    ///< to the nearest, a half away from zero
};

/// Writes numbers for people and reads them back, by the rules of a locale. Cheap to make: what it
/// stands on is kept from one formatter to the next, for each thread.
class NSNumberFormatter : public Object {
public:
    /// For the thread's current locale, which it keeps.
    NSNumberFormatter() : _locale(NSLocale::current()) {}
    explicit NSNumberFormatter(NSLocale locale) : _locale(std::move(locale)) {}

    const NSLocale& locale() const { return _locale; }
    void setLocale(NSLocale locale) { _locale = std::move(locale); }

    NSNumberFormatterStyle numberStyle() const { return _numberStyle; }
    /// Also turns groups on with the decimal style, and off without.
    void setNumberStyle(NSNumberFormatterStyle style) {
        _numberStyle = style;
        _usesGroupingSeparator = style == NSNumberFormatterStyle::decimal;
    }

    bool usesGroupingSeparator() const { return _usesGroupingSeparator; }
    void setUsesGroupingSeparator(bool uses) { _usesGroupingSeparator = uses; }

    /// Numbers are rounded to a multiple of it, then to the digits of the style. 0, the default, is
    /// for none; so are negative numbers, those that are not finite, and those of at most half a
    /// unit of the last digit. A number too large to be divided by it is shown as it is.
    double roundingIncrement() const { return _roundingIncrement; }
    void setRoundingIncrement(double increment) { _roundingIncrement = increment; }

    /// Half even by default. What is a half is judged on the shortest decimal that stands for the
    /// number: 0.35 is one between 0.3 and 0.4, although the double lies below it.
    NSNumberFormatterRoundingMode roundingMode() const { return _roundingMode; }
    void setRoundingMode(NSNumberFormatterRoundingMode mode) { _roundingMode = mode; }

    /// Also of infinities and NaN, as ICU has them in the locale, NaN without a sign. Nothing if
    /// ICU fails, which is not known to happen; a subclass may have nothing to show for a number.
    virtual std::optional<std::string> string(double number) const;

    /// The number that the text is as a whole; groups and white space around it are allowed in
    /// every style. An integer when it is one of 64 bits, else a double. Nothing for every other
    /// text, and for one that is longer than any number written by a person, 1000 characters.
    std::optional<NSNumber> number(std::string_view text) const;

    std::string description() const override;

private:
    NSLocale _locale;
    NSNumberFormatterStyle _numberStyle = NSNumberFormatterStyle::none;
    NSNumberFormatterRoundingMode _roundingMode = NSNumberFormatterRoundingMode::halfEven;
    double _roundingIncrement = 0;
    bool _usesGroupingSeparator = false;
};

}  // namespace quorin
