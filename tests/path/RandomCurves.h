#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <ostream>
#include <random>

#include "quorin/path/CubicBezier.h"
#include "quorin/path/Path.h"

namespace quorin::test {

enum class CurveKind {
    anywhere,      // in a box of 1000
    wholeNumbers,  // small ones, so that distances tie and controls coincide
    tinyHandles,   // about as long as the handles that count as zero
    cusps,         // and near cusps
    loops,         // end where they start
    unevenLines,   // straight, the handles of any length, without the other or without both
    steep,         // in y from far away to 0, where they linger, and far away again
    huge,          // about 1e15 from the origin
    overflowing,   // squares of distances are infinite
    notFinite,     // some coordinates are infinite or not a number
};

inline constexpr std::array allCurveKinds{
    CurveKind::anywhere,    CurveKind::wholeNumbers, CurveKind::tinyHandles, CurveKind::cusps,
    CurveKind::loops,       CurveKind::unevenLines,  CurveKind::steep,       CurveKind::huge,
    CurveKind::overflowing, CurveKind::notFinite,
};
/// Those on which distances mean something.
inline constexpr std::array finiteCurveKinds{
    CurveKind::anywhere, CurveKind::wholeNumbers, CurveKind::tinyHandles, CurveKind::cusps,
    CurveKind::loops,    CurveKind::unevenLines,  CurveKind::steep,       CurveKind::huge,
};

const char* nameOf(CurveKind kind);
inline void PrintTo(CurveKind kind, std::ostream* stream) { *stream << nameOf(kind); }

/// Curves, points and paths of one kind; the same in every run.
class RandomCurves {
public:
    explicit RandomCurves(CurveKind curveKind, std::uint64_t seed = 1)
        : kind(curveKind), random(seed) {}

    CubicBezier curve();
    /// A point to ask about: at an anchor, on the curve, near it or anywhere.
    CGPoint pointFor(const CubicBezier& curve);
    CGFloat between(CGFloat low, CGFloat high);
    int wholeBetween(int low, int high);
    /// Curves of this kind, one after another.
    std::shared_ptr<Path> path(int curveCount, bool isClosed);

private:
    CGPoint place();
    CubicBezier lineWithHandles();

    CurveKind kind;
    std::mt19937_64 random;
};

}  // namespace quorin::test
