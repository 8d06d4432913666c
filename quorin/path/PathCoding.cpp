#include "quorin/path/Path.h"

#include <string>

#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

void PathSegment::encode(Encoder& encoder) const {
    encoder.encodePoint("point", anchor.point);
    encoder.encodePoint("handleIn", anchor.handleIn);
    encoder.encodePoint("handleOut", anchor.handleOut);
    encoder.encodeInt("behavior", static_cast<std::int64_t>(anchor.behavior));
    encoder.encodeNumber("radius", anchor.radius);
}

PathSegment PathSegment::decode(Decoder& decoder) {
    PathSegment segment;
    segment.anchor.point = decoder.decodePoint("point");
    segment.anchor.handleIn = decoder.decodePoint("handleIn");
    segment.anchor.handleOut = decoder.decodePoint("handleOut");
    const std::int64_t rawBehavior = decoder.decodeInt("behavior");
    const auto behavior = quorin::pointBehavior(rawBehavior);
    if (!behavior)
        decoder.corrupted("behavior", std::to_string(rawBehavior) + " is not from 0 to 3");
    segment.anchor.behavior = *behavior;
    segment.anchor.radius = decoder.decodeNumber("radius");
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
        path->_segments.append(Segment::decode(record));
    });
    return path;
}

}  // namespace quorin
