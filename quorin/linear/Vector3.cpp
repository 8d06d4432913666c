#include "quorin/linear/Vector3.h"

#include "quorin/linear/FixedText.h"
#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

std::string Vector3::description() const {
    std::string text = "Vector3( ";
    text.append(fixedText(x)).append(", ").append(fixedText(y));
    return text.append(", ").append(fixedText(z)).append(")");
}

void Vector3::encode(Encoder& encoder) const {
    encoder.encodeNumber("x", x);
    encoder.encodeNumber("y", y);
    encoder.encodeNumber("z", z);
}

Vector3 Vector3::decode(Decoder& decoder) {
    const CGFloat x = decoder.decodeNumber("x");
    const CGFloat y = decoder.decodeNumber("y");
    const CGFloat z = decoder.decodeNumber("z");
    return {x, y, z};
}

}  // namespace quorin
