#include <quorin/transformers/PercentValueTransformer.h>
#include <termios.h>
#include <unistd.h>

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>

using quorin::Value;

/// While it lives the terminal hands over each key at once and shows none by itself. Without a
/// terminal the keys are just what is read: printf '\033[A' | field
class KeyInput {
public:
    KeyInput() : before(settings()) {
        if (!before)
            return;
        termios raw = *before;
        raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG);
        tcsetattr(STDIN_FILENO, TCSANOW, &raw);
    }
    KeyInput(const KeyInput&) = delete;
    KeyInput& operator=(const KeyInput&) = delete;
    ~KeyInput() {
        if (before)
            tcsetattr(STDIN_FILENO, TCSANOW, &*before);
    }

    bool isTerminal() const { return before.has_value(); }

    /// A character, or all of the sequence that an arrow key sends; empty at the end.
    std::string next() const {
        std::string key = byte();
        if (key != "\033")
            return key;
        key += byte();
        while (key.back() != '\033' && (key.back() < '@' || key.back() > '~' || key.size() == 2)) {
            const std::string more = byte();
            if (more.empty())
                break;
            key += more;
        }
        return key;
    }

private:
    /// Nothing when there is no terminal.
    static std::optional<termios> settings() {
        termios current{};
        const bool isTerminal = tcgetattr(STDIN_FILENO, &current) == 0;
        return isTerminal ? std::optional(current) : std::nullopt;
    }

    static std::string byte() {
        char c = 0;
        return read(STDIN_FILENO, &c, 1) == 1 ? std::string(1, c) : std::string();
    }

    const std::optional<termios> before;
};

/// A field for an opacity from 0 to 1, shown in percent.
class OpacityField {
public:
    std::string text() const { return *transformer->transformedValue(opacity).asText(); }

    void step(double percent, double direction) {
        set(transformer->incrementValue(opacity, percent, direction));
    }
    void type(const std::string& typed) { set(transformer->reverseTransformedValue(typed)); }

private:
    void set(const Value& value) { opacity = transformer->clampValue(value, {0, 1}); }

    std::shared_ptr<quorin::PercentValueTransformer> transformer =
        quorin::makeObject<quorin::PercentValueTransformer>();
    Value opacity = 0.5;
};

int main() {
    const KeyInput input;
    const char *start = input.isTerminal() ? "\r\033[K" : "", *end = input.isTerminal() ? "" : "\n";
    if (input.isTerminal())
        std::cout << "Up and down, with shift by tens; or type, as 12*2, and enter. q ends.\n";

    OpacityField field;
    std::string typed;
    for (;;) {
        std::cout << start << "Opacity " << (typed.empty() ? field.text() : typed) << end
                  << std::flush;
        const std::string key = input.next();
        if (key.empty() || key == "q" || key == "\x03" || key == "\x04")
            break;
        if (key == "\033[A")
            field.step(1, 1);
        else if (key == "\033[B")
            field.step(1, -1);
        else if (key == "\033[1;2A")
            field.step(10, 1);
        else if (key == "\033[1;2B")
            field.step(10, -1);
        else if ((key == "\n" || key == "\r") && !typed.empty())
            field.type(std::exchange(typed, ""));
        else if (key == "\x7F" && !typed.empty())
            typed.pop_back();
        else if (key[0] >= ' ' && key[0] <= '~')
            typed += key;
    }
    if (input.isTerminal())
        std::cout << '\n';
}
