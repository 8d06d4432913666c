#include "quorin/screens/DocumentSizeDidChangeNotification.h"

#include <string_view>
#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

const Value& entry(const NSNotification& note, std::string_view key) {
    static const Value nothing;
    if (!note.userInfo())
        return nothing;
    const auto found = note.userInfo()->find(key);
    return found == note.userInfo()->end() ? nothing : found->second;
}

template <typename Entry>
Entry required(std::optional<Entry> value, std::string_view key, std::string_view type) {
    if (!value)
        fatalError(std::string("the user info of DocumentSizeDidChangeNotification has no ")
                       .append(type)
                       .append(" under \"")
                       .append(key)
                       .append("\""));
    return *value;
}

}  // namespace

DocumentSizeDidChangeNotification::DocumentSizeDidChangeNotification(
    std::optional<std::string> templateName, CGSize documentSize, CGFloat density)
    : name(std::move(templateName)), size(documentSize), scale(density) {}

DocumentSizeDidChangeNotification::DocumentSizeDidChangeNotification(const NSNotification& note)
    : size(required(entry(note, "size").asSize(), "size", "size")),
      scale(required(entry(note, "scale").asNumber(), "scale", "number")) {
    if (const std::string* text = entry(note, "name").asText())
        name = *text;
}

NSNotification::UserInfo DocumentSizeDidChangeNotification::userInfo() const {
    Value::Map info{{"size", size}, {"scale", scale}};
    if (name)
        info.emplace("name", *name);
    return info;
}

}  // namespace quorin
