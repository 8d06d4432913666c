#include "quorin/svg/reading/SvgMessages.h"

#include <algorithm>

namespace quorin {
namespace {

/// More than anybody reads, and few enough that a broken file cannot fill the memory with them.
constexpr std::size_t mostWarnings = 1'000;

}  // namespace

SvgMessages::SvgMessages(std::string_view source, std::string_view fileName)
    : text(source), file(repairedUtf8(fileName)) {}

void SvgMessages::warn(std::size_t offset, std::string message) {
    if (warnings.size() == mostWarnings) {
        ++dropped;
        return;
    }
    message = repairedUtf8(message);
    if (said.insert(std::to_string(offset) + message).second)
        warnings.push_back({file, 1, offset, std::move(message)});
}

void SvgMessages::fail(std::size_t offset, std::string_view message) const {
    throw SvgError(file, SvgLines(text).lineOf(offset), repairedUtf8(message));
}

std::vector<SvgWarning> SvgMessages::take() {
    std::stable_sort(warnings.begin(), warnings.end(),
                     [](const SvgWarning& a, const SvgWarning& b) { return a.offset < b.offset; });
    if (dropped > 0)
        warnings.push_back({file, 1, warnings.back().offset,
                            std::to_string(dropped) + " more warnings are left out"});
    if (!warnings.empty()) {
        const SvgLines lines(text);
        for (SvgWarning& warning : warnings)
            warning.line = lines.lineOf(warning.offset);
    }
    return std::move(warnings);
}

}  // namespace quorin
