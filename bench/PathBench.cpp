/// Whole paths of many curves: building, bounding, hitting, filling.
#include "bench/BenchData.h"
#include "bench/PeerReport.h"
#include "bench/Peers.h"
#include "quorin/platform/cgpath/CGPath.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

constexpr std::size_t manyCubics = 100'000;
constexpr std::size_t fillCubics = 10'000;
const Geom::Point outside(5000, 5000), middle(500, 500);

/// A path in all its forms, kept for the whole run.
struct Subject {
    std::shared_ptr<Path> own;
    Geom::Path geom;
    QPainterPath qt;
    std::shared_ptr<cairo_t> cairo;

    explicit Subject(std::shared_ptr<Path> path)
        : own(std::move(path)), geom(toGeom(*own)), qt(toQt(*own)) {
        const std::shared_ptr<cairo_surface_t> surface(
            cairo_recording_surface_create(CAIRO_CONTENT_ALPHA, nullptr), cairo_surface_destroy);
        cairo.reset(cairo_create(surface.get()), cairo_destroy);
        cairo_set_line_width(cairo.get(), 4);
        addToCairo(cairo.get(), *own);
    }
};

template <typename Body>
void compareOnce(const std::string& work, const std::string& library, Body body) {
    compare(work, library, 1, [body] { benchmark::DoNotOptimize(body()); });
}

void registerBuilding() {
    const auto pointOf = [](std::size_t i) { return static_cast<CGFloat>(i % 1000); };
    const std::string work = "build a path of 100,000 anchors";
    compareOnce(work, ours, [=] {
        const auto path = Path::create();
        path->moveTo({0, 0});
        for (std::size_t i = 0; i < manyCubics; ++i) {
            const CGFloat x = pointOf(i);
            path->addCurveTo({x, x + 1}, {x, x}, {x + 1, x});
        }
        return path;
    });
    compareOnce(work, "Qt", [=] {
        QPainterPath path;
        path.moveTo(0, 0);
        for (std::size_t i = 0; i < manyCubics; ++i) {
            const CGFloat x = pointOf(i);
            path.cubicTo(x, x, x + 1, x, x, x + 1);
        }
        return path.elementCount();
    });
}

void registerBounds(const Subject& subject) {
    const std::string work = "tight bounds of 100,000 cubics";
    compareOnce(work, ours, [&] { return subject.own->boundingBox(); });
    compareOnce(work, "lib2geom", [&] { return subject.geom.boundsExact(); });
    compareOnce(work, "Qt", [&] {
        // Qt keeps the bounds; an element that is set to itself makes it forget them.
        QPainterPath& path = const_cast<QPainterPath&>(subject.qt);
        const auto element = path.elementAt(0);
        path.setElementPositionAt(0, element.x, element.y);
        return path.boundingRect();
    });
}

void registerHit(const std::string& name, const Subject& subject, Geom::Point at) {
    const CGPoint point = {at.x(), at.y()};
    const std::string hit = "hit test, " + name;
    compareOnce(hit, ours, [=, &subject] { return subject.own->hitTestOnPath(point, 2, 1); });
    compareOnce(hit, "cairo",
                [=, &subject] { return cairo_in_stroke(subject.cairo.get(), at.x(), at.y()); });

    const std::string nearest = "nearest location, " + name;
    compareOnce(nearest, ours, [=, &subject] {
        return subject.own->nearestCurveLocation(point, 2, scalar::greatestFinite)->distance();
    });
    compareOnce(nearest, "lib2geom", [=, &subject] {
        double distance = 0;
        benchmark::DoNotOptimize(subject.geom.nearestTime(at, &distance));
        return distance;
    });
}

void registerContains(const std::string& name, const Subject& subject) {
    const std::string again = "contains, " + name + ", asked again";
    const auto next = [state = std::make_shared<FixedNumbers>(9)] { return state->pointIn(1000); };
    compareOnce(again, ours, [=, &subject] { return subject.own->contains(next()); });
    compareOnce(again, "cairo", [=, &subject] {
        const CGPoint point = next();
        return cairo_in_fill(subject.cairo.get(), point.x, point.y);
    });
    compareOnce(again, "Qt", [=, &subject] {
        const CGPoint point = next();
        return subject.qt.contains(QPointF(point.x, point.y));
    });
    compareOnce("contains, " + name + ", first question", ours, [=, &subject] {
        subject.own->invalidatePathCache();
        return subject.own->contains(next());
    });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const Subject scribbled(scribble(manyCubics)), outlined(bumpyOutline(manyCubics));
    const Subject filledScribble(scribble(fillCubics)), filled(bumpyOutline(fillCubics));
    registerBuilding();
    registerBounds(scribbled);
    registerHit("100,000 long cubics, far", scribbled, outside);
    registerHit("100,000 long cubics, amid", scribbled, middle);
    registerHit("100,000 short cubics, far", outlined, outside);
    registerHit("100,000 short cubics, amid", outlined, middle);
    registerContains("10,000 short cubics", filled);
    registerContains("10,000 long cubics", filledScribble);
    return runComparison(argumentCount, arguments);
}
