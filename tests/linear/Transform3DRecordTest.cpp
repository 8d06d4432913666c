#include "quorin/linear/Transform3DRecord.h"

#include <array>
#include <bit>
#include <limits>

#include "quorin/platform/values/KeyedCoding.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

using Bytes = std::vector<std::uint8_t>;

template <std::size_t count>
Bytes groupAt(const Bytes& data) {
    return {data.begin() + count, data.begin() + count + 8};
}

TEST(Transform3DRecord, ofTheIdentityHoldsFourOnesIn128Bytes) {
    const Bytes data = encodeToDataWith64bit(CATransform3D::identity);
    Bytes expected(128, 0);
    for (const std::size_t offset : {0U, 40U, 80U, 120U}) {
        expected[offset + 6] = 0xF0;
        expected[offset + 7] = 0x3F;
    }
    EXPECT_EQ(data, expected);
}

TEST(Transform3DRecord, holdsTheFieldsRowAfterRow) {
    const CATransform3D numbered{11, 12, 13, 14, 21, 22, 23, 24, 31, 32, 33, 34, 41, 42, 43, 44};
    const Bytes data = encodeToDataWith64bit(numbered);
    EXPECT_EQ(groupAt<8>(data), (Bytes{0, 0, 0, 0, 0, 0, 0x28, 0x40}));    // m12 = 12
    EXPECT_EQ(groupAt<32>(data), (Bytes{0, 0, 0, 0, 0, 0, 0x35, 0x40}));   // m21 = 21
    EXPECT_EQ(groupAt<120>(data), (Bytes{0, 0, 0, 0, 0, 0, 0x46, 0x40}));  // m44 = 44
    EXPECT_EQ(CATransform3DWithData(data), numbered);
}

TEST(Transform3DRecord, putsTheLeastSignificantByteFirst) {
    CATransform3D transform;
    transform.m11 = std::bit_cast<CGFloat>(std::uint64_t{0x0123456789ABCDEF});
    EXPECT_THAT(groupAt<0>(encodeToDataWith64bit(transform)),
                ElementsAre(0xEF, 0xCD, 0xAB, 0x89, 0x67, 0x45, 0x23, 0x01));
}

TEST(Transform3DRecord, returnsNegativeZeroAndNaNPayloadsBitForBit) {
    const std::array<std::uint64_t, 16> bits{
        0x8000000000000000,  // -0.0
        0x7FF8000000000000,  // the usual NaN
        0xFFF8000000000000,  // with a sign
        0x7FF8DEADBEEFCAFE,  // with a payload
        0x7FF0000000000001,  // signalling
        0xFFF4000012345678,  // signalling with a sign and a payload
        0x7FF0000000000000,  // infinity
        0x0000000000000001,  // the least number
    };
    const auto back =
        CATransform3DWithData(encodeToDataWith64bit(std::bit_cast<CATransform3D>(bits)));
    EXPECT_THAT((std::bit_cast<std::array<std::uint64_t, 16>>(back)), ElementsAreArray(bits));
}

RC_GTEST_PROP(Transform3DRecord, returnsEvery128BytesBitForBit, ()) {
    const Bytes data = *rc::gen::container<Bytes>(128, rc::gen::arbitrary<std::uint8_t>());
    RC_ASSERT(encodeToDataWith64bit(CATransform3DWithData(data)) == data);
}

RC_GTEST_PROP(Transform3DRecord, returnsEveryTransformBitForBit, ()) {
    const auto bits =
        *rc::gen::container<std::array<std::uint64_t, 16>>(rc::gen::arbitrary<std::uint64_t>());
    const auto back =
        CATransform3DWithData(encodeToDataWith64bit(std::bit_cast<CATransform3D>(bits)));
    RC_ASSERT((std::bit_cast<std::array<std::uint64_t, 16>>(back)) == bits);
}

TEST(Transform3DRecord, isReadFromAnyPlaceInMemory) {
    Bytes data(1, 0xAA);
    const Bytes record = encodeToDataWith64bit(CATransform3D::identity);
    data.insert(data.end(), record.begin(), record.end());
    EXPECT_EQ(CATransform3DWithData(std::span(data).subspan(1)), CATransform3D::identity);
}

TEST(Transform3DRecord, ignoresWhatFollowsIt) {
    Bytes data = encodeToDataWith64bit(CATransform3D::identity);
    data.insert(data.end(), 100, 0xFF);
    EXPECT_EQ(CATransform3DWithData(data), CATransform3D::identity);
}

TEST(Transform3DRecord, refusesFewerBytes) {
    const auto read = [](std::size_t count) {
        return [count] { CATransform3DWithData(Bytes(count)); };
    };
    EXPECT_THAT(read(127),
                ThrowsMessage<DecodingError>(StrEq("127 of the 128 bytes of a 3D transform")));
    EXPECT_THAT(read(0),
                ThrowsMessage<DecodingError>(StrEq("0 of the 128 bytes of a 3D transform")));
}

TEST(Transform3DRecord, refusesFewerBytesAsACorruptedValue) {
    try {
        CATransform3DWithData(Bytes(8));
        FAIL() << "nothing was thrown";
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.kind(), DecodingError::Kind::valueCorrupted);
    }
}

}  // namespace
}  // namespace quorin
