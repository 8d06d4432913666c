#include <cmath>

#include "quorin/linear/Matrix4.h"

namespace quorin {

namespace {

CGFloat cotangent(CGFloat angle) { return std::cos(angle) / std::sin(angle); }

Matrix4 perspective(CGFloat sx, CGFloat sy, CGFloat near, CGFloat far) {
    return Matrix4::withColumns({sx, 0, 0, 0},                             //
                                {0, sy, 0, 0},                             //
                                {0, 0, -(near + far) / (far - near), -1},  //
                                {0, 0, -2 * near * far / (far - near), 0});
}

}  // namespace

Matrix4 Matrix4::withFovy(CGFloat fovy, CGFloat aspect, CGFloat near, CGFloat far) {
    const CGFloat sy = cotangent(fovy / 2);
    return perspective(sy / aspect, sy, near, far);
}

Matrix4 Matrix4::withFovxFovy(CGFloat fovx, CGFloat fovy, CGFloat near, CGFloat far) {
    return withFovy(fovy, fovx / fovy, near, far);
}

Matrix4 Matrix4::withFovx(CGFloat fovx, CGFloat aspect, CGFloat near, CGFloat far) {
    return withFovy(fovx / aspect, aspect, near, far);
}

}  // namespace quorin
