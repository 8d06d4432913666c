#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <ostream>
#include <random>

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/cgpath/CGPath.h"

namespace quorin::test {

enum class OutlineKind {
    blob,          // many short cubics around a shape
    spiral,        // the same, winding outwards
    scribble,      // cubics anywhere in a box of 1000
    zigzag,        // steep cubics side by side, each of the full height
    wholeNumbers,  // small whole coordinates: ends, turns and points at the same heights
    mixed,         // lines, quadratics and cubics, several subpaths, some open, moves of no effect
    detail,        // a tiny blob within a large frame
    farAway,       // around 1e12, where doubles are coarser than the reach of the outline
    degenerate,    // points, folds and lines on themselves
};

inline constexpr std::array allOutlineKinds{
    OutlineKind::blob,   OutlineKind::spiral,       OutlineKind::scribble,
    OutlineKind::zigzag, OutlineKind::wholeNumbers, OutlineKind::mixed,
    OutlineKind::detail, OutlineKind::farAway,      OutlineKind::degenerate,
};

const char* nameOf(OutlineKind kind);
inline void PrintTo(OutlineKind kind, std::ostream* stream) { *stream << nameOf(kind); }

/// Paths and points of one kind; the same in every run.
class RandomOutlines {
public:
    explicit RandomOutlines(OutlineKind outlineKind, std::uint64_t seed = 1)
        : kind(outlineKind), random(seed) {}

    /// A path of about as many elements.
    std::shared_ptr<const CGPath> path(int elements);
    /// A point to ask a path about: at one of its points, at the height or beside one, within
    /// reach or just beyond, or anywhere around.
    CGPoint pointFor(const CGPath& path);

    CGFloat between(CGFloat low, CGFloat high);
    int wholeBetween(int low, int high);

private:
    CGPoint pointWithin(const CGRect& box);
    void addRing(CGMutablePath& path, int cubics, CGPoint centre, CGFloat radius, CGFloat turns);
    void addScribble(CGMutablePath& path, int cubics);
    void addZigzag(CGMutablePath& path, int cubics);
    void addWholeNumbers(CGMutablePath& path, int elements, int largest);
    void addMixture(CGMutablePath& path, int elements);

    OutlineKind kind;
    std::mt19937_64 random;
};

}  // namespace quorin::test
