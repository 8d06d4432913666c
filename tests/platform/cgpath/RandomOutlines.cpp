#include "tests/platform/cgpath/RandomOutlines.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace quorin::test {

const char* nameOf(OutlineKind kind) {
    constexpr const char* names[] = {"blob",  "spiral", "scribble", "zigzag",    "wholeNumbers",
                                     "mixed", "detail", "farAway",  "degenerate"};
    return names[static_cast<std::size_t>(kind)];
}

CGFloat RandomOutlines::between(CGFloat low, CGFloat high) {
    return std::uniform_real_distribution(low, high)(random);
}

int RandomOutlines::wholeBetween(int low, int high) {
    return std::uniform_int_distribution(low, high)(random);
}

CGPoint RandomOutlines::pointWithin(const CGRect& box) {
    return {between(CGRectGetMinX(box), CGRectGetMaxX(box)),
            between(CGRectGetMinY(box), CGRectGetMaxY(box))};
}

void RandomOutlines::addRing(CGMutablePath& path, int cubics, CGPoint centre, CGFloat radius,
                             CGFloat turns) {
    const auto place = [&](CGFloat share) {
        const CGFloat angle = 2 * std::numbers::pi * share * turns;
        const CGFloat wave = 1 + 0.1 * std::sin(7 * angle) + 0.02 * std::sin(61 * angle);
        const CGFloat distance = radius * wave * (turns > 1 ? share : 1);
        return CGPoint{centre.x + distance * std::cos(angle),
                       centre.y + distance * std::sin(angle)};
    };
    const CGFloat jitter = radius / cubics;
    CGPoint current = place(0);
    path.moveTo(current);
    for (int index = 1; index <= cubics; ++index) {
        const CGPoint next = place(index == cubics && turns == 1 ? 0 : 1.0 * index / cubics);
        const auto control = [&](CGFloat share) {
            return CGPoint{current.x + (next.x - current.x) * share + between(-jitter, jitter),
                           current.y + (next.y - current.y) * share + between(-jitter, jitter)};
        };
        const CGPoint first = control(1.0 / 3);
        path.addCurveTo(next, first, control(2.0 / 3));
        current = next;
    }
}

void RandomOutlines::addScribble(CGMutablePath& path, int cubics) {
    const CGRect box = CGRectMake(0, 0, 1000, 1000);
    path.moveTo(pointWithin(box));
    for (int index = 0; index < cubics; ++index) {
        const CGPoint first = pointWithin(box), second = pointWithin(box);
        path.addCurveTo(pointWithin(box), first, second);
    }
}

void RandomOutlines::addZigzag(CGMutablePath& path, int cubics) {
    const CGFloat step = 1000.0 / cubics;
    path.moveTo({0, 0});
    for (int index = 0; index < cubics; ++index) {
        const CGFloat from = index % 2 == 0 ? 0 : 1000, to = 1000 - from;
        const auto x = [&] { return (index + between(-1, 2)) * step; };
        const CGPoint first{x(), from + (to - from) * between(0.1, 0.5)};
        const CGPoint second{x(), from + (to - from) * between(0.5, 0.9)};
        path.addCurveTo({(index + 1) * step, to}, first, second);
    }
}

void RandomOutlines::addWholeNumbers(CGMutablePath& path, int elements, int largest) {
    const auto place = [&] {
        const CGFloat x = wholeBetween(0, largest);
        return CGPoint{x, static_cast<CGFloat>(wholeBetween(0, largest))};
    };
    path.moveTo(place());
    for (int index = 0; index < elements; ++index) {
        const CGPoint first = place(), second = place(), end = place();
        switch (wholeBetween(0, 7)) {
            case 0:
                path.closeSubpath();
                break;
            case 1:
                path.moveTo(end);
                break;
            case 2:
            case 3:
                path.addLineTo(end);
                break;
            case 4:
                path.addQuadCurveTo(end, first);
                break;
            default:
                path.addCurveTo(end, first, second);
        }
    }
}

void RandomOutlines::addMixture(CGMutablePath& path, int elements) {
    CGMutablePath part;
    addWholeNumbers(part, elements, 1000);
    const CGFloat angle = between(0, 6), size = between(0.1, 3);
    const CGFloat cosine = size * std::cos(angle), sine = size * std::sin(angle);
    path.addPath(*part.take(), {cosine, sine, -sine, cosine, between(-9, 9), between(-9, 9)});
}

std::shared_ptr<const CGPath> RandomOutlines::path(int elements) {
    CGMutablePath path;
    switch (kind) {
        case OutlineKind::blob:
            addRing(path, elements, {500, 500}, 400, 1);
            break;
        case OutlineKind::spiral:
            addRing(path, elements, {500, 500}, 400, 10);
            break;
        case OutlineKind::scribble:
            addScribble(path, elements);
            break;
        case OutlineKind::zigzag:
            addZigzag(path, elements);
            break;
        case OutlineKind::wholeNumbers:
            addWholeNumbers(path, elements, 12);
            break;
        case OutlineKind::mixed:
            addMixture(path, elements / 2);
            addMixture(path, elements / 2);
            break;
        case OutlineKind::detail:
            addRing(path, elements, {300, 700}, 0.01, 1);
            path.addRect(CGRectMake(0, 0, 1e5, 1e5));
            break;
        case OutlineKind::farAway:
            addRing(path, elements, {1e12, -1e12}, 0.1, 1);
            addRing(path, elements, {1e12, -1e12}, 50, 3);
            break;
        case OutlineKind::degenerate:
            addWholeNumbers(path, elements, 1);
            break;
    }
    return path.take();
}

CGPoint RandomOutlines::pointFor(const CGPath& path) {
    std::vector<CGPoint> points;
    path.apply([&](const CGPathElement& element) {
        points.insert(points.end(), element.points.begin(), element.points.end());
    });
    const auto one = [&] {
        return points[static_cast<std::size_t>(
            wholeBetween(0, static_cast<int>(points.size()) - 1))];
    };
    const CGPoint anywhere = pointWithin(CGRectInset(path.boundingBox(), -1, -1));
    const CGPoint near = one();
    switch (wholeBetween(0, 5)) {
        case 0:
            return {anywhere.x, near.y};
        case 1:
            return {near.x, anywhere.y};
        case 2:
            return {near.x, one().y};
        case 3:
            return near;
        case 4:
            return {near.x + between(-2e-8, 2e-8), near.y + between(-2e-8, 2e-8)};
        default:
            return anywhere;
    }
}

}  // namespace quorin::test
