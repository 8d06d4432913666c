#include "quorin/linear/Vector4.h"

#include "quorin/linear/ComponentCoding.h"

namespace quorin {

namespace {

constexpr std::array<std::string_view, 4> keys = {"x", "y", "z", "w"};

}  // namespace

void Vector4::encode(Encoder& encoder) const { encodeComponents(encoder, keys, array()); }

Vector4 Vector4::decode(Decoder& decoder) { return Vector4(decodeComponents(decoder, keys)); }

}  // namespace quorin
