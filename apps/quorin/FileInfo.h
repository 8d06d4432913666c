#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/quorin/PathSummary.h"
#include "quorin/svg/SvgReader.h"

namespace quorin::app {

/// What was found in one drawing, or why nothing was.
struct FileInfo {
    std::string file;
    CGSize size;
    CGRect viewBox;
    DrawingTotals totals;
    std::vector<PathSummary> paths;
    std::vector<SvgWarning> warnings;
    /// Why the drawing cannot be read: with and without its name.
    std::optional<std::string> error, reason;

    void encode(Encoder& encoder) const;
};

/// Reads the drawing; throws nothing.
FileInfo infoOf(const std::string& file);

}  // namespace quorin::app
