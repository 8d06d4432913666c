#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// A row or a column of views as it was written, for example "H:|-0-[child(40)]-8-|".
struct VisualFormat {
    struct View {
        std::string_view name;
        std::optional<CGFloat> extent;
        CGFloat distance = 0;  ///< from the view before it, or from the edge
    };

    bool isVertical = false;
    bool startsAtEdge = false, endsAtEdge = false;
    std::vector<View> views;   ///< at least one
    CGFloat lastDistance = 0;  ///< from the last view to the edge

    /// Refers to the text. One that is not well-formed stops the process, naming the place.
    static VisualFormat parse(std::string_view text);
};

}  // namespace quorin
