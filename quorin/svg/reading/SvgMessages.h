#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "quorin/svg/SvgReader.h"
#include "quorin/svg/reading/SvgText.h"

namespace quorin {

/// Says where in a text something is, in warnings that are collected and errors that are thrown.
class SvgMessages {
public:
    /// `text` has to outlive this.
    SvgMessages(std::string_view text, std::string_view fileName);

    /// The same warning about the same place is kept once, however often the place is drawn. Of
    /// very many warnings the first are kept.
    void warn(std::size_t offset, std::string message);
    [[noreturn]] void fail(std::size_t offset, std::string_view message) const;

    /// The warnings so far in the order of the text.
    std::vector<SvgWarning> take();

private:
    std::string_view text;
    std::string file;
    std::vector<SvgWarning> warnings;
    std::unordered_set<std::string> said;
    std::size_t dropped = 0;
};

}  // namespace quorin
