#pragma once

#include <cstddef>

#include "quorin/path/Anchor.h"
#include "quorin/path/CubicBezier.h"
#include "quorin/path/Path.h"

namespace quorin {

/// Replaces the segments of a path by those of a run of curves, as `Path::setCurves` describes it,
/// one curve at a time: a caller who makes its curves on the way needs no list of them. The curves
/// must not be read from the anchors of the path itself, which are gone from the start.
class PathRebuild {
public:
    explicit PathRebuild(Path& rebuilt, std::size_t curveCount = 0);

    void add(const CubicBezier& curve) {
        if (isEmpty)
            addFirst(curve);
        else
            fill(path.append(), curve.p1, last.h2, curve.h1);
        last = curve;
    }
    /// Sets the anchor at the end of the last curve. To be called once, after all curves.
    void finish();

private:
    void addFirst(const CubicBezier& curve);
    static void fill(PathAnchor& anchor, CGPoint point, CGPoint handleIn, CGPoint handleOut);

    Path& path;
    bool isEmpty = true;
    CGPoint firstHandleOut;
    CubicBezier last;
};

}  // namespace quorin
