#include "quorin/linear/Vector2.h"

#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

void Vector2::encode(Encoder& encoder) const {
    encoder.encodeNumber("x", x);
    encoder.encodeNumber("y", y);
}

Vector2 Vector2::decode(Decoder& decoder) {
    const CGFloat x = decoder.decodeNumber("x");
    const CGFloat y = decoder.decodeNumber("y");
    return {x, y};
}

}  // namespace quorin
