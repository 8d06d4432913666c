#pragma once

#include <cstddef>
#include <functional>
#include <ranges>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "quorin/extensions/RearrangementPlan.h"

/// How one order becomes another, told as steps. Whoever does the steps as they come (taking an
/// element out; putting one in so that it has the index; taking one out and putting it in so that
/// it then has the index) has the wanted order after the last one. All removals come first. An
/// element that the wanted order has twice counts where it is first. Elements are compared by `==`
/// and hashed; steps get copies, so they may change the receiver.
namespace quorin {

/// Tells how an ordered set becomes `array`: `add(element, index)`, `move(element, index)`,
/// `remove(element)`. As few elements as possible are moved. Takes n log n steps of its own.
template <std::ranges::forward_range OrderedSet, typename Add, typename Move, typename Remove>
void rearrangeObjectsWithArray(const OrderedSet& set,
                               const std::vector<std::ranges::range_value_t<OrderedSet>>& array,
                               const Add& add, const Move& move, const Remove& remove) {
    using Element = std::ranges::range_value_t<OrderedSet>;
    std::vector<Element> wanted;
    std::unordered_map<Element, std::size_t> wantedIndexes;
    for (const Element& element : array)
        if (wantedIndexes.try_emplace(element, wanted.size()).second)
            wanted.push_back(element);

    std::vector<Element> surplus;
    std::vector<std::size_t> remaining;  // what stays, in its present order, as wanted indexes
    for (const Element& element : set) {
        const auto found = wantedIndexes.find(element);
        if (found == wantedIndexes.end())
            surplus.push_back(element);
        else
            remaining.push_back(found->second);
    }
    for (const Element& element : surplus)
        remove(element);
    for (const RearrangementStep& step : rearrangementPlan(remaining, wanted.size())) {
        if (step.isMove)
            move(wanted[step.wantedIndex], step.toIndex);
        else
            add(wanted[step.wantedIndex], step.toIndex);
    }
}

/// Tells how the members of a set, in whatever order they are shown, become the reverse of `array`:
/// the last element of `array` gets the index 0. Since a set does not know the order, every member
/// that stays is moved.
template <std::ranges::forward_range Set, typename Add, typename Move, typename Remove>
void rearrangeObjectsWithReversedArray(const Set& set,
                                       const std::vector<std::ranges::range_value_t<Set>>& array,
                                       const Add& add, const Move& move, const Remove& remove) {
    using Element = std::ranges::range_value_t<Set>;
    const std::unordered_set<Element> members(std::ranges::begin(set), std::ranges::end(set));
    std::unordered_set<Element> seen;
    std::vector<Element> wanted;
    for (auto element = array.rbegin(); element != array.rend(); ++element)
        if (seen.insert(*element).second)
            wanted.push_back(*element);

    for (const Element& element : members)
        if (!seen.contains(element))
            remove(element);
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        if (members.contains(wanted[index]))
            move(wanted[index], index);
        else
            add(wanted[index], index);
    }
}

}  // namespace quorin
