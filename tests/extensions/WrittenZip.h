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

inline std::string littleEndian(std::uint64_t number, std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> 8 * i & 0xFF);
    return bytes;
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
        zip.replace(at, 4, littleEndian(size, 4));
    return zip;
}

/// The last record of an archive with a directory of `size` bytes at the start of the file; -1
/// stands for what the record of a large archive says.
inline std::string endRecord(std::uint64_t entryCount, std::uint64_t size,
                             const std::string& comment = "") {
    std::string bytes = "PK\x05\x06";
    bytes.append(littleEndian(0, 4)).append(littleEndian(entryCount, 2));
    bytes.append(littleEndian(entryCount, 2)).append(littleEndian(size, 4));
    bytes.append(littleEndian(size == ~0ull ? size : 0, 4));
    return bytes.append(littleEndian(comment.size(), 2)).append(comment);
}

/// The last three records of a large archive, whose directory takes all of the file before them.
inline std::string largeEndRecords(std::uint64_t entryCount, std::uint64_t size) {
    std::string bytes = "PK\x06\x06";
    bytes.append(littleEndian(44, 8)).append(littleEndian(45, 2)).append(littleEndian(45, 2));
    bytes.append(littleEndian(0, 8)).append(littleEndian(entryCount, 8));
    bytes.append(littleEndian(entryCount, 8)).append(littleEndian(size, 8));
    bytes.append(littleEndian(0, 8)).append("PK\x06\x07").append(littleEndian(0, 4));
    bytes.append(littleEndian(size, 8)).append(littleEndian(1, 4));
    return bytes.append(endRecord(~0ull, ~0ull));
}

}  // namespace quorin::test
