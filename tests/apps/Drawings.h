#pragma once

#include <string>

/// Small drawings for the program to work on.
namespace quorin::test {

/// 20 by 10 units: a rectangle with an id, a stroked line, and two circles painted even-odd as a
/// ring.
inline const std::string sampleSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="10" viewBox="0 0 20 10">
<rect id="box" x="1" y="2" width="4" height="3" fill="#ff0000"/>
<path id="line" d="M8 1 L8 9" fill="none" stroke="blue" stroke-width="2"/>
<path fill-rule="evenodd" d="M12 5 a3 3 0 0 1 6 0 a3 3 0 0 1 -6 0 z M14 5 a1 1 0 0 1 2 0 a1 1 0 0 1 -2 0 z"/>
</svg>
)";

/// A drawing of this content, its page given by the attributes.
inline std::string svgOf(const std::string& attributes, const std::string& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' " + attributes + ">" + content + "</svg>";
}

}  // namespace quorin::test
