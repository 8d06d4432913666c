#include "quorin/linear/Vector3.h"

#include "quorin/linear/ComponentCoding.h"
#include "quorin/linear/FixedText.h"

namespace quorin {

namespace {

constexpr std::array<std::string_view, 3> keys = {"x", "y", "z"};

}  // namespace

std::string Vector3::description() const {
    std::string text = "Vector3( ";
    text.append(fixedText(x)).append(", ").append(fixedText(y));
    return text.append(", ").append(fixedText(z)).append(")");
}

void Vector3::encode(Encoder& encoder) const { encodeComponents(encoder, keys, array()); }

Vector3 Vector3::decode(Decoder& decoder) { return Vector3(decodeComponents(decoder, keys)); }

}  // namespace quorin
