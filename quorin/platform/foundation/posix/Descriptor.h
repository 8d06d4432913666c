#pragma once

#include <sys/types.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

namespace quorin {

/// An open file, closed with its owner.
class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    ~Descriptor();

    explicit operator bool() const { return number >= 0; }
    int get() const { return number; }
    /// A full disk of another machine may show only here.
    void close(const std::string& path);

private:
    int number;
};

/// Opens for this process alone, not for programs that it starts. Without a file the descriptor is
/// false and `errno` says why.
Descriptor openFile(const std::string& path, int flags, mode_t mode = 0);

/// All bytes from where the file stands; see `readFile`.
std::string readAll(const Descriptor& file, const std::string& path, std::size_t maximumSize);

/// Writes all bytes or throws a `FileError` that names `path`.
void writeAll(const Descriptor& file, std::string_view bytes, const std::string& path);

/// Throws a `FileError` with the reason in words.
[[noreturn]] void failWith(const std::string& path, int errorNumber = errno);

/// Repeats a system call that a signal broke off.
template <typename Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// What `path` stands in: "." for a bare name.
std::string folderOf(const std::string& path);

}  // namespace quorin
