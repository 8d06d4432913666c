#include "quorin/path/Path.h"

#include <string>

#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

void PathSegment::encode(Encoder& encoder) const {
    encoder.encodePoint("point", _point);
    encoder.encodePoint("handleIn", _handleIn);
    encoder.encodePoint("handleOut", _handleOut);
    encoder.encodeInt("behavior", static_cast<std::int64_t>(_behavior));
    encoder.encodeNumber("radius", _radius);
}

PathSegment PathSegment::decode(Decoder& decoder) {
    PathSegment segment;
    segment._point = decoder.decodePoint("point");
    segment._handleIn = decoder.decodePoint("handleIn");
    segment._handleOut = decoder.decodePoint("handleOut");
    const std::int64_t rawBehavior = decoder.decodeInt("behavior");
    const auto behavior = quorin::pointBehavior(rawBehavior);
    if (!behavior)
        decoder.corrupted("behavior", std::to_string(rawBehavior) + " is not from 0 to 3");
    segment._behavior = *behavior;
    segment._radius = decoder.decodeNumber("radius");
    return segment;
}

void Path::encode(Encoder& encoder) const {
    encoder.encodeBool("isClosed", _isClosed);
    encoder.encodeRecords("segments", _segments.count(),
                          [this](Encoder& record, std::size_t i) { _segments[i].encode(record); });
}

std::shared_ptr<Path> Path::decode(Decoder& decoder) {
    auto path = create();
    path->_isClosed = decoder.decodeBool("isClosed");
    decoder.decodeRecords("segments", [&path](Decoder& record, std::size_t) {
        path->append(Segment::decode(record));
    });
    return path;
}

}  // namespace quorin
