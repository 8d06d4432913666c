#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class NSView;

/// What of a view a constraint is about. Leading is left and trailing right.
enum class NSLayoutAttribute : std::uint8_t { leading, trailing, top, bottom, width, height };

/// Says that an attribute of one view equals that of another one plus a constant, or a constant
/// alone. Refers to its views weakly.
class NSLayoutConstraint : public NSObject {
public:
    using Class = NSClassOf<NSLayoutConstraint, NSObject>;

    using Views = std::map<std::string, std::shared_ptr<NSView>, std::less<>>;

    /// `first`.attribute = `constant`, for a width or a height.
    static std::shared_ptr<NSLayoutConstraint> create(const std::shared_ptr<NSView>& first,
                                                      NSLayoutAttribute attribute,
                                                      CGFloat constant);
    /// `first`.attribute = `second`.secondAttribute + `constant`, both along the same axis.
    static std::shared_ptr<NSLayoutConstraint> create(const std::shared_ptr<NSView>& first,
                                                      NSLayoutAttribute attribute,
                                                      const std::shared_ptr<NSView>& second,
                                                      NSLayoutAttribute secondAttribute,
                                                      CGFloat constant);

    /// The constraints that a picture of a row or of a column of views tells, for the superview of
    /// these views: "H:|-0-[child]-0-|". It begins with "H:" or "V:", a row when with neither;
    /// `|` is the edge of the superview, `[name]` a view of `views`, `[name(40)]` or `[name(==40)]`
    /// one of that width or height, `-8-` the distance between two of them, 0 where it is left out.
    /// Anything else stops the process, naming the place, as does a view without a superview.
    static std::vector<std::shared_ptr<NSLayoutConstraint>> constraints(
        std::string_view withVisualFormat, const Views& views);

    NSLayoutConstraint(const std::shared_ptr<NSView>& first, NSLayoutAttribute attribute,
                       const std::shared_ptr<NSView>& second, NSLayoutAttribute secondAttribute,
                       CGFloat constant);

    std::shared_ptr<NSView> firstItem() const { return _firstItem.lock(); }
    NSLayoutAttribute firstAttribute() const { return _firstAttribute; }
    /// Null for a constant alone.
    std::shared_ptr<NSView> secondItem() const { return _secondItem.lock(); }
    NSLayoutAttribute secondAttribute() const { return _secondAttribute; }
    CGFloat constant() const { return _constant; }

private:
    std::weak_ptr<NSView> _firstItem, _secondItem;
    NSLayoutAttribute _firstAttribute, _secondAttribute;
    CGFloat _constant;
};

}  // namespace quorin
