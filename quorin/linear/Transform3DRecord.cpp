#include "quorin/linear/Transform3DRecord.h"

#include <array>
#include <bit>
#include <string>

#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {
namespace {

// The fields as whole numbers, since loading a NaN as a double may alter its bits.
using Fields = std::array<std::uint64_t, 16>;
constexpr std::size_t fieldSize = sizeof(Fields::value_type);
static_assert(sizeof(Fields) == transform3DRecordSize);

}  // namespace

std::vector<std::uint8_t> encodeToDataWith64bit(const CATransform3D& transform) {
    std::vector<std::uint8_t> data;
    data.reserve(transform3DRecordSize);
    for (const std::uint64_t field : std::bit_cast<Fields>(transform))
        for (std::size_t place = 0; place < fieldSize; ++place)
            data.push_back(static_cast<std::uint8_t>(field >> 8 * place));
    return data;
}

CATransform3D CATransform3DWithData(std::span<const std::uint8_t> data) {
    if (data.size() < transform3DRecordSize)
        throw DecodingError(DecodingError::Kind::valueCorrupted,
                            std::to_string(data.size())
                                .append(" of the ")
                                .append(std::to_string(transform3DRecordSize))
                                .append(" bytes of a 3D transform"));

    Fields fields{};
    for (std::size_t i = 0; i < transform3DRecordSize; ++i)
        fields[i / fieldSize] |= std::uint64_t{data[i]} << 8 * (i % fieldSize);
    return std::bit_cast<CATransform3D>(fields);
}

}  // namespace quorin
