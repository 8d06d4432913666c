#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorin::test {

/// An empty folder that goes away with all that is in it.
class TemporaryFolder {
public:
    explicit TemporaryFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
        std::string name = (parent / "quorin-XXXXXX").string();
        if (!mkdtemp(name.data()))
            throw std::runtime_error("no temporary folder " + name);
        folder = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    const std::string& path() const { return folder; }
    std::string operator/(std::string_view name) const { return folder + '/' + std::string(name); }

    /// The path of a new file with these bytes.
    std::string file(std::string_view name, std::string_view bytes) const {
        const std::string path = *this / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    /// How many files and folders there are, hidden ones too.
    std::ptrdiff_t count() const {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }

private:
    std::string folder;
};

}  // namespace quorin::test
