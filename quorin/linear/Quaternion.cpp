#include "quorin/linear/Quaternion.h"

#include "quorin/geometry/Clamped.h"
#include "quorin/linear/ComponentCoding.h"
#include "quorin/linear/FixedText.h"

namespace quorin {

namespace {

constexpr std::array<std::string_view, 4> keys = {"x", "y", "z", "w"};

}  // namespace

Quaternion Quaternion::withAxisAngle(const Vector4& axisAngle) {
    const CGFloat h = axisAngle.w / 2;
    const CGFloat sine = std::sin(h);
    return {axisAngle.x * sine, axisAngle.y * sine, axisAngle.z * sine, std::cos(h)};
}

Quaternion Quaternion::withPitchYawRoll(CGFloat pitch, CGFloat yaw, CGFloat roll) {
    const CGFloat cp = std::cos(pitch / 2), sp = std::sin(pitch / 2);
    const CGFloat cy = std::cos(yaw / 2), sy = std::sin(yaw / 2);
    const CGFloat cr = std::cos(roll / 2), sr = std::sin(roll / 2);
    return {cp * cy * cr - sp * sy * sr, cp * sy * sr + sp * cy * cr, cp * sy * cr + sp * cy * sr,
            cp * cy * sr - sp * sy * cr};
}

CGFloat Quaternion::pitch() const {
    return std::atan2(2 * (y * z + x * w), z * z + w * w - x * x - y * y);
}

CGFloat Quaternion::yaw() const { return std::asin(-2 * (x * z - y * w)); }

CGFloat Quaternion::roll() const {
    return std::atan2(2 * (x * y + z * w), x * x + w * w - y * y - z * z);
}

Vector4 Quaternion::toAxisAngle() const {
    const CGFloat s = xyz().length();
    if (isNearlyEqual(s, 0) || isNearlyEqual(s, scalar::twoPi))
        return {0, 0, 1, 0};
    return {x / s, y / s, z / s, 2 * std::acos(w)};
}

Quaternion Quaternion::interpolated(const Quaternion& with, CGFloat t) const {
    const CGFloat c = clamped(dot(with), ClosedRange{-1.0, 1.0});
    if (isNearlyEqual(c, 1))
        return (*this + (with - *this) * t).normalized();

    const CGFloat angle = std::acos(c) * t;
    const Quaternion orthogonal = (with - *this * c).normalized();
    return *this * std::cos(angle) + orthogonal * std::sin(angle);
}

std::string Quaternion::description() const {
    std::string text = "Quaternion( ";
    text.append(fixedText(x)).append(", ").append(fixedText(y)).append(", ");
    return text.append(fixedText(z)).append(", ").append(fixedText(w)).append(")");
}

void Quaternion::encode(Encoder& encoder) const {
    encodeComponents(encoder, keys, std::array{x, y, z, w});
}

Quaternion Quaternion::decode(Decoder& decoder) {
    const auto [x, y, z, w] = decodeComponents(decoder, keys);
    return {x, y, z, w};
}

}  // namespace quorin
