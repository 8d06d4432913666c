#include "quorin/platform/foundation/Digest.h"

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/FileBlocks.h"
#include "tests/TestSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::TemporaryFolder;

RC_GTEST_PROP(Digest, isTheSameHoweverTheBytesCome, (const std::vector<std::string>& pieces)) {
    for (const auto algorithm : {DigestAlgorithm::md5, DigestAlgorithm::sha1}) {
        Digest whole(algorithm), inPieces(algorithm);
        std::string all;
        for (const std::string& piece : pieces) {
            inPieces.update(piece);
            all += piece;
        }
        whole.update(all);
        RC_ASSERT(whole.finish() == inPieces.finish());
    }
}

TEST(Digest, startsAnewOnceItIsFinished) {
    Digest digest(DigestAlgorithm::sha1);
    const auto ofNothing = digest.finish();
    digest.update("abc");
    EXPECT_NE(digest.finish(), ofNothing);
    EXPECT_EQ(digest.finish(), ofNothing);
}

TEST(Digest, hasTheLengthOfItsAlgorithm) {
    EXPECT_EQ(Digest(DigestAlgorithm::md5).finish().size(), 16u);
    EXPECT_EQ(Digest(DigestAlgorithm::sha1).finish().size(), 20u);
}

TEST(FileBlocks, areTheBytesOfTheFileInOrder) {
    const TemporaryFolder folder;
    std::string bytes(1'000'003, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * i >> 3);
    std::string seen;
    std::size_t blocks = 0;
    forEachBlock(folder.file("a", bytes), [&](std::string_view block) {
        seen += block;
        ++blocks;
    });
    EXPECT_EQ(seen, bytes);
    EXPECT_GT(blocks, 1u) << "never all at once";
}

TEST(FileBlocks, areNoneOfAnEmptyFile) {
    const TemporaryFolder folder;
    forEachBlock(folder.file("a", ""), [](std::string_view) { ADD_FAILURE(); });
}

TEST(FileBlocks, sayWhatCannotBeRead) {
    const TemporaryFolder folder;
    const auto read = [](const std::string& path) { forEachBlock(path, [](std::string_view) {}); };
    EXPECT_THAT([&] { read(folder / "none"); },
                testing::ThrowsMessage<FileError>(folder / "none" + ": no such file"));
    EXPECT_THAT([&] { read(folder.path()); },
                testing::ThrowsMessage<FileError>(folder.path() + ": is a directory"));
}

}  // namespace
}  // namespace quorin
