#include "quorin/platform/drawing/NSImage.h"

#include <cstdlib>
#include <filesystem>

#include "tests/TestSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

class NSImageTest : public testing::Test {
protected:
    NSImageTest() {
        std::filesystem::create_directory(images);
        image->writePNG(images + "/lock.png");
        image->writePNG(images + "/lockTemplate.png");
        image->writePNG(root / "outside.png");
    }

    const test::TemporaryFolder root;
    const std::string images = root / "images";
    const std::shared_ptr<const CGImage> image = CGImage::create(1, 1, {1, 2, 3, 4});
};

TEST_F(NSImageTest, isFoundByItsName) {
    for (const char* name : {"lock", "lock.png"}) {
        const auto found = NSImage::named(name, images);
        ASSERT_NE(found, nullptr) << name;
        EXPECT_EQ(*found->cgImage(), *image);
        EXPECT_FALSE(found->isTemplate());
    }
}

TEST_F(NSImageTest, isATemplateWhenItsNameSaysSo) {
    EXPECT_TRUE(NSImage::named("lockTemplate", images)->isTemplate());
    EXPECT_TRUE(NSImage::named("lockTemplate.png", images)->isTemplate());
}

TEST_F(NSImageTest, isNeverOutsideOfTheFolder) {
    using namespace std::string_view_literals;
    for (const std::string_view name :
         {"../outside"sv, "./lock"sv, "../images/lock"sv, "/etc/passwd"sv, ""sv, ".png"sv,
          "lock.png\0"sv, "lock\0.png"sv, "nothing"sv})
        EXPECT_EQ(NSImage::named(name, images), nullptr) << name;
    EXPECT_EQ(NSImage::named((root / "outside").substr(1), "/"), nullptr);
}

TEST_F(NSImageTest, comesFromTheDataFolderUnlessTold) {
    const char* const before = std::getenv("XDG_DATA_HOME");
    const std::string kept = before ? before : "";
    setenv("XDG_DATA_HOME", root.path().c_str(), 1);
    std::filesystem::create_directory(root / "quorin");
    std::filesystem::rename(images, root / "quorin/images");
    EXPECT_EQ(NSImage::defaultFolder(), root / "quorin/images");
    EXPECT_NE(NSImage::named("lock"), nullptr);
    before ? setenv("XDG_DATA_HOME", kept.c_str(), 1) : unsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace quorin
