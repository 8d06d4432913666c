#include "quorin/svg/reading/PathData.h"

#include <array>
#include <span>

#include "quorin/geometry/Finiteness.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/svg/reading/EllipticalArc.h"
#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

/// How many arguments a command takes; nothing when there is no such command.
std::optional<std::size_t> argumentCount(char command) {
    switch (command) {
        case 'z':
            return 0;
        case 'h':
        case 'v':
            return 1;
        case 'm':
        case 'l':
        case 't':
            return 2;
        case 's':
        case 'q':
            return 4;
        case 'c':
            return 6;
        case 'a':
            return 7;
        default:
            return std::nullopt;
    }
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
char lowercase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
std::string quoted(char c) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= 0x20 && code < 0x7f)
        return std::string("'") + c + "'";
    constexpr std::string_view digits = "0123456789abcdef";
    return {'b', 'y', 't', 'e', ' ', '0', 'x', digits[code >> 4], digits[code & 15]};
}

class PathDataParser {
public:
    PathDataParser(std::string_view text, std::size_t maximum)
        : scanner(text), maximumCommands(maximum) {}

    PathData parse() {
        scanner.skipSpace();
        while (!scanner.isAtEnd() && parseCommand())
            scanner.skipSpace();
        result.path = path.take();
        return std::move(result);
    }

private:
    using Arguments = std::array<CGFloat, 7>;

    bool fail(std::size_t offset, std::string message) {
        result.error = PathDataError{offset, std::move(message)};
        return false;
    }

    /// A letter and as many groups of arguments as follow it.
    bool parseCommand() {
        const std::size_t commandStart = scanner.offset();
        const char letter = scanner.peek();
        command = lowercase(letter);
        isRelative = letter == command;
        const std::optional<std::size_t> count = argumentCount(command);
        if (!count)
            return fail(commandStart, isLetter(letter)
                                          ? "there is no command " + quoted(letter)
                                          : "expected a command, not " + quoted(letter));
        if (!hasPoint && command != 'm')
            return fail(commandStart, "must begin with a move, not " + quoted(letter));
        scanner.advance();

        bool isRepeated = false;
        do {
            const std::size_t groupStart = isRepeated ? scanner.offset() : commandStart;
            Arguments arguments{};
            if (!parseArguments(arguments, *count) || !countCommand())
                return false;
            if (!run(arguments))
                return fail(groupStart, "the coordinates are out of range");
            // Pairs after a move's first are lines.
            if (command == 'm')
                command = 'l';
            isRepeated = true;
        } while (*count > 0 && hasAnotherGroup());
        return true;
    }

    bool countCommand() {
        result.hasTooManyCommands = result.commands == maximumCommands;
        if (result.hasTooManyCommands)
            return fail(scanner.offset(), "there are too many commands");
        ++result.commands;
        return true;
    }

    /// Moves to the next group; a comma has to be followed by one.
    bool hasAnotherGroup() {
        const bool hasComma = scanner.skipCommaSpace();
        return hasComma || (!scanner.isAtEnd() && !isLetter(scanner.peek()));
    }

    bool parseArguments(Arguments& arguments, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (i == 0)
                scanner.skipSpace();
            else
                scanner.skipCommaSpace();
            const bool isFlag = command == 'a' && (i == 3 || i == 4);
            const std::optional<bool> flag = isFlag ? scanner.flag() : std::nullopt;
            const std::optional<CGFloat> number =
                isFlag ? std::optional<CGFloat>() : scanner.number();
            if (!flag && !number)
                return fail(scanner.offset(), missing(isFlag ? "a flag, 0 or 1" : "a number"));
            arguments[i] = isFlag ? CGFloat(*flag) : *number;
        }
        return true;
    }

    std::string missing(std::string_view wanted) const {
        std::string message = "expected " + std::string(wanted);
        if (scanner.isAtEnd())
            return message + " before the end";
        const std::size_t digitAt = scanner.rest().find_first_not_of("+-.");
        if (digitAt <= 2 && isDigit(scanner.rest()[digitAt]) && wanted == "a number")
            return "the number is too large";
        return message + ", not " + quoted(scanner.peek());
    }

    CGPoint absolute(CGFloat x, CGFloat y) const {
        return isRelative ? current + CGPoint{x, y} : CGPoint{x, y};
    }

    /// Does what the command says. False, with nothing drawn, when a point is not finite.
    bool run(const Arguments& v) {
        switch (command) {
            case 'z':
                close();
                return true;
            case 'm':
                return move(absolute(v[0], v[1]));
            case 'l':
                return line(absolute(v[0], v[1]));
            case 'h':
                return line({absolute(v[0], 0).x, current.y});
            case 'v':
                return line({current.x, absolute(0, v[0]).y});
            case 'c':
                return cubic(absolute(v[0], v[1]), absolute(v[2], v[3]), absolute(v[4], v[5]));
            case 's':
                return cubic(reflected('c'), absolute(v[0], v[1]), absolute(v[2], v[3]));
            case 'q':
                return quadratic(absolute(v[0], v[1]), absolute(v[2], v[3]));
            case 't':
                return quadratic(reflected('q'), absolute(v[0], v[1]));
            default:
                return arc(v);
        }
    }

    /// The last control mirrored at the current point, if a command of that kind came before.
    CGPoint reflected(char kind) const {
        return lastCurve == kind ? current * 2 - lastControl : current;
    }

    void close() {
        if (isMoveFresh)
            beginContour();
        if (isContourOpen)
            path.closeSubpath();
        isContourOpen = false;
        isMoveFresh = false;
        current = start;
        lastCurve = 0;
    }

    bool move(CGPoint point) {
        if (!isFinite(point))
            return false;
        current = start = point;
        hasPoint = true;
        isContourOpen = false;
        isMoveFresh = true;
        lastCurve = 0;
        return true;
    }

    void beginContour() {
        if (!isContourOpen)
            path.moveTo(current);
        isContourOpen = true;
        isMoveFresh = false;
    }

    bool line(CGPoint point) {
        if (!isFinite(point))
            return false;
        beginContour();
        path.addLineTo(point);
        current = point;
        lastCurve = 0;
        return true;
    }

    bool cubic(CGPoint control1, CGPoint control2, CGPoint point) {
        if (!isFinite(control1) || !isFinite(control2) || !isFinite(point))
            return false;
        beginContour();
        path.addCurveTo(point, control1, control2);
        current = point;
        lastControl = control2;
        lastCurve = 'c';
        return true;
    }

    bool quadratic(CGPoint control, CGPoint point) {
        if (!cubic((current + control * 2) / 3.0, (point + control * 2) / 3.0, point))
            return false;
        lastControl = control;
        lastCurve = 'q';
        return true;
    }

    bool arc(const Arguments& v) {
        const EllipticalArc shape{current,  absolute(v[5], v[6]), v[0], v[1], v[2], v[3] != 0,
                                  v[4] != 0};
        if (!isFinite(shape.to))
            return false;
        const bool isLine = shape.radiusX == 0 || shape.radiusY == 0;
        const std::vector<CubicPiece> pieces = cubicPieces(shape);
        for (const CubicPiece& piece : pieces)
            if (isLine ? !line(piece.end) : !cubic(piece.control1, piece.control2, piece.end))
                return false;
        lastCurve = 0;
        return true;
    }

    SvgScanner scanner;
    std::size_t maximumCommands;
    CGMutablePath path;
    PathData result;

    char command = 0;  // in lower case
    bool isRelative = false;

    CGPoint current, start;
    bool hasPoint = false;
    bool isContourOpen = false;
    bool isMoveFresh = false;  // nothing has been drawn since the last move
    char lastCurve = 0;        // 'c' or 'q' when lastControl can be reflected
    CGPoint lastControl;
};

}  // namespace

PathData parsePathData(std::string_view text, std::size_t maximumCommands) {
    return PathDataParser(text, maximumCommands).parse();
}

}  // namespace quorin
