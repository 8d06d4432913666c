/// Whole paths that are cut and transformed.
#include <2geom/sbasis-geometric.h>
#include <2geom/transforms.h>

#include <private/qbezier_p.h>

#include <QTransform>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numeric>

#include "bench/BenchData.h"
#include "bench/PeerReport.h"
#include "bench/Peers.h"
#include "quorin/linear/Vector3.h"
#include "quorin/path/CurveLocation.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr std::size_t trimmedCubics = 1000;
constexpr std::size_t manyCubics = 100'000;
constexpr double start = 0.2, end = 0.7;
/// How exactly the peers measure a curve of about 900 points; ours is off by 0.2 on average.
constexpr double lengthError = 1;

void require(bool holds, const char* what, double number) {
    if (holds)
        return;
    std::fprintf(stderr, "PathEditBench: %s: %g\n", what, number);
    std::exit(1);
}

/// A fraction of a whole: the curve it lies on, and the length that is left to go there.
struct Cut {
    std::size_t curve;
    double rest;
};

Cut cutAt(const std::vector<double>& lengths, double place) {
    std::size_t curve = 0;
    while (curve + 1 < lengths.size() && place > lengths[curve])
        place -= lengths[curve++];
    return {curve, place};
}

/// What a program does that trims with lib2geom, which has parts of paths between times.
Geom::Path trimmed(const Geom::Path& path) {
    std::vector<double> lengths;
    lengths.reserve(path.size());
    for (const Geom::Curve& curve : path)
        lengths.push_back(curve.length(lengthError));
    const double whole = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    const auto timeOf = [&](double fraction) {
        const auto [index, rest] = cutAt(lengths, fraction * whole);
        const auto walked = Geom::arcLengthSb(path[index].toSBasis(), 0.1) - rest;
        const std::vector<double> roots = Geom::roots(walked);
        return Geom::PathTime(index, roots.empty() ? 1 : roots.front());
    };
    return path.portion(timeOf(start), timeOf(end));
}

/// And with Qt, whose curves have lengths, times at lengths and intervals.
QPainterPath trimmed(const std::vector<QBezier>& curves) {
    std::vector<double> lengths;
    lengths.reserve(curves.size());
    for (const QBezier& curve : curves)
        lengths.push_back(curve.length(lengthError));
    const double whole = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    const Cut first = cutAt(lengths, start * whole), last = cutAt(lengths, end * whole);

    QPainterPath path;
    for (std::size_t i = first.curve; i <= last.curve; ++i) {
        const double from = i == first.curve ? curves[i].tAtLength(first.rest) : 0;
        const double to = i == last.curve ? curves[i].tAtLength(last.rest) : 1;
        const QBezier part =
            from == 0 && to == 1 ? curves[i] : curves[i].bezierOnInterval(from, to);
        if (i == first.curve)
            path.moveTo(part.pt1());
        path.cubicTo(part.pt2(), part.pt3(), part.pt4());
    }
    return path;
}

std::vector<QBezier> qtCurves(const QPainterPath& path) {
    std::vector<QBezier> curves;
    for (int i = 0; i + 3 < path.elementCount(); i += 3)
        curves.push_back(QBezier::fromPoints(path.elementAt(i), path.elementAt(i + 1),
                                             path.elementAt(i + 2), path.elementAt(i + 3)));
    return curves;
}

struct Trimmed {
    std::shared_ptr<Path> own = scribble(trimmedCubics);
    Geom::Path geom = toGeom(*own);
    std::vector<QBezier> qt = qtCurves(toQt(*own));
};

void registerTrimming(const Trimmed& subject) {
    const double half = (end - start) * subject.own->length(1e-6).length;
    const auto part = subject.own->partialPath(start, end);
    const double length = part->length(1e-6).length;
    require(std::abs(length - half) < 1e-3 * half, "length of our part", length);
    const QPainterPath qt = trimmed(subject.qt);
    require(std::abs(qt.length() - half) < 1e-2 * half, "length of Qt's part", qt.length());
    const Geom::Path geom = trimmed(subject.geom);
    const double count = static_cast<double>(part->segments().count()) - 1;
    require(std::abs(static_cast<double>(geom.size()) - count) <= 1, "curves of lib2geom's part",
            static_cast<double>(geom.size()));
    const CGPoint tip = part->segments()[0].point();
    const double gap = distance(tip, {geom.initialPoint().x(), geom.initialPoint().y()});
    require(gap < 50, "distance from lib2geom's start", gap);

    const std::string work = "trim 1,000 cubics from 20 % to 70 %";
    compare(work, ours, 1, [&] { benchmark::DoNotOptimize(subject.own->partialPath(start, end)); });
    compare(work, "lib2geom", 1, [&] { benchmark::DoNotOptimize(trimmed(subject.geom)); });
    compare(work, "Qt", 1, [&] { benchmark::DoNotOptimize(trimmed(subject.qt)); });
    compare("the same around the first anchor", ours, 1, [own = Path::create(*subject.own)] {
        own->setIsClosed(true);
        benchmark::DoNotOptimize(own->partialPathAround(end, start));
    });
}

/// Paths that are changed in place, so that every library goes on from where it was.
struct Transformed {
    std::shared_ptr<Path> own = scribble(manyCubics);
    Geom::Path geom = toGeom(*own);
    QPainterPath qt = toQt(*own);
};

void requireSameBoxes(const Transformed& subject, const char* what) {
    const CGRect own = subject.own->boundingBox();
    const QRectF qt = subject.qt.boundingRect();
    const Geom::Rect geom = *subject.geom.boundsExact();
    require(std::abs(qt.left() - own.origin.x) + std::abs(geom.left() - own.origin.x) < 1e-6, what,
            own.origin.x);
    require(std::abs(qt.width() - own.size.width) + std::abs(geom.width() - own.size.width) < 1e-6,
            what, own.size.width);
}

void registerTransforms(Transformed& subject) {
    const Geom::Affine mirror = Geom::Scale(-1, 1), shift = Geom::Translate(3, 4);
    subject.own->scale({-1, 1, 1});
    subject.geom *= mirror;
    subject.qt = QTransform::fromScale(-1, 1).map(subject.qt);
    requireSameBoxes(subject, "box after scaling");
    subject.own->moveBy({3, 4});
    subject.geom *= shift;
    subject.qt.translate(3, 4);
    requireSameBoxes(subject, "box after moving");

    const std::string scaling = "scale 100,000 anchors in place";
    compare(scaling, ours, 1, [&] {
        subject.own->scale({-1, 1, 1});
        benchmark::ClobberMemory();
    });
    compare(scaling, "lib2geom", 1, [&] { subject.geom *= mirror; });
    compare(scaling, "Qt", 1, [&] { subject.qt = QTransform::fromScale(-1, 1).map(subject.qt); });

    const std::string moving = "move 100,000 anchors in place";
    compare(moving, ours, 1, [&] {
        subject.own->moveBy({3, 4});
        benchmark::ClobberMemory();
    });
    compare(moving, "lib2geom", 1, [&] { subject.geom *= shift; });
    compare(moving, "Qt", 1, [&] { subject.qt.translate(3, 4); });

    const std::string reversing = "reverse 100,000 anchors";
    compare(reversing, ours, 1, [&] {
        subject.own->reverse();
        benchmark::ClobberMemory();
    });
    compare(reversing, "lib2geom", 1, [&] { benchmark::DoNotOptimize(subject.geom.reversed()); });
    compare(reversing, "Qt", 1, [&] { benchmark::DoNotOptimize(subject.qt.toReversed()); });
}

void registerInsertion() {
    const std::string work = "insert an anchor among 1,000";
    const auto path = scribble(trimmedCubics);
    const PathCurveLocation middle(path->curves()[500], 0.5);
    const auto copied = [path] { return Path::create(*path); };
    compare(work, ours, 1, [=] { benchmark::DoNotOptimize(copied()->insertAnchorAt(middle)); });
    compare(work + ", rebuilding all", ours, 1,
            [=] { benchmark::DoNotOptimize(copied()->insertSegmentAt(middle)); });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const Trimmed shortPath;
    Transformed longPath;
    registerTrimming(shortPath);
    registerTransforms(longPath);
    registerInsertion();
    return runComparison(argumentCount, arguments);
}
