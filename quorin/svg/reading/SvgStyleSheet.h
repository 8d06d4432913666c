#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "quorin/platform/values/FunctionRef.h"
#include "quorin/svg/reading/SvgDeclarations.h"

namespace quorin {

/// The declarations of a rule and where they stand.
struct SvgRule {
    std::vector<SvgDeclaration> declarations;  ///< offsets count in the sheet's text
    std::size_t sheet = 0;                     ///< the how-manieth sheet that was added
};

/// What selects an element.
struct SvgSelectable {
    std::string_view type, id;
    std::string_view classes;  ///< with white space between them
};

/// CSS rules whose selectors are made of a type or "*", ids and classes ("path", ".a.b",
/// "rect#id"), alone or in lists. Others, and rules that begin with "@", select nothing.
class SvgStyleSheet {
public:
    /// `unread` is called with each selector that is not read, and its offset.
    void add(std::string_view text, FunctionRef<void(std::string_view, std::size_t)> unread);

    /// The rules that apply to an element, weaker ones first: by ids, then classes, then types in
    /// their selector, then by their order.
    std::vector<const SvgRule*> rulesFor(const SvgSelectable& element) const;

private:
    struct Selector {
        std::string_view type;  // empty for any
        std::vector<std::string_view> ids, classes;
        std::uint32_t rule = 0;

        /// Numbers of ids, classes and types, and the order.
        std::array<std::size_t, 4> strength() const;
        bool selects(const SvgSelectable& element,
                     std::span<const std::string_view> elementClasses) const;
    };
    using Index = std::unordered_map<std::string_view, std::vector<std::uint32_t>>;

    static bool parse(std::string_view text, Selector& selector);
    void addRule(std::string_view selectors, std::string_view block, std::string_view sheet,
                 FunctionRef<void(std::string_view, std::size_t)> unread);
    void addToIndex(std::uint32_t selector);

    std::deque<std::string> texts;
    std::deque<SvgRule> rules;
    std::vector<Selector> selectors;
    // A selector stands under one of its names only; those that select anything under "".
    Index byId, byClass, byType;
};

}  // namespace quorin
