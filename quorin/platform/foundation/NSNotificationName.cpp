#include "quorin/platform/foundation/NSNotificationName.h"

#include <mutex>
#include <unordered_set>

namespace quorin {
namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
        return std::hash<std::string_view>()(text);
    }
};

/// All texts that are names. A text never moves or goes away.
class NameTable {
public:
    const std::string* find(std::string_view text) {
        const std::lock_guard lock(mutex);
        const auto known = texts.find(text);
        return known != texts.end() ? &*known : &*texts.emplace(text).first;
    }

private:
    std::mutex mutex;
    std::unordered_set<std::string, TextHash, std::equal_to<>> texts;
};

NameTable& nameTable() {
    // Never destroyed, since other statics may be named until the very end.
    static NameTable& table = *new NameTable;
    return table;
}

}  // namespace

NSNotificationName::NSNotificationName(std::string_view text) : kept(nameTable().find(text)) {}

}  // namespace quorin
