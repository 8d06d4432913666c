#include "quorin/platform/foundation/NSLocale.h"

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

bool isKnownLanguage(const std::string& language) {
    for (std::int32_t i = 0; i < uloc_countAvailable(); ++i) {
        std::array<char, ULOC_LANG_CAPACITY> known{};
        UErrorCode status = U_ZERO_ERROR;
        uloc_getLanguage(uloc_getAvailable(i), known.data(), ULOC_LANG_CAPACITY, &status);
        if (U_SUCCESS(status) && language == known.data())
            return true;
    }
    return false;
}

/// In ICU's spelling; the fallback for what is no locale.
std::string knownIdentifier(std::string_view identifier) {
    const std::string name(identifier.substr(0, identifier.find_first_of(".@")));
    std::array<char, ULOC_FULLNAME_CAPACITY> spelled{};
    std::array<char, ULOC_LANG_CAPACITY> language{};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getName(name.c_str(), spelled.data(), spelled.size() - 1, &status);
    uloc_getLanguage(name.c_str(), language.data(), language.size() - 1, &status);
    const bool isKnown = U_SUCCESS(status) && isKnownLanguage(language.data());
    return isKnown && name != "C" && name != "POSIX" ? spelled.data() : std::string(fallback);
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
