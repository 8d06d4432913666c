#include "quorin/platform/foundation/LocalizedString.h"

#include <utility>

namespace quorin {
namespace {

LocalizedStrings& mainTable() {
    // Never destroyed: texts are still shown while static variables end.
    static LocalizedStrings& table = *new LocalizedStrings();
    return table;
}

}  // namespace

void setMainLocalizedStrings(LocalizedStrings table) { mainTable() = std::move(table); }

std::string localizedString(std::string_view key, std::string_view comment) {
    if (mainTable())
        if (auto text = mainTable()(key, comment))
            return *std::move(text);
    return std::string(key);
}

}  // namespace quorin
