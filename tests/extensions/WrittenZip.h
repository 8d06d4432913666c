#pragma once

#include <zip.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin::test {

/// How an entry of an archive is written.
struct ZipEntry {
    std::string name, bytes;
    zip_int32_t compression = ZIP_CM_DEFLATE;
    zip_uint16_t encryption = ZIP_EM_NONE;
    zip_uint32_t unixMode = 0100644;
};

/// Writes an archive with these entries and answers its path.
inline std::string writtenZip(const std::string& path, const std::vector<ZipEntry>& entries) {
    int error = 0;
    zip_t* const archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    EXPECT_NE(archive, nullptr);
    for (const ZipEntry& entry : entries) {
        zip_source_t* const source =
            zip_source_buffer(archive, entry.bytes.data(), entry.bytes.size(), 0);
        const zip_int64_t added = zip_file_add(archive, entry.name.c_str(), source, 0);
        EXPECT_GE(added, 0) << entry.name;
        const auto index = static_cast<zip_uint64_t>(added);
        zip_set_file_compression(archive, index, entry.compression, 0);
        zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX, entry.unixMode << 16);
        EXPECT_EQ(zip_file_set_encryption(archive, index, entry.encryption, "secret"), 0);
    }
    EXPECT_EQ(zip_close(archive), 0) << zip_strerror(archive);
    return path;
}

/// Where the unpacked size of an archive's only entry stands, at the start and in the directory.
inline std::vector<std::size_t> placesOfSize(const std::string& zip) {
    const std::size_t directory = zip.rfind("PK\x01\x02");
    EXPECT_NE(directory, std::string::npos);
    return {22, directory + 24};
}

/// The archive's bytes with another unpacked size of its only entry.
inline std::string claimingSize(std::string zip, std::uint32_t size) {
    for (const std::size_t at : placesOfSize(zip))
        for (std::size_t i = 0; i < 4; ++i)
            zip.at(at + i) = static_cast<char>(size >> 8 * i & 0xFF);
    return zip;
}

}  // namespace quorin::test
