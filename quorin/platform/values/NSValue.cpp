#include "quorin/platform/values/NSValue.h"

#include <cstring>
#include <type_traits>

#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

template <typename Geometry>
Geometry fromBytes(std::span<const std::uint8_t> bytes, std::string_view objCType) {
    static_assert(std::is_trivially_copyable_v<Geometry>);
    if (bytes.size() != sizeof(Geometry))
        fatalError(std::to_string(bytes.size())
                       .append(" of the ")
                       .append(std::to_string(sizeof(Geometry)))
                       .append(" bytes of ")
                       .append(objCType));
    Geometry geometry;
    std::memcpy(&geometry, bytes.data(), sizeof(Geometry));
    return geometry;
}

template <typename Geometry, typename Content>
std::optional<Geometry> optionalOf(const Content& content) {
    const Geometry* geometry = std::get_if<Geometry>(&content);
    return geometry ? std::optional(*geometry) : std::nullopt;
}

}  // namespace

NSValue::NSValue(std::span<const std::uint8_t> bytes, std::string_view objCType)
    : content(contentOf(bytes, objCType)) {}

NSValue::Content NSValue::contentOf(std::span<const std::uint8_t> bytes,
                                    std::string_view objCType) {
    if (objCType == pointType)
        return fromBytes<CGPoint>(bytes, objCType);
    if (objCType == sizeType)
        return fromBytes<CGSize>(bytes, objCType);
    if (objCType == rectType)
        return fromBytes<CGRect>(bytes, objCType);
    if (objCType == transform3DType)
        return Shared(fromBytes<CATransform3D>(bytes, objCType));
    return Shared(OtherType{std::string(objCType), {bytes.begin(), bytes.end()}});
}

const char* NSValue::objCType() const {
    struct {
        const char* operator()(const NSNumber& number) const { return number.objCType(); }
        const char* operator()(const CGPoint&) const { return pointType; }
        const char* operator()(const CGSize&) const { return sizeType; }
        const char* operator()(const CGRect&) const { return rectType; }
        const char* operator()(const Shared<CATransform3D>&) const { return transform3DType; }
        const char* operator()(const Shared<OtherType>& other) const {
            return other->objCType.c_str();
        }
    } encoding;
    return std::visit(encoding, content);
}

std::optional<CGPoint> NSValue::pointValue() const { return optionalOf<CGPoint>(content); }

std::optional<CGSize> NSValue::sizeValue() const { return optionalOf<CGSize>(content); }

std::optional<CGRect> NSValue::rectValue() const { return optionalOf<CGRect>(content); }

std::optional<CATransform3D> NSValue::CATransform3DValue() const {
    const auto* transform = std::get_if<Shared<CATransform3D>>(&content);
    return transform ? std::optional(**transform) : std::nullopt;
}

std::span<const std::uint8_t> NSValue::bytes() const {
    const auto* other = std::get_if<Shared<OtherType>>(&content);
    return other ? std::span<const std::uint8_t>((*other)->bytes) : std::span<const std::uint8_t>();
}

}  // namespace quorin
