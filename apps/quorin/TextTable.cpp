#include "apps/quorin/TextTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace quorin::app {

namespace {

/// Columns a terminal needs: the bytes of UTF-8 that start a character.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

/// "2.500" as "2.5", "3.000" as "3".
std::string withoutIdleZeros(std::string text) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

}  // namespace

std::string TextTable::text() const {
    std::vector<std::string> headings;
    std::vector<std::size_t> widths;
    for (const TextColumn& column : columns) {
        headings.push_back(column.heading);
        widths.push_back(widthOf(column.heading));
    }
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(row[i]));

    std::string text = line(headings, widths);
    for (const auto& row : rows)
        text += line(row, widths);
    return text;
}

std::string TextTable::line(const std::vector<std::string>& row,
                            const std::vector<std::size_t>& widths) const {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string padding(widths[i] - widthOf(row[i]), ' ');
        if (i > 0)
            line += "  ";
        line += columns[i].side == TextColumn::Side::left ? row[i] + padding : padding + row[i];
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + '\n';
}

std::string shortText(CGFloat number) {
    const CGFloat size = std::abs(number);
    // Beyond 2^53 a double has no digits after the point, and fixed form no end.
    const bool isFixed = (size >= 0.0005 && size < 9'007'199'254'740'992.0) || size == 0;
    std::array<char, 32> buffer;
    std::snprintf(buffer.data(), buffer.size(), isFixed ? "%.3f" : "%.3g", size);
    std::string text = number < 0 ? "-" : "";
    return text.append(isFixed ? withoutIdleZeros(buffer.data()) : std::string(buffer.data()));
}

std::string shortText(bool answer) { return answer ? "yes" : "no"; }

std::string shortText(std::size_t count) { return std::to_string(count); }

std::string counted(std::size_t count, const std::string& what) {
    std::string text = std::to_string(count);
    text.append(" ").append(what);
    return count == 1 ? text : text + 's';
}

}  // namespace quorin::app
