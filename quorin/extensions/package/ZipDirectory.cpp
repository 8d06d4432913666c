#include "quorin/extensions/package/ZipDirectory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {
namespace {

constexpr std::string_view endRecord = "PK\x05\x06", locator = "PK\x06\x07",
                           largeEndRecord = "PK\x06\x06";
constexpr std::size_t endRecordSize = 22, locatorSize = 20, largeEndRecordSize = 56;
constexpr std::size_t longestComment = 65'535;

std::uint64_t littleEndian(std::string_view bytes) {
    std::uint64_t number = 0;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
        number = number << 8 | static_cast<unsigned char>(*byte);
    return number;
}

/// As many of `count` bytes as there are from `offset` on.
std::string bytesAt(const Descriptor& file, std::uint64_t offset, std::size_t count,
                    const std::string& shown) {
    std::string bytes(count, '\0');
    std::size_t used = 0;
    while (used < count) {
        const ssize_t read = uninterrupted([&] {
            return ::pread(file.get(), bytes.data() + used, count - used,
                           static_cast<off_t>(offset + used));
        });
        if (read < 0)
            failWith(shown);
        if (read == 0)
            break;
        used += static_cast<std::size_t>(read);
    }
    bytes.resize(used);
    return bytes;
}

/// What the record of a large archive says, which the locator right before `at` points to.
std::uint64_t countInLargeRecord(const Descriptor& file, std::uint64_t size, std::string_view end,
                                 std::size_t at, const std::string& shown) {
    if (at < locatorSize || !end.substr(at - locatorSize).starts_with(locator))
        return 0;
    const std::uint64_t place = littleEndian(end.substr(at - locatorSize + 8, 8));
    if (place >= size)
        return 0;
    const std::string bytes = bytesAt(file, place, largeEndRecordSize, shown);
    const std::string_view record = bytes;
    if (record.size() < largeEndRecordSize || !record.starts_with(largeEndRecord))
        return 0;
    return std::max(littleEndian(record.substr(24, 8)), littleEndian(record.substr(32, 8)));
}

}  // namespace

std::uint64_t claimedEntryCount(const std::string& path, const std::string& shown) {
    const Descriptor file = openFile(path, O_RDONLY);
    struct stat status {};
    if (!file || fstat(file.get(), &status) != 0)
        failWith(shown);
    const auto size = static_cast<std::uint64_t>(status.st_size);
    const std::size_t searched =
        std::min<std::uint64_t>(size, longestComment + endRecordSize + locatorSize);
    const std::string bytes = bytesAt(file, size - searched, searched, shown);
    const std::string_view end = bytes;

    // A comment may hold what looks like the record, and readers differ in which they believe.
    std::uint64_t most = 0;
    for (std::size_t at = end.find(endRecord);
         at != std::string_view::npos && at + endRecordSize <= end.size();
         at = end.find(endRecord, at + 1))
        most = std::max({most, littleEndian(end.substr(at + 8, 2)),
                         littleEndian(end.substr(at + 10, 2)),
                         countInLargeRecord(file, size, end, at, shown)});
    return most;
}

}  // namespace quorin
