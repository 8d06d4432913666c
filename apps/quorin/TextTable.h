#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin::app {

struct TextColumn {
    enum class Side { left, right };

    std::string heading;
    Side side = Side::right;
};

/// Rows of text in aligned columns, for a terminal.
class TextTable {
public:
    explicit TextTable(std::vector<TextColumn> headings) : columns(std::move(headings)) {}

    /// A text for each column; the last ones may be missing.
    void add(std::vector<std::string> row) { rows.push_back(std::move(row)); }
    /// The headings and the rows, each with its line end.
    std::string text() const;

private:
    std::string line(const std::vector<std::string>& row,
                     const std::vector<std::size_t>& widths) const;

    std::vector<TextColumn> columns;
    std::vector<std::vector<std::string>> rows;
};

/// As a person wants it: at most three digits after the point, or three digits at all of a number
/// too small for that.
std::string shortText(CGFloat number);
std::string shortText(bool answer);
std::string shortText(std::size_t count);
/// "1 shape", "2 shapes".
std::string counted(std::size_t count, const std::string& what);

}  // namespace quorin::app
