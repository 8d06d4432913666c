#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quorin {

/// The name of a kind of notifications. Each text is kept once for the life of the process, so that
/// names are copied and compared as fast as pointers; they are meant to be constants. Made from a
/// text, a name is looked up under a lock: whoever posts often keeps it.
class NSNotificationName {
public:
    // Implicit: a text is a name wherever one is asked for.
    NSNotificationName(std::string_view text);
    NSNotificationName(const std::string& text) : NSNotificationName(std::string_view(text)) {}
    NSNotificationName(const char* text) : NSNotificationName(std::string_view(text)) {}

    const std::string& text() const { return *kept; }

    friend bool operator==(const NSNotificationName&, const NSNotificationName&) = default;

private:
    friend struct std::hash<NSNotificationName>;

    const std::string* kept;
};

}  // namespace quorin

template <>
struct std::hash<quorin::NSNotificationName> {
    std::size_t operator()(const quorin::NSNotificationName& name) const noexcept {
        return std::hash<const std::string*>()(name.kept);
    }
};
