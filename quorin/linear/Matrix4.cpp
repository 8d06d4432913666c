#include "quorin/linear/Matrix4.h"

#include <cmath>

#include "quorin/linear/ComponentCoding.h"
#include "quorin/linear/FixedText.h"
#include "quorin/linear/Quaternion.h"
#include "quorin/linear/TransformDecomposition.h"

namespace quorin {

namespace {

constexpr std::array<std::string_view, 16> keys = {"m11", "m12", "m13", "m14",  //
                                                   "m21", "m22", "m23", "m24",  //
                                                   "m31", "m32", "m33", "m34",  //
                                                   "m41", "m42", "m43", "m44"};

}  // namespace

Matrix4 Matrix4::withRotation(const Vector4& axisAngle) {
    return Quaternion::withAxisAngle(axisAngle).rotationMatrix();
}

Matrix4 Matrix4::withQuaternion(const Quaternion& quaternion) {
    return quaternion.rotationMatrix();
}

Matrix4 Matrix4::rotate(const Vector3& angles) const {
    const CGFloat cx = std::cos(angles.x), sx = std::sin(angles.x);
    const CGFloat cy = std::cos(angles.y), sy = std::sin(angles.y);
    const CGFloat cz = std::cos(angles.z), sz = std::sin(angles.z);
    const Matrix4 aboutX(1, 0, 0, 0, 0, cx, sx, 0, 0, -sx, cx, 0, 0, 0, 0, 1);
    const Matrix4 aboutY(cy, 0, -sy, 0, 0, 1, 0, 0, sy, 0, cy, 0, 0, 0, 0, 1);
    const Matrix4 aboutZ(cz, sz, 0, 0, -sz, cz, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    return *this * aboutX * aboutY * aboutZ;
}

std::string Matrix4::description() const {
    const std::array<CGFloat, 16> rows = transpose().array();
    std::string text = "[ ";
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0)
            text.append(i % 4 == 0 ? ", \n  " : ", ");
        text.append(fixedText(rows[i]));
    }
    text.append(" ]\nisAffine: ").append(isAffine() ? "true" : "false");

    const auto [translation, quaternion, scales] = decompose();
    const Vector3 degrees = quaternion.rotationVector() * scalar::degreesPerRadian;
    text.append("\nT: ").append(translation.description());
    text.append("\nR: ").append(degrees.description());
    text.append("\nS: ").append(scales.description());
    text.append("\nQ: ").append(quaternion.description());
    return text.append("\n");
}

void Matrix4::encode(Encoder& encoder) const { encodeComponents(encoder, keys, array()); }

Matrix4 Matrix4::decode(Decoder& decoder) { return Matrix4(decodeComponents(decoder, keys)); }

}  // namespace quorin
