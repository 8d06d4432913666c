#include "quorin/platform/foundation/posix/PathWatch.h"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <utility>

#include "quorin/platform/foundation/AtomicFile.h"

namespace quorin {
namespace {

constexpr std::uint32_t writing = IN_MODIFY | IN_CLOSE_WRITE;
constexpr std::uint32_t moving =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;

std::string absolutePath(const std::string& path) {
    if (path.empty())
        failWith(path, ENOENT);
    if (path.front() == '/')
        return path;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    if (error)
        failWith(path, error.value());
    return folder.string().append("/").append(path);
}

bool isLimit(int error) { return error == ENOSPC || error == ENOMEM || error == EMFILE; }

/// What was there a moment ago may be gone or something else; its folder's watch tells.
bool isChangeOnTheWay(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP; }

/// The first name of a path, cut off its front; empty at the end.
std::string takeName(std::string& rest) {
    rest.erase(0, rest.find_first_not_of('/'));
    const std::size_t end = std::min(rest.find('/'), rest.size());
    std::string name = rest.substr(0, end);
    rest.erase(0, rest.find_first_not_of('/', end));
    return name;
}

std::string joined(const std::string& folder, const std::string& name) {
    std::string place = folder;
    if (place.back() != '/')
        place.append("/");
    return place.append(name);
}

std::optional<struct stat> statusOf(const std::string& place) {
    struct stat status {};
    if (lstat(place.c_str(), &status) == 0)
        return status;
    return std::nullopt;
}

std::optional<std::string> targetOf(const std::string& link) {
    std::array<char, PATH_MAX> text;
    const ssize_t length = readlink(link.c_str(), text.data(), text.size());
    if (length <= 0)
        return std::nullopt;
    return std::string(text.data(), static_cast<std::size_t>(length));
}

/// A folder tells of itself without a name, and of the end of the path each name counts.
bool concerns(const std::set<std::string>& names, const std::string& name) {
    return name.empty() || names.contains(name) || names.contains("");
}

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

PathWatch::PathWatch(const std::string& path)
    : shown(path), absolute(absolutePath(path)), kernel(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
    if (kernel)
        return;
    failure = errno;
    requireResources();
    failWith(shown, failure);
}

void PathWatch::requireResources() const {
    if (failure == EMFILE)
        throw FileError(shown,
                        "cannot be watched: too many open files, or inotify instances of this user "
                        "(fs.inotify.max_user_instances)");
    if (isLimit(failure))
        throw FileError(shown,
                        "cannot be watched: too many inotify watches of this user "
                        "(fs.inotify.max_user_watches)");
}

PathWatch::News PathWatch::read() {
    alignas(inotify_event) std::array<char, 16'384> buffer;
    const ssize_t length =
        uninterrupted([&] { return ::read(kernel.get(), buffer.data(), buffer.size()); });
    News news;
    inotify_event event;
    for (ssize_t at = 0; at < length; at += ssize_t{sizeof event} + event.len) {
        const char* const start = buffer.data() + at;
        std::memcpy(&event, start, sizeof event);
        const std::string name = event.len > 0 ? start + sizeof event : "";
        // A queue that ran over has lost what may concern us.
        const bool isLost = (event.mask & IN_Q_OVERFLOW) != 0;
        const auto found = watches.find(event.wd);
        if (!isLost && (found == watches.end() || !concerns(found->second, name)))
            continue;
        news.isAny = true;
        news.isWritten |= isLost || (event.mask & writing) != 0;
        news.mayLeadElsewhere |= (event.mask & ~writing) != 0;
    }
    return news;
}

std::optional<FileState> PathWatch::follow() {
    const Watches before = std::exchange(watches, {});
    failure = 0;
    isFresh = false;
    const std::optional<FileState> end = endOf(absolute);
    giveBack(before);
    return end;
}

/// Each folder is watched before it is looked into, so what changes in between is told of.
std::optional<FileState> PathWatch::endOf(std::string rest) {
    constexpr int mostLinks = 40;  // as many as the kernel follows
    std::string place = "/";       // without links
    int links = 0;
    for (std::string name = takeName(rest); !name.empty(); name = takeName(rest)) {
        if (name == ".")
            continue;
        if (name == "..") {
            place = folderOf(place);
            continue;
        }
        watch(place, name, IN_ONLYDIR | moving | (rest.empty() ? writing : 0));
        const std::string next = joined(place, name);
        const auto status = statusOf(next);
        if (!status)
            return std::nullopt;
        if (!S_ISLNK(status->st_mode)) {
            place = next;
            continue;
        }
        const auto target = targetOf(next);
        if (!target || ++links > mostLinks)
            return std::nullopt;
        if (target->front() == '/')
            place = "/";
        rest = joined(*target, rest);
    }
    // Under its other names a file is written to unnoticed by this folder.
    watch(place, "", moving | writing);
    return stateOf(place);
}

std::optional<FileState> PathWatch::stateOf(const std::string& place) {
    timespec tick{};
    clock_gettime(CLOCK_REALTIME_COARSE, &tick);
    const auto status = statusOf(place);
    if (!status)
        return std::nullopt;
    FileState state;
    state.device = status->st_dev;
    state.inode = status->st_ino;
    state.size = static_cast<std::uint64_t>(status->st_size);
    state.modified = nanoseconds(status->st_mtim);
    isFresh = state.modified >= nanoseconds(tick);
    return state;
}

/// Without a name it is the place itself that counts.
void PathWatch::watch(const std::string& place, const std::string& name, std::uint32_t events) {
    const int number =
        inotify_add_watch(kernel.get(), place.c_str(), events | IN_DONT_FOLLOW | IN_MASK_ADD);
    if (number >= 0) {
        watches[number].insert(name);
        return;
    }
    // Of a file that must not be read its folder tells too.
    const bool isMissed = !isChangeOnTheWay(errno) && !(name.empty() && errno == EACCES);
    if (isMissed && !isLimit(failure))
        failure = errno;
}

void PathWatch::giveBack(const Watches& before) const {
    for (const auto& [number, names] : before)
        if (!watches.contains(number))
            inotify_rm_watch(kernel.get(), number);  // fails where the kernel did so itself
}

}  // namespace quorin
