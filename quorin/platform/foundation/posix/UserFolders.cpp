#include "quorin/platform/foundation/posix/UserFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {
namespace {

std::string withoutSlashAtTheEnd(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

/// Empty unless the variable is an absolute path.
std::string folderFromEnvironment(const char* variable) {
    const char* const value = std::getenv(variable);
    return value && *value == '/' ? withoutSlashAtTheEnd(value) : std::string();
}

std::string homeFolder() {
    if (std::string home = folderFromEnvironment("HOME"); !home.empty())
        return home;
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 16'384> texts{};
    if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) == 0 && found)
        return withoutSlashAtTheEnd(found->pw_dir);
    return "/";
}

std::string userFolder(const char* variable, const char* below) {
    std::string folder = folderFromEnvironment(variable);
    return folder.empty() ? homeFolder().append("/").append(below) : folder;
}

bool isOwnFolder(const std::string& path) {
    struct stat status {};
    // Not through a link: somebody else's link in the temporary folder would choose the place.
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid();
}

}  // namespace

std::string userConfigurationFolder() { return userFolder("XDG_CONFIG_HOME", ".config"); }

std::string userDataFolder() { return userFolder("XDG_DATA_HOME", ".local/share"); }

std::string userRuntimeFolder() {
    std::string folder = folderFromEnvironment("XDG_RUNTIME_DIR");
    if (folder.empty())
        folder = temporaryFolder().append("/quorin-").append(std::to_string(geteuid()));
    else
        folder.append("/quorin");
    makeFolders(folder);
    if (!isOwnFolder(folder))
        throw FileError(folder, "belongs to somebody else");
    return folder;
}

std::string temporaryFolder() {
    const std::string folder = folderFromEnvironment("TMPDIR");
    return folder.empty() ? "/tmp" : folder;
}

void makeFolders(const std::string& path) {
    if (mkdir(path.c_str(), 0700) == 0)
        return;
    if (errno == ENOENT && path.find_last_of('/') > 0 && path.find('/') != std::string::npos) {
        makeFolders(folderOf(path));
        if (mkdir(path.c_str(), 0700) == 0)
            return;
    }
    const int reason = errno;
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        failWith(path, reason);
    if (!S_ISDIR(status.st_mode))
        failWith(path, ENOTDIR);
}

}  // namespace quorin
