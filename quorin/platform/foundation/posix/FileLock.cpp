#include "quorin/platform/foundation/posix/FileLock.h"

#include <fcntl.h>

namespace quorin {
namespace {

int setLock(const Descriptor& file, int command, int type, std::int64_t byte) {
    struct flock lock {};  // the process id has to be 0 for locks of open file descriptions
    lock.l_type = static_cast<short>(type);
    lock.l_whence = SEEK_SET;
    lock.l_start = byte;
    lock.l_len = 1;
    return uninterrupted([&] { return fcntl(file.get(), command, &lock); });
}

}  // namespace

FileLock::FileLock(const std::string& path, Kind kind, std::int64_t byte)
    : file(openFile(path, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK, 0600)), at(byte) {
    if (!file || setLock(file, F_OFD_SETLKW, kind == Kind::shared ? F_RDLCK : F_WRLCK, at) != 0)
        failWith(path);
}

FileLock::~FileLock() {
    // Closing is not enough: a process forked meanwhile has the file open too.
    (void)setLock(file, F_OFD_SETLK, F_UNLCK, at);
}

}  // namespace quorin
