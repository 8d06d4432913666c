#pragma once

#include <map>
#include <optional>
#include <vector>

#include "quorin/platform/ui/NSLayoutConstraint.h"
#include "quorin/platform/ui/NSView.h"

namespace quorin {

/// Finds the places of a view's subviews from its constraints, each axis on its own, by carrying
/// on what is known already. That is all it takes as long as each constraint has one unknown left
/// when its turn comes, as in rows and columns.
class ConstraintSolver {
public:
    explicit ConstraintSolver(NSView& view) : container(view) {}

    void placeSubviews();

private:
    enum class Axis { horizontal, vertical };

    /// What is known of a view along one axis.
    struct Span {
        std::optional<CGFloat> start, end, extent;

        /// Two of the three tell the third.
        void complete();
    };

    void solve(Axis axis);
    void carryOn(Axis axis);
    bool apply(const NSLayoutConstraint& constraint, Axis axis);
    static std::optional<CGFloat>& valueOf(Span& span, NSLayoutAttribute attribute);

    NSView& container;
    std::map<const NSView*, Span> spans;
};

}  // namespace quorin
