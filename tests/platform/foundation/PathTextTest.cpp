#include "quorin/platform/foundation/PathText.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Row {
    const char* path;
    const char* result;
};

TEST(PathExtension, isWhatStandsBehindTheLastDotOfTheName) {
    const Row table[] = {
        {"/tmp/scratch.tiff", "tiff"},
        {".scratch.tiff", "tiff"},
        {"/tmp/scratch", ""},
        {"/tmp/", ""},
        {"scratch..tiff", "tiff"},
        {".tiff", ""},
        {"..", ""},
        {".", ""},
        {"", ""},
        {"/", ""},
        {"/tmp/.tiff", ""},
        {"/tmp/..", ""},
        {"scratch.", ""},
        {"scratch.bundle/", "bundle"},
        {"/tmp.d/scratch", ""},
        {"a.b.c", "c"},
        {"grün.größe", "größe"},
    };
    for (const auto& [path, result] : table)
        EXPECT_EQ(pathExtension(path), result) << path;
}

TEST(DeletingPathExtension, takesTheDotAndSlashesAtTheEndToo) {
    const Row table[] = {
        {"/tmp/", "/tmp"},
        {"scratch.bundle/", "scratch"},
        {"scratch..tiff", "scratch."},
        {".tiff", ".tiff"},
        {"/", "/"},
        {"/tmp/scratch.tiff", "/tmp/scratch"},
        {"/tmp/.tiff", "/tmp/.tiff"},
        {"/tmp.d/scratch", "/tmp.d/scratch"},
        {"scratch.", "scratch"},
        {"..", ".."},
        {"../..", "../.."},
        {".", "."},
        {"", ""},
        {"///", "/"},
        {"a.b/c.d//", "a.b/c"},
    };
    for (const auto& [path, result] : table)
        EXPECT_EQ(deletingPathExtension(path), result) << path;
}

TEST(LastPathComponent, isTheNameWithoutSlashes) {
    const Row table[] = {
        {"/tmp/", "tmp"},
        {"scratch///", "scratch"},
        {"/", "/"},
        {"//", "/"},
        {"/tmp/scratch.tiff", "scratch.tiff"},
        {"scratch", "scratch"},
        {"/tmp", "tmp"},
        {"", ""},
    };
    for (const auto& [path, result] : table)
        EXPECT_EQ(lastPathComponent(path), result) << path;
}

TEST(AppendingPathComponent, putsOneSlashBetween) {
    struct Join {
        const char *path, *component, *result;
    };
    const Join table[] = {
        {"/tmp", "scratch.tiff", "/tmp/scratch.tiff"},
        {"/tmp/", "scratch.tiff", "/tmp/scratch.tiff"},
        {"", "scratch.tiff", "scratch.tiff"},
        {"/", "scratch.tiff", "/scratch.tiff"},
        {"/tmp//", "//scratch.tiff/", "/tmp/scratch.tiff"},
        {"/tmp", "", "/tmp"},
        {"/tmp/", "/", "/tmp"},
        {"", "/", "/"},
        {"", "", ""},
        {"a", "b/c", "a/b/c"},
    };
    for (const auto& [path, component, result] : table)
        EXPECT_EQ(appendingPathComponent(path, component), result) << path << " + " << component;
}

TEST(AppendingPathExtension, goesBehindTheName) {
    EXPECT_EQ(appendingPathExtension("/tmp/", "tiff"), "/tmp.tiff");
    EXPECT_EQ(appendingPathExtension("/tmp/scratch.", "tiff"), "/tmp/scratch..tiff");
    EXPECT_EQ(appendingPathExtension("/tmp/scratch", "tiff"), "/tmp/scratch.tiff");
    EXPECT_EQ(appendingPathExtension("/tmp/scratch.old", "tiff"), "/tmp/scratch.old.tiff");
    EXPECT_EQ(appendingPathExtension("scratch", ""), "scratch.");
}

TEST(AppendingPathExtension, givesNothingWhereNoNameCanBearIt) {
    for (const char* path : {"", "/", "///", ".", "..", "/tmp/..", "./"})
        EXPECT_EQ(appendingPathExtension(path, "tiff"), std::nullopt) << path;
    EXPECT_EQ(appendingPathExtension("/tmp/scratch", "a/b"), std::nullopt);
}

TEST(PathComponents, areTheNamesBehindTheRoot) {
    EXPECT_THAT(pathComponents("/tmp/scratch.tiff"), ElementsAre("/", "tmp", "scratch.tiff"));
    EXPECT_THAT(pathComponents("tmp//scratch/"), ElementsAre("tmp", "scratch"));
    EXPECT_THAT(pathComponents("///"), ElementsAre("/"));
    EXPECT_THAT(pathComponents(""), IsEmpty());
}

/// Short paths in which slashes and dots meet in every way.
rc::Gen<std::string> paths() {
    return rc::gen::container<std::string>(rc::gen::elementOf(std::string("/.ab\xFF")));
}

RC_GTEST_PROP(PathText, putsComponentsTogetherAgain, ()) {
    const std::string path = *paths();
    std::string joined;
    for (const std::string& component : pathComponents(path))
        joined = appendingPathComponent(joined, component);
    RC_ASSERT(pathComponents(joined) == pathComponents(path));
    RC_ASSERT(lastPathComponent(joined) == lastPathComponent(path));
}

RC_GTEST_PROP(PathText, takesOffTheExtensionThatItPutOn, ()) {
    const std::string path = *paths();
    const std::string extension =
        *rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab\xFF")));
    const auto extended = appendingPathExtension(path, extension);
    RC_PRE(extended.has_value());
    RC_ASSERT(pathExtension(*extended) == extension);
    RC_ASSERT(pathComponents(deletingPathExtension(*extended)) == pathComponents(path));
}

}  // namespace
}  // namespace quorin
