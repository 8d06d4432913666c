#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <ranges>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "quorin/platform/values/FatalError.h"

/// What lists can be asked besides what the standard library answers. A list is any range that can
/// be walked through more than once.
namespace quorin {

/// The elements by the key that `key` makes of each. Of elements with one key the last one counts.
template <std::ranges::forward_range List, typename Key>
auto toDictionary(const List& list, const Key& key) {
    using Element = std::ranges::range_value_t<List>;
    std::map<std::decay_t<std::invoke_result_t<const Key&, const Element&>>, Element> map;
    for (const auto& element : list)
        map.insert_or_assign(std::invoke(key, element), element);
    return map;
}

/// The neighbour behind the first such element. Nothing when there is no such element or it is the
/// last one.
template <std::ranges::forward_range List>
std::optional<std::ranges::range_value_t<List>> elementAfter(
    const List& list, const std::ranges::range_value_t<List>& element) {
    auto found = std::ranges::find(list, element);
    if (found == std::ranges::end(list) || ++found == std::ranges::end(list))
        return std::nullopt;
    return *found;
}

/// The neighbour in front of the first such element.
template <std::ranges::bidirectional_range List>
std::optional<std::ranges::range_value_t<List>> elementBefore(
    const List& list, const std::ranges::range_value_t<List>& element) {
    const auto found = std::ranges::find(list, element);
    if (found == std::ranges::end(list) || found == std::ranges::begin(list))
        return std::nullopt;
    return *std::prev(found);
}

/// Takes the first such element out and puts it where it then has the index `toIndex`. Whether that
/// was done: without such an element, or with an index beyond the end, the list stays as it is.
template <typename Element>
bool move(std::vector<Element>& list, const std::type_identity_t<Element>& element,
          std::size_t toIndex) {
    const auto from = std::find(list.begin(), list.end(), element);
    if (from == list.end() || toIndex >= list.size())
        return false;
    const auto to = list.begin() + static_cast<std::ptrdiff_t>(toIndex);
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    return true;
}

/// The value that `property` has of all elements; nothing when they differ and of an empty list.
template <std::ranges::forward_range List, typename Property>
auto distinctValue(const List& list, const Property& property) {
    using Element = std::ranges::range_value_t<List>;
    std::optional<std::decay_t<std::invoke_result_t<const Property&, const Element&>>> value;
    for (const auto& element : list) {
        if (!value)
            value = std::invoke(property, element);
        else if (!(*value == std::invoke(property, element)))
            return decltype(value)();
    }
    return value;
}

/// Added up from the first to the last, in the type of the elements; 0 of an empty list. A total
/// that an integer type does not hold stops the process.
template <std::ranges::forward_range List>
requires std::is_arithmetic_v<std::ranges::range_value_t<List>>
auto sum(const List& list) {
    using Number = std::ranges::range_value_t<List>;
    static_assert(!std::is_same_v<Number, bool>, "truths are no numbers");
    Number total = 0;
    for (const Number number : list) {
        if constexpr (std::is_floating_point_v<Number>)
            total += number;
        else if (__builtin_add_overflow(total, number, &total))
            fatalError(std::string("a sum of integers beyond ")
                           .append(std::to_string(std::numeric_limits<Number>::digits))
                           .append(" bits, at ")
                           .append(std::to_string(number)));
    }
    return total;
}

/// The arithmetic mean, 0 of an empty list. Integers are added up as doubles.
template <std::ranges::forward_range List>
requires std::is_arithmetic_v<std::ranges::range_value_t<List>>
double average(const List& list) {
    double total = 0, count = 0;
    for (const auto number : list) {
        total += static_cast<double>(number);
        ++count;
    }
    return count == 0 ? 0 : total / count;
}

/// Whether each element equals the first one; true of an empty list. NaN equals nothing, so a list
/// that has one beside another element is not.
template <std::ranges::forward_range List>
bool isAllEqual(const List& list) {
    return std::ranges::adjacent_find(list, [](const auto& a, const auto& b) {
               return !(a == b);
           }) == std::ranges::end(list);
}

}  // namespace quorin
