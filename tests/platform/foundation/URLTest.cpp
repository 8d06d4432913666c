#include "quorin/platform/foundation/URL.h"

#include <filesystem>

#include "quorin/platform/foundation/PercentEncoding.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(URL, isCutAtItsDelimiters) {
    const URL url = URL::parse("https://quorin.example:8080/a/b%20c?x=1&y=?#top/?").value();
    EXPECT_EQ(url.scheme(), "https");
    EXPECT_EQ(url.authority(), "quorin.example:8080");
    EXPECT_EQ(url.path(), "/a/b c");
    EXPECT_EQ(url.query(), "x=1&y=?");
    EXPECT_EQ(url.fragment(), "top/?");
    EXPECT_FALSE(url.isFileURL());
}

TEST(URL, mayLackEverythingButAPath) {
    const URL url = URL::parse("a/b:c").value();
    EXPECT_EQ(url.scheme(), std::nullopt);
    EXPECT_EQ(url.authority(), std::nullopt);
    EXPECT_EQ(url.path(), "a/b:c");
    EXPECT_EQ(url.query(), std::nullopt);
    EXPECT_EQ(url.fragment(), std::nullopt);
    EXPECT_EQ(URL::parse("mailto:somebody")->path(), "somebody");
    EXPECT_EQ(URL::parse("//host")->authority(), "host");
    EXPECT_EQ(URL::parse("//host")->path(), "");
}

TEST(URL, tellsAnEmptyPartFromAMissingOne) {
    for (const char* text : {"a:", "a://", "a:?", "a:#", "?", "#", "/?#", "file:///a//b/"})
        EXPECT_EQ(URL::parse(text)->absoluteString(), text);
    EXPECT_EQ(URL::parse("a:?")->query(), "");
    EXPECT_NE(URL::parse("a:?"), URL::parse("a:"));
}

TEST(URL, isNotWhatNoURLHas) {
    for (const std::string text : {"", "a b", "a\n", "ü", "a\"b", "<a>", "a%", "a%2", "a%zz",
                                   "a#b#c", "1a:b", ":a", "a%00b", "\xFF", "a\\b", "{a}"})
        EXPECT_EQ(URL::parse(text), std::nullopt) << text;
    EXPECT_EQ(URL::parse(std::string("a\0b", 3)), std::nullopt);
    EXPECT_EQ(URL::parse("a://b%00/c?d"), std::nullopt);
    EXPECT_EQ(URL::parse("a%2500")->path(), "a%00") << "no escape of the byte 0";
}

TEST(FileURL, isWrittenWithEscapesAndReadWithoutThem) {
    const URL url = URL::fileURL("/tmp/größe 1?#%.txt");
    EXPECT_EQ(url.absoluteString(), "file:///tmp/gr%C3%B6%C3%9Fe%201%3F%23%25.txt");
    EXPECT_EQ(url.path(), "/tmp/größe 1?#%.txt");
    EXPECT_TRUE(url.isFileURL());
    EXPECT_TRUE(URL::parse("FILE:/tmp")->isFileURL());
    EXPECT_FALSE(URL::parse("filed:/tmp")->isFileURL());
}

TEST(FileURL, ofARelativePathCountsFromTheCurrentFolder) {
    EXPECT_EQ(URL::fileURL("a/b").path(), std::filesystem::current_path().string() + "/a/b");
}

RC_GTEST_PROP(FileURL, keepsEveryByteOfAPath, ()) {
    const std::string path = "/" + *rc::gen::container<std::string>(rc::gen::nonZero<char>());
    const URL url = URL::fileURL(path);
    RC_ASSERT(url.path() == path);
    RC_ASSERT(URL::parse(url.absoluteString()) == url);
}

TEST(URL, hasPathComponentsWithoutEscapes) {
    EXPECT_THAT(URL::parse("file:///a%20b/c/")->pathComponents(), ElementsAre("/", "a b", "c"));
    EXPECT_THAT(URL::parse("a://host")->pathComponents(), IsEmpty());
}

TEST(URL, doesNotSplitAtAnEscapedSlash) {
    EXPECT_THAT(URL::parse("file:///a%2Fb/c")->pathComponents(), ElementsAre("/", "a/b", "c"));
}

TEST(URL, takesAQueryInPlaceOfItsOwn) {
    const URL url = URL::parse("a://b/c?d#e").value();
    EXPECT_EQ(url.withQuery("x=1").absoluteString(), "a://b/c?x=1#e");
    EXPECT_EQ(url.withQuery(std::nullopt).absoluteString(), "a://b/c#e");
    EXPECT_EQ(url.withQuery("ü #%41%").absoluteString(), "a://b/c?%C3%BC%20%23%41%25#e");
}

TEST(PercentEncoding, leavesAlphanumericsAndWhatIsAskedFor) {
    EXPECT_EQ(percentEncoded("azAZ09-_.~ é"), "azAZ09%2D%5F%2E%7E%20%C3%A9");
    EXPECT_EQ(percentEncoded("a-b_c", "-"), "a-b%5Fc");
    EXPECT_EQ(percentEncoded("@[`{/:"), "%40%5B%60%7B%2F%3A") << "neighbours of the letters";
}

TEST(PercentEncoding, readsEscapesOfBothCasesOnly) {
    EXPECT_EQ(percentDecoded("%41%6a%6A+"), "Ajj+");
    EXPECT_EQ(percentDecoded("%"), "%");
    EXPECT_EQ(percentDecoded("%4"), "%4");
    EXPECT_EQ(percentDecoded("%g1%%41"), "%g1%A");
    EXPECT_EQ(percentDecoded("%2541"), "%41") << "once";
}

RC_GTEST_PROP(PercentEncoding, keepsEveryByte, (const std::string& bytes)) {
    RC_ASSERT(percentDecoded(percentEncoded(bytes)) == bytes);
}

}  // namespace
}  // namespace quorin
