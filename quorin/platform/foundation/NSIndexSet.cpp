#include "quorin/platform/foundation/NSIndexSet.h"

#include <algorithm>
#include <utility>

namespace quorin {

NSIndexSet::NSIndexSet(Token, std::vector<std::size_t> indexes) : _indexes(std::move(indexes)) {
    std::sort(_indexes.begin(), _indexes.end());
    _indexes.erase(std::unique(_indexes.begin(), _indexes.end()), _indexes.end());
}

std::shared_ptr<NSIndexSet> NSIndexSet::create(std::vector<std::size_t> indexes) {
    return std::make_shared<NSIndexSet>(Token(), std::move(indexes));
}

bool NSIndexSet::contains(std::size_t index) const {
    return std::binary_search(_indexes.begin(), _indexes.end(), index);
}

bool NSIndexSet::isEqual(const Object& other) const {
    const auto* set = dynamic_cast<const NSIndexSet*>(&other);
    return set && set->_indexes == _indexes;
}

std::string NSIndexSet::description() const {
    std::string text = "{";
    for (const std::size_t index : _indexes)
        text.append(text.size() > 1 ? ", " : "").append(std::to_string(index));
    return text.append("}");
}

}  // namespace quorin
