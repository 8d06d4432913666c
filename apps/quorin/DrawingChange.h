#pragma once

#include <string>
#include <utility>
#include <vector>

#include "apps/quorin/DrawingFile.h"

namespace quorin::app {

/// A drawing as it was read, with what a person wants to know when it has become another.
class DrawingReading {
public:
    explicit DrawingReading(LoadedDrawing loaded);

    const Drawing& drawing() const { return loaded.drawing; }

    /// "size 24x24, paths 2, anchors 4, length 62.63, box 4,4 16x16"
    std::string numbers() const;
    /// What has become of an earlier reading, as in "paths 2 -> 3, length 62.63 -> 80"; of changes
    /// that no number shows where they are, and "unchanged drawing" when there is none.
    std::string changesSince(const DrawingReading& before) const;
    /// The warnings that the earlier reading did not have, wherever in the text they stood. All of
    /// them without one.
    std::vector<std::string> newWarnings(const DrawingReading* before) const;

private:
    LoadedDrawing loaded;
    std::vector<std::pair<std::string, std::string>> fields;  // name, value
    std::string record;                                       // all of the drawing
};

}  // namespace quorin::app
