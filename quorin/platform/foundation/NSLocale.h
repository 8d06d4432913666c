#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quorin {

/// How numbers are written in a language and country. A value that never changes; copies share it.
class NSLocale {
public:
    /// Such as `de_DE`; an encoding or a modifier behind it (`de_DE.UTF-8@euro`) is cut off. `C`,
    /// `POSIX` and what names no known language stand for `en_US`.
    explicit NSLocale(std::string_view identifier);

    /// Language and country, as in `de_DE`.
    const std::string& identifier() const { return facts->identifier; }
    // Each in UTF-8, and not always a single character of it.
    const std::string& decimalSeparator() const { return facts->decimalSeparator; }
    const std::string& groupingSeparator() const { return facts->groupingSeparator; }

    /// The one of the thread's innermost `CurrentScope`, and without any the one of the process:
    /// the first of the variables `LC_ALL`, `LC_NUMERIC` and `LANG` that is not empty, read once.
    /// To be kept no longer than that scope.
    static const NSLocale& current();

    /// Makes another locale the thread's current one while it lives.
    class CurrentScope;

    friend bool operator==(const NSLocale& a, const NSLocale& b) {
        return a.facts == b.facts || a.identifier() == b.identifier();
    }

private:
    struct Facts {
        std::string identifier, decimalSeparator, groupingSeparator;
    };

    static Facts factsAbout(std::string_view identifier);

    std::shared_ptr<const Facts> facts;
};

/// Scopes of one thread end in the reverse order of their beginnings.
class NSLocale::CurrentScope {
public:
    explicit CurrentScope(NSLocale locale);
    explicit CurrentScope(std::string_view identifier) : CurrentScope(NSLocale(identifier)) {}
    CurrentScope(const CurrentScope&) = delete;
    CurrentScope& operator=(const CurrentScope&) = delete;
    ~CurrentScope();

private:
    NSLocale locale;
    const NSLocale* outer;
};

}  // namespace quorin
