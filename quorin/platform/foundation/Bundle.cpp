#include "quorin/platform/foundation/Bundle.h"

#include <filesystem>
#include <system_error>

#include "quorin/platform/foundation/posix/CodeLocation.h"

namespace quorin {
namespace {

std::string libraryFolder() {
    const std::filesystem::path code = codeFolder();
    return code.empty() ? "" : (code / QUORIN_CODE_TO_RESOURCES).lexically_normal().string();
}

}  // namespace

const Bundle& Bundle::library() {
    // Never destroyed: objects that end after the static variables may read their resources still.
    static const Bundle& bundle = *new Bundle(libraryFolder());
    return bundle;
}

std::optional<URL> Bundle::resourceURL(std::string_view name, std::string_view extension) const {
    if (_folder.empty())
        return std::nullopt;
    std::string path = _folder;
    path.append("/").append(name).append(".").append(extension);
    std::error_code unreadable;
    if (!std::filesystem::exists(path, unreadable))
        return std::nullopt;
    return URL::fileURL(path);
}

}  // namespace quorin
