#include "quorin/path/CompoundPath.h"

#include <string>
#include <utility>

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

std::shared_ptr<CompoundPath> CompoundPath::create() {
    return std::make_shared<CompoundPath>(Token());
}

std::shared_ptr<CompoundPath> CompoundPath::create(std::vector<std::shared_ptr<Path>> children) {
    auto compound = create();
    compound->_children = std::move(children);
    return compound;
}

std::shared_ptr<CompoundPath> CompoundPath::create(const CGPath& cg) {
    auto compound = create();
    cg.apply([&](const CGPathElement& element) { compound->addElement(element); });
    auto& children = compound->_children;
    if (!children.empty() && children.back()->segments().count() == 1)
        children.pop_back();
    return compound;
}

void CompoundPath::addElement(const CGPathElement& element) {
    switch (element.type) {
        case CGPathElementType::moveToPoint:
            _children.push_back(Path::create());
            break;
        case CGPathElementType::addLineToPoint:
        case CGPathElementType::addQuadCurveToPoint:
        case CGPathElementType::addCurveToPoint:
        case CGPathElementType::closeSubpath:
            if (_children.empty())
                fatalError("element of kind " + std::to_string(static_cast<int>(element.type)) +
                           " before the first move");
            break;
        default:
            fatalError("Invalid compound path");
    }
    _children.back()->addElement(element);
}

void CompoundPath::setChildren(std::vector<std::shared_ptr<Path>> children) {
    _children = std::move(children);
}

std::shared_ptr<const CGPath> CompoundPath::cg() const {
    CGMutablePath outline;
    for (const auto& child : _children)
        outline.addPath(*child->cg());
    return outline.take();
}

}  // namespace quorin
