#include "quorin/platform/foundation/PathText.h"

#include <algorithm>

namespace quorin {
namespace {

constexpr auto npos = std::string_view::npos;

/// The root keeps one slash.
std::string_view withoutTrailingSlashes(std::string_view path) {
    const std::size_t last = path.find_last_not_of('/');
    return last == npos ? path.substr(0, 1) : path.substr(0, last + 1);
}

/// Of a path without slashes at its end.
std::string_view lastComponentOf(std::string_view path) {
    if (path == "/")
        return path;
    const std::size_t slash = path.rfind('/');
    return slash == npos ? path : path.substr(slash + 1);
}

/// The place of an extension's dot in a last component.
std::size_t extensionDot(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == 0 || name == ".." ? npos : dot;
}

bool canBearExtension(std::string_view name) {
    return !name.empty() && name != "/" && name != "." && name != "..";
}

}  // namespace

std::vector<std::string> pathComponents(std::string_view path) {
    std::vector<std::string> components;
    if (path.starts_with('/'))
        components.emplace_back("/");
    for (std::size_t start = path.find_first_not_of('/'); start != npos;) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        components.emplace_back(path.substr(start, end - start));
        start = path.find_first_not_of('/', end);
    }
    return components;
}

std::string lastPathComponent(std::string_view path) {
    return std::string(lastComponentOf(withoutTrailingSlashes(path)));
}

std::string pathExtension(std::string_view path) {
    const std::string_view name = lastComponentOf(withoutTrailingSlashes(path));
    const std::size_t dot = extensionDot(name);
    return dot == npos ? std::string() : std::string(name.substr(dot + 1));
}

std::string deletingPathExtension(std::string_view path) {
    const std::string_view whole = withoutTrailingSlashes(path);
    const std::string_view name = lastComponentOf(whole);
    const std::size_t dot = extensionDot(name);
    return std::string(dot == npos ? whole : whole.substr(0, whole.size() - name.size() + dot));
}

std::string appendingPathComponent(std::string_view path, std::string_view component) {
    if (path.empty())
        return std::string(withoutTrailingSlashes(component));
    std::string joined(withoutTrailingSlashes(path));
    const std::size_t start = component.find_first_not_of('/');
    if (start == npos)
        return joined;
    if (joined != "/")
        joined += '/';
    return joined.append(withoutTrailingSlashes(component.substr(start)));
}

std::optional<std::string> appendingPathExtension(std::string_view path,
                                                  std::string_view extension) {
    const std::string_view whole = withoutTrailingSlashes(path);
    if (!canBearExtension(lastComponentOf(whole)) || extension.find('/') != npos)
        return std::nullopt;
    std::string extended(whole);
    return extended.append(".").append(extension);
}

}  // namespace quorin
