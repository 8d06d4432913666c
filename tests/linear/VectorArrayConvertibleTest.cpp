#include "quorin/linear/VectorArrayConvertible.h"

#include "quorin/linear/Vector2.h"
#include "quorin/linear/Vector3.h"
#include "quorin/linear/Vector4.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

template <typename Type>
constexpr bool isConvertible = VectorArrayConvertible<Type>&& VectorFloatArrayConvertible<Type>;

static_assert(isConvertible<Vector2> && isConvertible<Vector3> && isConvertible<Vector4>);
static_assert(!VectorArrayConvertible<CGPoint> && !VectorFloatArrayConvertible<double>);

/// What a renderer does with any vector: through single precision and back.
template <VectorFloatArrayConvertible Vector>
Vector throughFloats(const Vector& vector) {
    const auto floats = vector.floatArray();
    return Vector(std::span<const float>(floats));
}

TEST(VectorArrayConvertible, servesGenericCode) {
    EXPECT_EQ(throughFloats(Vector2{0.5, 2}), (Vector2{0.5, 2}));
    EXPECT_EQ(throughFloats(Vector3{0.5, 2, -4}), (Vector3{0.5, 2, -4}));
    EXPECT_EQ(throughFloats(Vector4{0.5, 2, -4, 0.1}), (Vector4{0.5, 2, -4, 0.1f}));
}

}  // namespace
}  // namespace quorin
