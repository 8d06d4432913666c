#include "quorin/platform/ui/layout/VisualFormat.h"

#include <charconv>
#include <cstddef>
#include <string>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

bool isNameCharacter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_';
}

class Reader {
public:
    explicit Reader(std::string_view given) : text(given) {}

    VisualFormat format() {
        VisualFormat format;
        format.isVertical = skip("V:");
        if (!format.isVertical)
            skip("H:");
        format.startsAtEdge = skip("|");
        CGFloat distance = 0;
        if (format.startsAtEdge)
            distance = this->distance().value_or(0);
        format.views.push_back(view(distance));
        while (!isAtEnd()) {
            const auto next = this->distance();
            format.endsAtEdge = skip("|");
            if (format.endsAtEdge) {
                format.lastDistance = next.value_or(0);
                if (!isAtEnd())
                    refuse("the end");
            } else {
                format.views.push_back(view(next.value_or(0)));
            }
        }
        return format;
    }

private:
    std::optional<CGFloat> distance() {
        if (!skip("-"))
            return std::nullopt;
        const CGFloat points = number();
        require("-");
        return points;
    }

    VisualFormat::View view(CGFloat distance) {
        VisualFormat::View view;
        view.distance = distance;
        require("[");
        view.name = name();
        if (skip("(")) {
            skip("==");
            view.extent = number();
            require(")");
        }
        require("]");
        return view;
    }

    std::string_view name() {
        const std::size_t begin = at;
        while (!isAtEnd() && isNameCharacter(text[at]))
            ++at;
        if (at == begin)
            refuse("a name");
        return text.substr(begin, at - begin);
    }

    CGFloat number() {
        CGFloat number = 0;
        const char* const begin = text.data() + at;
        const char* const end = text.data() + text.size();
        const bool isNumber = !isAtEnd() && *begin >= '0' && *begin <= '9';
        const auto read = std::from_chars(begin, end, number, std::chars_format::fixed);
        if (!isNumber || read.ec != std::errc())
            refuse("a number");
        at += static_cast<std::size_t>(read.ptr - begin);
        return number;
    }

    bool isAtEnd() const { return at == text.size(); }

    bool skip(std::string_view expected) {
        if (!text.substr(at).starts_with(expected))
            return false;
        at += expected.size();
        return true;
    }

    void require(std::string_view expected) {
        if (!skip(expected))
            refuse(std::string("\"").append(expected).append("\""));
    }

    [[noreturn]] void refuse(std::string_view expected) const {
        fatalError(std::string("visual format \"")
                       .append(text)
                       .append("\": ")
                       .append(expected)
                       .append(" expected at ")
                       .append(std::to_string(at)));
    }

    std::string_view text;
    std::size_t at = 0;
};

}  // namespace

VisualFormat VisualFormat::parse(std::string_view text) { return Reader(text).format(); }

}  // namespace quorin
