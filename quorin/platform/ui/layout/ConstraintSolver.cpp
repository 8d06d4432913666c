#include "quorin/platform/ui/layout/ConstraintSolver.h"

#include <algorithm>

namespace quorin {

namespace {

/// One number of a rect, read and written along either axis.
CGFloat& originAlong(CGRect& rect, bool isVertical) {
    return isVertical ? rect.origin.y : rect.origin.x;
}

CGFloat& extentAlong(CGRect& rect, bool isVertical) {
    return isVertical ? rect.size.height : rect.size.width;
}

bool isVertical(NSLayoutAttribute attribute) {
    return attribute == NSLayoutAttribute::top || attribute == NSLayoutAttribute::bottom ||
           attribute == NSLayoutAttribute::height;
}

}  // namespace

void ConstraintSolver::Span::complete() {
    if (!extent && start && end)
        extent = *end - *start;
    else if (!end && start && extent)
        end = *start + *extent;
    else if (!start && end && extent)
        start = *end - *extent;
}

void ConstraintSolver::placeSubviews() {
    solve(Axis::horizontal);
    solve(Axis::vertical);
}

void ConstraintSolver::solve(Axis axis) {
    const bool vertical = axis == Axis::vertical;
    CGRect bounds = container.bounds();
    spans.clear();
    spans[&container] = {0, extentAlong(bounds, vertical), extentAlong(bounds, vertical)};
    carryOn(axis);

    const auto subviews = container.subviews();
    for (const auto& subview : subviews) {
        const auto found = spans.find(subview.get());
        if (found == spans.end())
            continue;  // no constraint is about it
        Span& span = found->second;
        CGRect frame = subview->frame();
        // What is open stays as it is, and may tell more about those that come later.
        if (!span.extent)
            span.extent = extentAlong(frame, vertical);
        if (!span.start && !span.end)
            span.start = originAlong(frame, vertical);
        span.complete();
        carryOn(axis);
        originAlong(frame, vertical) = *span.start;
        extentAlong(frame, vertical) = std::max(0.0, *span.extent);  // where there is no room
        subview->setFrame(frame);
    }
}

void ConstraintSolver::carryOn(Axis axis) {
    bool isNews = true;
    while (isNews) {
        isNews = false;
        for (const auto& constraint : container.constraints())
            isNews |= apply(*constraint, axis);
    }
}

bool ConstraintSolver::apply(const NSLayoutConstraint& constraint, Axis axis) {
    const auto first = constraint.firstItem();
    if (!first || isVertical(constraint.firstAttribute()) != (axis == Axis::vertical))
        return false;
    Span& span = spans[first.get()];
    auto& value = valueOf(span, constraint.firstAttribute());
    const auto second = constraint.secondItem();
    if (!second) {
        if (value)
            return false;
        value = constraint.constant();
        span.complete();
        return true;
    }

    Span& otherSpan = spans[second.get()];
    auto& other = valueOf(otherSpan, constraint.secondAttribute());
    if (value.has_value() == other.has_value())
        return false;
    // At once, so that a constraint that comes later cannot say otherwise.
    if (other) {
        value = *other + constraint.constant();
        span.complete();
    } else {
        other = *value - constraint.constant();
        otherSpan.complete();
    }
    return true;
}

std::optional<CGFloat>& ConstraintSolver::valueOf(Span& span, NSLayoutAttribute attribute) {
    switch (attribute) {
        case NSLayoutAttribute::leading:
        case NSLayoutAttribute::top:
            return span.start;
        case NSLayoutAttribute::trailing:
        case NSLayoutAttribute::bottom:
            return span.end;
        case NSLayoutAttribute::width:
        case NSLayoutAttribute::height:
            return span.extent;
    }
    __builtin_unreachable();
}

}  // namespace quorin
