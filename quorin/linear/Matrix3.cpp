#include "quorin/linear/Matrix3.h"

#include <cmath>

#include "quorin/linear/ComponentCoding.h"

namespace quorin {

namespace {

constexpr std::array<std::string_view, 9> keys = {"m11", "m12", "m13",  //
                                                  "m21", "m22", "m23",  //
                                                  "m31", "m32", "m33"};

}  // namespace

Matrix3 Matrix3::withRotation(CGFloat angle) {
    const CGFloat cosine = std::cos(angle);
    const CGFloat sine = std::sin(angle);
    return {cosine, sine, 0, -sine, cosine, 0, 0, 0, 1};
}

void Matrix3::encode(Encoder& encoder) const { encodeComponents(encoder, keys, array()); }

Matrix3 Matrix3::decode(Decoder& decoder) { return Matrix3(decodeComponents(decoder, keys)); }

}  // namespace quorin
