#include "quorin/platform/foundation/posix/CodeLocation.h"

#include <dlfcn.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/TestSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::TemporaryFolder;

/// Where the code of a shared library says that it is.
std::string folderOfLibrary(const std::string& path) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
        throw std::runtime_error(dlerror());
    using FolderOfThisCode = std::size_t (*)(char*, std::size_t);
    const auto folderOfThisCode =
        reinterpret_cast<FolderOfThisCode>(dlsym(library, "folderOfThisCode"));
    std::array<char, 4096> text{};
    const std::string folder(text.data(), folderOfThisCode(text.data(), text.size()));
    dlclose(library);
    return folder;
}

std::string withoutLinks(const std::string& path) {
    return std::filesystem::canonical(path).string();
}

TEST(CodeLocation, ofCodeInAProgramIsTheFolderOfTheProgram) {
    EXPECT_EQ(codeFolder(), std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

TEST(CodeLocation, ofCodeInASharedLibraryIsTheFolderOfTheLibraryWhereverItWasMoved) {
    const TemporaryFolder folder;
    std::filesystem::copy_file(QUORIN_CODE_LOCATION_MODULE, folder / "libmoved.so");
    EXPECT_EQ(folderOfLibrary(folder / "libmoved.so"), withoutLinks(folder.path()));
    EXPECT_NE(codeFolder(), withoutLinks(folder.path()));
}

TEST(CodeLocation, followsTheLinksOfALibrary) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "lib");
    std::filesystem::copy_file(QUORIN_CODE_LOCATION_MODULE, folder / "lib/libcode.so.1.2");
    std::filesystem::create_symlink("lib/libcode.so.1.2", folder / "libcode.so");
    EXPECT_EQ(folderOfLibrary(folder / "libcode.so"), withoutLinks(folder / "lib"));
}

}  // namespace
}  // namespace quorin
