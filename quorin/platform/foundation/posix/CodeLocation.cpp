#include "quorin/platform/foundation/posix/CodeLocation.h"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <system_error>

namespace quorin {

std::string codeFolder() {
    Dl_info info{};
    void* object = nullptr;
    const bool isKnown =
        dladdr1(reinterpret_cast<const void*>(&codeFolder), &info, &object, RTLD_DL_LINKMAP) != 0;
    const auto* const map = static_cast<const link_map*>(object);
    // The program itself has no name there, and the one in `info` is as the user typed it.
    const bool isShared = isKnown && map && *map->l_name != '\0';
    std::error_code ignored;
    return std::filesystem::canonical(isShared ? map->l_name : "/proc/self/exe", ignored)
        .parent_path()
        .string();
}

}  // namespace quorin
