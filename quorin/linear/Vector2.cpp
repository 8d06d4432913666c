#include "quorin/linear/Vector2.h"

#include "quorin/linear/ComponentCoding.h"

namespace quorin {

namespace {

constexpr std::array<std::string_view, 2> keys = {"x", "y"};

}  // namespace

void Vector2::encode(Encoder& encoder) const { encodeComponents(encoder, keys, array()); }

Vector2 Vector2::decode(Decoder& decoder) { return Vector2(decodeComponents(decoder, keys)); }

}  // namespace quorin
