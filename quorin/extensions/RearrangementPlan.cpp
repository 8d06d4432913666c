#include "quorin/extensions/RearrangementPlan.h"

#include <algorithm>
#include <limits>

namespace quorin {
namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

/// For each place whether its number is one of a longest increasing subsequence.
std::vector<bool> longestIncreasing(std::span<const std::size_t> numbers) {
    // Behind each length of a subsequence stands the place of its least possible last number.
    std::vector<std::size_t> lastPlaces, previous(numbers.size(), none);
    for (std::size_t place = 0; place < numbers.size(); ++place) {
        const auto longer = std::lower_bound(
            lastPlaces.begin(), lastPlaces.end(), numbers[place],
            [&](std::size_t last, std::size_t number) { return numbers[last] < number; });
        if (longer != lastPlaces.begin())
            previous[place] = *(longer - 1);
        if (longer == lastPlaces.end())
            lastPlaces.push_back(place);
        else
            *longer = place;
    }
    std::vector<bool> isKept(numbers.size());
    for (std::size_t place = lastPlaces.empty() ? none : lastPlaces.back(); place != none;
         place = previous[place])
        isKept[place] = true;
    return isKept;
}

/// How many of the first places are marked, in logarithmic time (a Fenwick tree).
class MarkCount {
public:
    explicit MarkCount(std::size_t count) : sums(count + 1) {}

    void add(std::size_t place, std::ptrdiff_t change) {
        for (std::size_t i = place + 1; i < sums.size(); i += i & (~i + 1))
            sums[i] += change;
    }
    std::size_t before(std::size_t place) const {
        std::ptrdiff_t sum = 0;
        for (std::size_t i = place; i > 0; i &= i - 1)
            sum += sums[i];
        return static_cast<std::size_t>(sum);
    }

private:
    std::vector<std::ptrdiff_t> sums;
};

}  // namespace

std::vector<RearrangementStep> rearrangementPlan(std::span<const std::size_t> present,
                                                 std::size_t count) {
    const std::vector<bool> isKept = longestIncreasing(present);
    std::vector<std::size_t> placeOf(count, none);
    MarkCount waiting(present.size());  // those that are still to be moved, where they were
    for (std::size_t place = 0; place < present.size(); ++place) {
        placeOf[present[place]] = place;
        if (!isKept[place])
            waiting.add(place, 1);
    }

    std::vector<RearrangementStep> steps;
    std::size_t keptEnd = 0;  // behind the place of the last one that stays and is done
    for (std::size_t wanted = 0; wanted < count; ++wanted) {
        const std::size_t place = placeOf[wanted];
        if (place != none && isKept[place]) {
            keptEnd = place + 1;
            continue;
        }
        if (place != none)
            waiting.add(place, -1);
        // It goes right behind its predecessor: behind all that are done, and behind those waiting
        // that stand before them.
        steps.push_back({place != none, wanted, wanted + waiting.before(keptEnd)});
    }
    return steps;
}

}  // namespace quorin
