#include "quorin/platform/ui/NSLayoutConstraint.h"

#include "quorin/platform/ui/NSView.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

enum class Kind { horizontalEdge, verticalEdge, width, height };

Kind kindOf(NSLayoutAttribute attribute) {
    switch (attribute) {
        case NSLayoutAttribute::leading:
        case NSLayoutAttribute::trailing:
            return Kind::horizontalEdge;
        case NSLayoutAttribute::top:
        case NSLayoutAttribute::bottom:
            return Kind::verticalEdge;
        case NSLayoutAttribute::width:
            return Kind::width;
        case NSLayoutAttribute::height:
            return Kind::height;
    }
    __builtin_unreachable();
}

bool isExtent(NSLayoutAttribute attribute) {
    return attribute == NSLayoutAttribute::width || attribute == NSLayoutAttribute::height;
}

}  // namespace

std::shared_ptr<NSLayoutConstraint> NSLayoutConstraint::create(const std::shared_ptr<NSView>& first,
                                                               NSLayoutAttribute attribute,
                                                               CGFloat constant) {
    if (!isExtent(attribute))
        fatalError("a constraint that brings an edge to a constant, with no other edge");
    return makeObject<NSLayoutConstraint>(first, attribute, nullptr, attribute, constant);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutConstraint::create(
    const std::shared_ptr<NSView>& first, NSLayoutAttribute attribute,
    const std::shared_ptr<NSView>& second, NSLayoutAttribute secondAttribute, CGFloat constant) {
    // A width may equal a height only through a solver of both axes at once.
    if (kindOf(attribute) != kindOf(secondAttribute))
        fatalError("a constraint between attributes that do not match");
    return makeObject<NSLayoutConstraint>(first, attribute, second, secondAttribute, constant);
}

NSLayoutConstraint::NSLayoutConstraint(const std::shared_ptr<NSView>& first,
                                       NSLayoutAttribute attribute,
                                       const std::shared_ptr<NSView>& second,
                                       NSLayoutAttribute secondAttribute, CGFloat constant)
    : _firstItem(first),
      _secondItem(second),
      _firstAttribute(attribute),
      _secondAttribute(secondAttribute),
      _constant(constant) {}

}  // namespace quorin
