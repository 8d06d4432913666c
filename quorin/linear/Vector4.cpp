#include "quorin/linear/Vector4.h"

#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

void Vector4::encode(Encoder& encoder) const {
    encoder.encodeNumber("x", x);
    encoder.encodeNumber("y", y);
    encoder.encodeNumber("z", z);
    encoder.encodeNumber("w", w);
}

Vector4 Vector4::decode(Decoder& decoder) {
    const CGFloat x = decoder.decodeNumber("x");
    const CGFloat y = decoder.decodeNumber("y");
    const CGFloat z = decoder.decodeNumber("z");
    const CGFloat w = decoder.decodeNumber("w");
    return {x, y, z, w};
}

}  // namespace quorin
