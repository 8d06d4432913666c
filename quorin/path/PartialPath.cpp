#include "quorin/path/Path.h"

#include <cmath>
#include <optional>
#include <vector>

#include "quorin/geometry/Clamped.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/PathRebuild.h"

namespace quorin {
namespace {

constexpr ClosedRange<CGFloat> unitRange{0, 1};

bool isWholeRange(CGFloat from, CGFloat to) {
    return std::abs(from) < scalar::epsilon && std::abs(to - 1) < scalar::epsilon;
}

/// A part of a curve, between fractions of the curve's own length.
struct Stretch {
    CGFloat start, end;

    bool isWhole() const { return start == 0 && end == 1; }
};

CubicBezier cut(const CubicBezier& curve, const Stretch& stretch, CGFloat length) {
    const auto timeAt = [&](CGFloat fraction) {
        return curve.timeAt(fraction * length, std::nullopt).value_or(1);
    };
    const CGFloat start = timeAt(stretch.start);
    return curve.partialCurve(start, timeAt(stretch.end));
}

/// The curves of a path, each measured once.
class MeasuredCurves {
public:
    explicit MeasuredCurves(const Path& measured) : path(measured) {
        lengths.reserve(path.segments().count());
        forEachCurve(path, [this](const CubicBezier& curve) {
            lengths.push_back(curve.length());
            total += lengths.back();
        });
    }

    std::size_t count() const { return lengths.size(); }
    /// Adds what lies between two fractions of the whole length, which are clamped to [0, 1].
    void addStretch(CGFloat from, CGFloat to, PathRebuild& rebuild) const;

private:
    const Path& path;
    std::vector<CGFloat> lengths;
    CGFloat total = 0;
};

void MeasuredCurves::addStretch(CGFloat from, CGFloat to, PathRebuild& rebuild) const {
    from = clamped(from, unitRange);
    to = clamped(to, unitRange);
    if (std::abs(total) < scalar::epsilon || to <= from)
        return;

    const CGFloat start = from * total;
    const CGFloat end = to * total;
    CGFloat walked = 0;
    // Fractions are compared rather than lengths. NaN is in no range, so it selects nothing.
    const auto stretchOf = [&](CGFloat length) -> std::optional<Stretch> {
        const CGFloat a = walked / total;
        const CGFloat b = (walked + length) / total;
        const bool endsHere = a <= to && to <= b;
        const auto fractionAt = [&](CGFloat place) {
            return clamped((place - walked) / length, unitRange);
        };
        if (a <= from && from <= b && (endsHere || b < to))
            return Stretch{fractionAt(start), endsHere ? fractionAt(end) : 1};
        if (from < a && (endsHere || b < to))
            return Stretch{0, endsHere ? fractionAt(end) : 1};
        return std::nullopt;
    };
    walkCurves(path, [&](const CubicBezier& curve, std::size_t i) {
        const CGFloat length = lengths[i];
        if (length == 0)
            return false;
        const auto stretch = stretchOf(length);
        walked += length;
        if (!stretch)
            return false;
        if (stretch->isWhole())
            rebuild.add(curve);
        // A cut on an anchor leaves nothing of one curve; rounding must not make it something.
        else if ((stretch->end - stretch->start) * length >= scalar::epsilon * total)
            rebuild.add(cut(curve, *stretch, length));
        return false;
    });
}

std::shared_ptr<Path> stretchOf(const Path& path, CGFloat from, CGFloat to) {
    const MeasuredCurves curves(path);
    auto result = Path::create();
    PathRebuild rebuild(*result, curves.count());
    curves.addStretch(from, to, rebuild);
    rebuild.finish();
    return result;
}

/// Where a fraction of the way round stands in the first round.
CGFloat inFirstRound(CGFloat fraction) { return fraction - std::floor(fraction); }

}  // namespace

std::shared_ptr<Path> Path::partialPath(CGFloat from, CGFloat to) {
    return isWholeRange(from, to) ? shared_from_this() : stretchOf(*this, from, to);
}

std::shared_ptr<const Path> Path::partialPath(CGFloat from, CGFloat to) const {
    return isWholeRange(from, to) ? shared_from_this() : stretchOf(*this, from, to);
}

std::shared_ptr<Path> Path::partialPathAround(CGFloat from, CGFloat to) const {
    if (_isClosed ? to - from > 1 - scalar::epsilon : isWholeRange(from, to))
        return create(*this);
    if (!_isClosed)
        return stretchOf(*this, from, to);

    const CGFloat start = inFirstRound(from);
    const CGFloat end = inFirstRound(to);
    if (!(end < start))
        return stretchOf(*this, start, end);
    const MeasuredCurves curves(*this);
    auto result = create();
    PathRebuild rebuild(*result, curves.count() + 1);
    curves.addStretch(start, 1, rebuild);
    curves.addStretch(0, end, rebuild);
    rebuild.finish();
    return result;
}

}  // namespace quorin
