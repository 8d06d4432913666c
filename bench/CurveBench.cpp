/// One curve at a time: evaluating, measuring, searching and crossing it.
#include <2geom/line.h>
#include <2geom/polynomial.h>
#include <2geom/sbasis-geometric.h>
#include <2geom/solver.h>

#include <private/qbezier_p.h>

#include "bench/BenchData.h"
#include "bench/PeerReport.h"
#include "bench/Peers.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

struct Curves {
    std::vector<CubicBezier> own;
    std::vector<Geom::CubicBezier> geom;
    std::vector<QBezier> qt;
};

QBezier toQBezier(const CubicBezier& cubic) {
    const auto point = [](CGPoint p) { return QPointF(p.x, p.y); };
    return QBezier::fromPoints(point(cubic.p1), point(cubic.c1()), point(cubic.c2()),
                               point(cubic.p2));
}

const Curves& curves() {
    static const Curves all = [] {
        Curves made;
        made.own = randomCubics(1000);
        for (const CubicBezier& cubic : made.own) {
            made.geom.push_back(toGeom(cubic));
            made.qt.push_back(toQBezier(cubic));
        }
        return made;
    }();
    return all;
}

/// A point and a time for each curve, so that no two questions are the same.
const std::vector<CGPoint>& places() {
    static const std::vector<CGPoint> all = [] {
        FixedNumbers numbers(7);
        std::vector<CGPoint> made;
        for (std::size_t i = 0; i < curves().own.size(); ++i)
            made.push_back(numbers.pointIn(1000));
        return made;
    }();
    return all;
}

/// Asks `question(curve, i)` of every curve of a list.
template <typename Curve, typename Question>
void compareOver(const std::string& work, const std::string& library,
                 const std::vector<Curve>& list, Question question) {
    compare(work, library, list.size(), [&list, question] {
        for (std::size_t i = 0; i < list.size(); ++i)
            benchmark::DoNotOptimize(question(list[i], i));
    });
}

const std::vector<CGFloat>& times() {
    static const std::vector<CGFloat> all = [] {
        FixedNumbers numbers(8);
        std::vector<CGFloat> made;
        for (std::size_t i = 0; i < curves().own.size(); ++i)
            made.push_back(numbers.between(0, 1));
        return made;
    }();
    return all;
}

void registerEvaluation() {
    const std::string work = "evaluate a point";
    const CGFloat* const time = times().data();
    compareOver(work, ours, curves().own,
                [time](const CubicBezier& c, std::size_t i) { return c.pointAt(time[i]); });
    compareOver(work, "Qt", curves().qt,
                [time](const QBezier& c, std::size_t i) { return c.pointAt(time[i]); });
    compareOver(work, "lib2geom", curves().geom,
                [time](const Geom::CubicBezier& c, std::size_t i) { return c.pointAt(time[i]); });
}

void registerLength() {
    compareOver("arc length", ours, curves().own,
                [](const CubicBezier& c, std::size_t) { return c.length(); });
    compareOver("arc length", "lib2geom at 1e-2", curves().geom,
                [](const Geom::CubicBezier& c, std::size_t) { return c.length(1e-2); });
    compareOver("arc length", "Qt", curves().qt,
                [](const QBezier& c, std::size_t) { return c.length(); });
    compareOver("arc length to 1e-9", ours, curves().own,
                [](const CubicBezier& c, std::size_t) { return c.length(1e-9).length; });

    const std::string work = "time at a length";
    compareOver(work, ours, curves().own, [](const CubicBezier& c, std::size_t i) {
        return c.timeAt(100 + places()[i].y / 5, std::nullopt);
    });
    compareOver(work, "lib2geom", curves().geom, [](const Geom::CubicBezier& c, std::size_t i) {
        const double length = 100 + places()[i].y / 5;
        return Geom::roots(Geom::arcLengthSb(c.toSBasis(), 0.1) - length).size();
    });
    compareOver(work, "Qt", curves().qt, [](const QBezier& c, std::size_t i) {
        return c.tAtLength(100 + places()[i].y / 5);
    });
}

void registerNearest() {
    const std::string work = "nearest time";
    compareOver(work, ours, curves().own,
                [](const CubicBezier& c, std::size_t i) { return c.nearestTime(places()[i]); });
    compareOver(work, "lib2geom", curves().geom, [](const Geom::CubicBezier& c, std::size_t i) {
        return c.nearestTime(Geom::Point(places()[i].x, places()[i].y));
    });
    compareOver("nearest time, certified to 1e-9", ours, curves().own,
                [](const CubicBezier& c, std::size_t i) { return c.nearest(places()[i], 1e-9); });
}

void registerCrossings() {
    compareOver("line through a cubic", ours, curves().own,
                [](const CubicBezier& c, std::size_t i) {
                    return c.intesections(Line::along(places()[i], places()[i] - c.p1));
                });
    compareOver(
        "line through a cubic", "lib2geom", curves().geom,
        [](const Geom::CubicBezier& c, std::size_t i) {
            const Geom::Point from(places()[i].x, places()[i].y);
            const Geom::Line line(from, from + (from - c.initialPoint()));
            return c.intersect(Geom::LineSegment(line.pointAt(-10), line.pointAt(10))).size();
        });

    const std::string work = "real roots of a cubic in [0, 1]";
    compareOver(work, ours, curves().own, [](const CubicBezier& c, std::size_t i) {
        const PowerBasis basis = PowerBasis::of(c);
        return scalar::solveCubic(basis.a.y, basis.b.y, basis.c.y, basis.p1.y - places()[i].y, 0,
                                  1);
    });
    compareOver(work, "lib2geom", curves().own, [](const CubicBezier& c, std::size_t i) {
        const PowerBasis basis = PowerBasis::of(c);
        return Geom::solve_cubic(basis.a.y, basis.b.y, basis.c.y, basis.p1.y - places()[i].y);
    });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    registerEvaluation();
    registerLength();
    registerNearest();
    registerCrossings();
    return runComparison(argumentCount, arguments);
}
