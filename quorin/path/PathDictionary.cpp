#include "quorin/path/Path.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/Value.h"

namespace quorin {
namespace {

const Value& entryOf(const Value::Map& map, std::string_view key) {
    static const Value nothing;
    const auto entry = map.find(key);
    return entry == map.end() ? nothing : entry->second;
}

CGFloat numberOf(const Value::Map& map, std::string_view key) {
    return entryOf(map, key).asNumber().value_or(0);
}

/// Turns points about a centre.
class Rotation {
public:
    Rotation(CGPoint turnedAbout, CGFloat angle)
        : center(turnedAbout), cosine(std::cos(angle)), sine(std::sin(angle)) {}

    CGPoint operator()(CGPoint p) const {
        const CGPoint d = p - center;
        return {center.x + cosine * d.x - sine * d.y, center.y + sine * d.x + cosine * d.y};
    }

private:
    CGPoint center;
    CGFloat cosine, sine;
};

std::optional<CGPoint> pointOf(const Value::Map& record, std::string_view key,
                               const Rotation& turned) {
    const Value::Map* point = entryOf(record, key).asMap();
    if (!point)
        return std::nullopt;
    return turned({numberOf(*point, "x"), numberOf(*point, "y")});
}

/// Writers that know one kind of number store the mode as a double.
std::optional<PointBehavior> behaviorOf(const Value& mode) {
    const NSNumber* number = mode.asNSNumber();
    if (!number || number->isBoolean() || NSNumber(number->integerValue()) != *number)
        return std::nullopt;
    return pointBehaviorWithSketchRawValue(number->integerValue());
}

void read(const Value::Map& record, const Rotation& turned, PathAnchor& anchor) {
    if (const auto point = pointOf(record, "point", turned))
        anchor.point = *point;
    if (const auto control = pointOf(record, "curveTo", turned))
        anchor.handleIn = *control - anchor.point;
    if (const auto control = pointOf(record, "curveFrom", turned))
        anchor.handleOut = *control - anchor.point;
    if (entryOf(record, "hasTo").asBool() == false)
        anchor.handleIn = CGPoint::zero;
    if (entryOf(record, "hasFrom").asBool() == false)
        anchor.handleOut = CGPoint::zero;

    if (const auto behavior = behaviorOf(entryOf(record, "behaviorMode")))
        anchor.behavior = *behavior;
    anchor.radius = numberOf(record, "radius");
}

/// The entries of a list of maps; one entry of another type, and it is no such list.
std::span<const Value> segmentsOf(const Value::Map& map) {
    const Value::List* list = entryOf(map, "segments").asList();
    const auto isMap = [](const Value& entry) { return entry.asMap() != nullptr; };
    if (!list || !std::ranges::all_of(*list, isMap))
        return {};
    return *list;
}

bool isWholeTurn(CGFloat angle) {
    return !(std::abs(std::remainder(angle, scalar::twoPi)) > scalar::epsilon);
}

}  // namespace

std::shared_ptr<Path> Path::create(const Value& with, const CGRect& frame) {
    auto path = create();
    const Value::Map* map = with.asMap();
    if (!map)
        return path;

    path->_isClosed = entryOf(*map, "isClosed").asBool().value_or(false);
    const CGFloat angle = numberOf(*map, "pathRotation") * -scalar::radiansPerDegree;
    const Rotation turned({CGRectGetMidX(frame), CGRectGetMidY(frame)}, angle);
    const auto segments = segmentsOf(*map);
    path->_segments.reserve(segments.size());
    for (const Value& segment : segments)
        read(*segment.asMap(), turned, path->append());

    // A turned outline was stored where it lay in its frame before the turn.
    if (!isWholeTurn(angle))
        if (const CGPoint origin = path->boundingBox().origin; origin != CGPoint::zero)
            path->moveBy(-origin);
    return path;
}

}  // namespace quorin
