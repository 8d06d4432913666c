#include "quorin/platform/drawing/NSImage.h"

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/posix/UserFolders.h"

namespace quorin {
namespace {

constexpr std::string_view extension = ".png";

bool isName(std::string_view name) {
    return !name.empty() &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

}  // namespace

std::shared_ptr<const NSImage> NSImage::named(std::string_view name, const std::string& folder) {
    if (name.ends_with(extension))
        name.remove_suffix(extension.size());
    if (!isName(name))
        return nullptr;
    std::string path = folder;
    path.append("/").append(name).append(extension);
    try {
        return std::make_shared<const NSImage>(CGImage::readPNG(path), name.ends_with("Template"));
    } catch (const FileError&) {
        return nullptr;
    }
}

std::string NSImage::defaultFolder() { return userDataFolder() + "/quorin/images"; }

}  // namespace quorin
