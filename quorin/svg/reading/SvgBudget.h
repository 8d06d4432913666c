#pragma once

#include <cstddef>
#include <string>

#include "quorin/svg/reading/SvgMessages.h"

namespace quorin {

/// So much of something as a drawing may hold.
class SvgBudget {
public:
    /// `things` names what is counted, as in "path commands".
    SvgBudget(SvgMessages& svgMessages, std::size_t limit, std::string things)
        : messages(svgMessages), maximum(limit), what(std::move(things)) {}

    std::size_t remaining() const { return maximum - spent; }
    /// Throws `SvgError` about the place `offset` when there is not that much left.
    void spend(std::size_t amount, std::size_t offset) {
        if (amount > remaining())
            messages.fail(offset, "there are more than " + std::to_string(maximum) + " " + what);
        spent += amount;
    }

private:
    SvgMessages& messages;
    std::size_t maximum;
    std::size_t spent = 0;
    std::string what;
};

}  // namespace quorin
