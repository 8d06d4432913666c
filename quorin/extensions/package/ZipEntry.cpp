#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "quorin/extensions/package/PackageEntry.h"
#include "quorin/extensions/package/ZipDirectory.h"
#include "quorin/platform/foundation/AtomicFile.h"

namespace quorin {
namespace {

constexpr std::uint64_t maximumEntryCount = 100'000;

struct ZipRelease {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using ZipArchive = std::unique_ptr<zip_t, ZipRelease>;
using ZipFile = std::unique_ptr<zip_file_t, ZipRelease>;

std::string textOf(zip_error_t* error) {
    std::string text = zip_error_strerror(error);
    zip_error_fini(error);
    return text;
}

ZipArchive openArchive(const PackageEntry& entry) {
    // The library makes room for as many as there are said to be before it reads the first one.
    if (claimedEntryCount(entry.package, entry.shown) > maximumEntryCount)
        throw FileError(entry.shown,
                        "more entries than the limit of " + std::to_string(maximumEntryCount));
    int code = 0;
    ZipArchive archive(zip_open(entry.package.c_str(), ZIP_RDONLY, &code));
    if (archive)
        return archive;
    if (code == ZIP_ER_NOZIP)
        throw FileError(entry.shown, "not a document package");
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    throw FileError(entry.shown, textOf(&error));
}

bool isLink(zip_t* archive, zip_uint64_t index) {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    return zip_file_get_external_attributes(archive, index, 0, &system, &attributes) == 0 &&
           system == ZIP_OPSYS_UNIX && S_ISLNK(attributes >> 16);
}

/// Refuses what is known to be wrong before anything is unpacked, and answers the size that the
/// archive tells.
std::uint64_t checkedSize(zip_t* archive, zip_uint64_t index, const std::string& shown,
                          std::size_t maximumSize) {
    zip_stat_t status;
    zip_stat_init(&status);
    if (zip_stat_index(archive, index, 0, &status) != 0)
        throw FileError(shown, zip_strerror(archive));
    if (isLink(archive, index))
        throw FileError(shown, "is a link");
    if ((status.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && status.encryption_method != ZIP_EM_NONE)
        throw FileError(shown, "is encrypted");
    if ((status.valid & ZIP_STAT_SIZE) == 0)
        throw FileError(shown, "has no size");
    if (status.size > maximumSize)
        throw FileError(shown,
                        "larger than the limit of " + std::to_string(maximumSize) + " bytes");
    return status.size;
}

std::string unpack(zip_file_t* file, const std::string& shown, std::uint64_t expectedSize) {
    constexpr std::size_t step = 65'536;
    std::string bytes;
    while (true) {
        // A size that is a lie must not cost memory: there is never more than twice what came out.
        // The byte beyond the expected ones is for what an archive did not tell of.
        const std::size_t used = bytes.size();
        const std::size_t room =
            std::min<std::uint64_t>(std::max(step, used), expectedSize - used + 1);
        bytes.resize(used + room);
        const zip_int64_t count = zip_fread(file, bytes.data() + used, room);
        if (count < 0)
            throw FileError(shown, textOf(zip_file_get_error(file)));
        bytes.resize(used + static_cast<std::size_t>(count));
        if (bytes.size() > expectedSize || (count == 0 && bytes.size() < expectedSize))
            throw FileError(shown, "does not have the size that the archive tells");
        if (count == 0)
            return bytes;
    }
}

}  // namespace

std::optional<std::string> readZipEntry(const PackageEntry& entry) {
    const std::string shown = entry.shown + '/' + entry.name;
    const ZipArchive archive = openArchive(entry);
    const zip_int64_t found = zip_name_locate(archive.get(), entry.name, ZIP_FL_ENC_RAW);
    if (found < 0)
        return std::nullopt;
    const auto index = static_cast<zip_uint64_t>(found);
    const std::uint64_t size = checkedSize(archive.get(), index, shown, entry.maximumSize);
    const ZipFile file(zip_fopen_index(archive.get(), index, 0));
    if (!file)
        throw FileError(shown, zip_strerror(archive.get()));
    return unpack(file.get(), shown, size);
}

}  // namespace quorin
