#include "quorin/platform/foundation/NSLocale.h"

#include <unicode/uenum.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

#include <array>
#include <cstdlib>
#include <utility>

#include "quorin/platform/foundation/UTF16.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

constexpr std::string_view fallback = "en_US";

thread_local const NSLocale* currentOfThread = nullptr;

/// `uloc_getLanguage` and its like, empty for what is too long to be one.
template <typename Get>
std::string part(const std::string& identifier, const Get& get) {
    std::array<char, ULOC_FULLNAME_CAPACITY> text;
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t size =
        get(identifier.c_str(), text.data(), static_cast<std::int32_t>(text.size()), &status);
    return U_SUCCESS(status) ? std::string(text.data(), static_cast<std::size_t>(size)) : "";
}

/// Whether ICU has data for it. In place of others it would take those of its own current locale.
bool isKnown(const std::string& language) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UEnumeration, decltype(&uenum_close)> all(
        uloc_openAvailableByType(ULOC_AVAILABLE_WITH_LEGACY_ALIASES, &status), &uenum_close);
    for (const char* each = uenum_next(all.get(), nullptr, &status); each;
         each = uenum_next(all.get(), nullptr, &status))
        if (language == each)  // a language is available by itself where a country of it is
            return true;
    return false;
}

std::string knownIdentifier(std::string_view identifier) {
    const std::string name(identifier);  // ICU stops at an encoding and skips a modifier
    std::string known = part(name, uloc_getLanguage);
    if (!isKnown(known))
        return std::string(fallback);
    // Without variants: that of POSIX would have neither groups nor a limit of digits.
    for (const std::string& each : {part(name, uloc_getScript), part(name, uloc_getCountry)})
        if (!each.empty())
            known.append("_").append(each);
    return known;
}

std::string symbol(const UNumberFormat* format, UNumberFormatSymbol which) {
    std::array<char16_t, 32> units;
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t size = unum_getSymbol(format, which, units.data(), units.size(), &status);
    if (U_FAILURE(status))
        fatalError(std::string("ICU: ") + u_errorName(status));
    return utf8({units.data(), static_cast<std::size_t>(size)});
}

std::string_view identifierOfProcess() {
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"})
        if (const char* value = std::getenv(variable); value && *value)
            return value;
    return fallback;
}

}  // namespace

NSLocale::NSLocale(std::string_view identifier)
    : facts(std::make_shared<const Facts>(factsAbout(identifier))) {}

NSLocale::Facts NSLocale::factsAbout(std::string_view identifier) {
    std::string known = knownIdentifier(identifier);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UNumberFormat, decltype(&unum_close)> format(
        unum_open(UNUM_DECIMAL, nullptr, 0, known.c_str(), nullptr, &status), &unum_close);
    if (U_FAILURE(status))
        fatalError(std::string("ICU: ") + u_errorName(status));
    return {std::move(known), symbol(format.get(), UNUM_DECIMAL_SEPARATOR_SYMBOL),
            symbol(format.get(), UNUM_GROUPING_SEPARATOR_SYMBOL)};
}

const NSLocale& NSLocale::current() {
    if (currentOfThread)
        return *currentOfThread;
    static const NSLocale ofProcess(identifierOfProcess());
    return ofProcess;
}

NSLocale::CurrentScope::CurrentScope(NSLocale inner)
    : locale(std::move(inner)), outer(std::exchange(currentOfThread, &locale)) {}

NSLocale::CurrentScope::~CurrentScope() { currentOfThread = outer; }

}  // namespace quorin
