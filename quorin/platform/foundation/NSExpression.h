#pragma once

#include <cstddef>
#include <string_view>

namespace quorin {

/// Arithmetic as people type it: decimal numbers (`12`, `.5`, `5.`), the operators `+ - * /` with
/// the usual precedence, unary minus, parentheses. Blanks and line ends between them are skipped.
namespace NSExpression {

inline constexpr std::size_t maximumNesting = 256;  // of parentheses

/// What the text comes to in doubles, each operation rounded, from left to right. Dividing by zero
/// gives an infinity or NaN. Takes time proportional to the text and a fixed amount of stack.
///
/// Throws `PlatformException` for everything else, unary plus and exponents included, and for
/// parentheses nested too deeply. Its reason names the column, counted in characters from 1, and
/// what stands there.
double value(std::string_view format);

}  // namespace NSExpression

}  // namespace quorin
