#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "quorin/platform/values/CATransform3D.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/platform/values/NSNumber.h"
#include "quorin/platform/values/Shared.h"

namespace quorin {

/// A box around one number, one geometry value, or the bytes of any other plain type, which says
/// by a type encoding what it holds.
class NSValue {
public:
    static constexpr const char* pointType = "{CGPoint=dd}";
    static constexpr const char* sizeType = "{CGSize=dd}";
    static constexpr const char* rectType = "{CGRect={CGPoint=dd}{CGSize=dd}}";
    static constexpr const char* transform3DType = "{CATransform3D=dddddddddddddddd}";

    // Implicit: numbers and geometry box themselves.
    NSValue(NSNumber number) : content(number) {}
    NSValue(CGPoint point) : content(point) {}
    NSValue(CGSize size) : content(size) {}
    NSValue(const CGRect& rect) : content(rect) {}
    NSValue(const CATransform3D& transform) : content(Shared(transform)) {}
    /// A value of the encoded type from its bytes in memory. Bytes of one of the four geometry
    /// types make the same box as the value itself; a wrong number of them stops the process.
    NSValue(std::span<const std::uint8_t> bytes, std::string_view objCType);

    /// One of the four above, that of the number, or what came with the bytes.
    const char* objCType() const;

    /// The number; null for everything else.
    const NSNumber* number() const { return std::get_if<NSNumber>(&content); }
    std::optional<CGPoint> pointValue() const;
    std::optional<CGSize> sizeValue() const;
    std::optional<CGRect> rectValue() const;
    std::optional<CATransform3D> CATransform3DValue() const;
    /// The bytes of a type that is none of the above; empty for everything else.
    std::span<const std::uint8_t> bytes() const;

    /// Same type and equal value; numbers by value, see `NSNumber`.
    friend bool operator==(const NSValue&, const NSValue&) = default;

private:
    struct OtherType {
        std::string objCType;
        std::vector<std::uint8_t> bytes;

        friend bool operator==(const OtherType&, const OtherType&) = default;
    };
    using Content =
        std::variant<NSNumber, CGPoint, CGSize, CGRect, Shared<CATransform3D>, Shared<OtherType>>;

    static Content contentOf(std::span<const std::uint8_t> bytes, std::string_view objCType);

    Content content;
};

}  // namespace quorin
