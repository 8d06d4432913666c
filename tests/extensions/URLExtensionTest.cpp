#include "quorin/extensions/URLExtension.h"

#include "tests/TestSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;
using Components = std::vector<std::string>;

URL parsed(std::string_view text) { return URL::parse(text).value(); }

TEST(RelativeCloudPathComponents, ofAPathWithoutDocumentsIsNothing) {
    EXPECT_EQ(relativeCloudPathComponents(URL::fileURL("/a/documents/b.ext")), std::nullopt);
    EXPECT_EQ(relativeCloudPathComponents(URL::fileURL("/a/MyDocuments/b.ext")), std::nullopt);
}

TEST(RelativeCloudPathComponents, ofAPathEndingInDocumentsABExtAreAAndBExt) {
    EXPECT_THAT(relativeCloudPathComponents(URL::fileURL("/cloud/Documents/A/b.ext")),
                Optional(ElementsAre("A", "b.ext")));
}

TEST(RelativeCloudPathComponents, startBehindTheFirstDocuments) {
    EXPECT_THAT(relativeCloudPathComponents(URL::fileURL("/Documents/Documents/b")),
                Optional(ElementsAre("Documents", "b")));
    EXPECT_THAT(relativeCloudPathComponents(URL::fileURL("/Documents")), Optional(IsEmpty()));
    EXPECT_THAT(relativeCloudPathComponents(parsed("file:///Documents/a%20b/?q")),
                Optional(ElementsAre("a b")));
}

TEST(AvailableInRelativeCloudPathComponents, comparesElementByElement) {
    const URL url = URL::fileURL("/cloud/Documents/A/b.ext");
    EXPECT_TRUE(availableInRelativeCloudPathComponents(url, Components{"A", "b.ext"}));
    for (const Components& other :
         {Components{}, {"A"}, {"A", "B.ext"}, {"b.ext", "A"}, {"A", "b.ext", "c"}})
        EXPECT_FALSE(availableInRelativeCloudPathComponents(url, other));
}

TEST(AvailableInRelativeCloudPathComponents, isFalseWithoutDocuments) {
    EXPECT_FALSE(availableInRelativeCloudPathComponents(URL::fileURL("/a"), Components{}));
    EXPECT_TRUE(availableInRelativeCloudPathComponents(URL::fileURL("/Documents"), Components{}));
}

TEST(AppendingQueryString, goesBehindWhatIsThere) {
    const auto appended = [](std::string_view url, std::string_view query) {
        return appendingQueryString(parsed(url), query).absoluteString();
    };
    EXPECT_EQ(appended("a://b/c", "x=1"), "a://b/c?x=1");
    EXPECT_EQ(appended("a://b/c?x=1", "y=2"), "a://b/c?x=1&y=2");
    EXPECT_EQ(appended("a://b/c?", "y=2"), "a://b/c?y=2");
    EXPECT_EQ(appended("a://b/c#top", "y=2"), "a://b/c?y=2#top") << "before the fragment";
    EXPECT_EQ(appended("a://b/c", ""), "a://b/c");
    EXPECT_EQ(appended("a://b/c", "n=ä b%20c%#"), "a://b/c?n=%C3%A4%20b%20c%25%23");
}

TEST(Queries, readNamesWithoutEqualsAsEmptyValues) {
    EXPECT_THAT(queries(parsed("a:?x&y=")), ElementsAre(Pair("x", ""), Pair("y", "")));
}

TEST(Queries, takeTheLastOfRepeatedNames) {
    EXPECT_THAT(queries(parsed("a:?x=1&y=2&x=3")), ElementsAre(Pair("x", "3"), Pair("y", "2")));
    EXPECT_THAT(queries(parsed("a:?x=1&x")), ElementsAre(Pair("x", "")));
    EXPECT_THAT(queries(parsed("a:?x=1&%78=2")), ElementsAre(Pair("x", "2"))) << "decoded";
}

TEST(Queries, splitAtTheFirstEqualsBeforeTheyDecode) {
    EXPECT_THAT(queries(parsed("a:?x=1=2&a%3Db=c%26d&e=+")),
                ElementsAre(Pair("a=b", "c&d"), Pair("e", "+"), Pair("x", "1=2")));
    EXPECT_THAT(queries(parsed("a:?=1")), ElementsAre(Pair("", "1")));
}

TEST(Queries, areNoneWhereNothingStands) {
    EXPECT_THAT(queries(parsed("a:b")), IsEmpty());
    EXPECT_THAT(queries(parsed("a:b?")), IsEmpty());
    EXPECT_THAT(queries(parsed("a:b?&&")), IsEmpty());
}

TEST(Queries, readEscapesThatAreNoTextAsTheReplacement) {
    EXPECT_THAT(queries(parsed("a:?x=%FFa")), ElementsAre(Pair("x", "\uFFFDa")));
}

TEST(Queries, readTheByte0AndEscapesOnlyOnce) {
    EXPECT_THAT(queries(parsed("a:?x=a%00b&y=%2541")),
                ElementsAre(Pair("x", std::string("a\0b", 3)), Pair("y", "%41")));
}

TEST(SettingQueries, worksOnAURLWithoutAPathAndWithoutAnythingElse) {
    EXPECT_EQ(settingQueries(parsed("a:"), {{"x", "1"}}).absoluteString(), "a:?x=1");
    EXPECT_EQ(settingQueries(parsed("#f"), {{"x", ""}}).absoluteString(), "?x=#f");
}

TEST(SettingQueries, replacesTheQuery) {
    EXPECT_EQ(
        settingQueries(parsed("a://b?old=1#f"), {{"y", "a&b=c d"}, {"x", "~ä"}}).absoluteString(),
        "a://b?x=~%C3%A4&y=a%26b%3Dc%20d#f");
    EXPECT_EQ(settingQueries(parsed("a://b?old=1#f"), {}).absoluteString(), "a://b#f");
}

/// Text of all that means something in a query, and beyond ASCII.
rc::Gen<QueryMap> queryMaps() {
    const auto texts = rc::gen::map(
        rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
            "a", "&", "=", "%", "%41", "+", "#", "?", " ", "é", "\n", std::string(1, '\0'))),
        [](const std::vector<std::string>& pieces) {
            std::string text;
            for (const std::string& piece : pieces)
                text += piece;
            return text;
        });
    return rc::gen::scale(0.2, rc::gen::container<QueryMap>(texts, texts));
}

RC_GTEST_PROP(Queries, readBackWhatWasSet, ()) {
    const QueryMap map = *queryMaps();
    const URL url = settingQueries(parsed("a://b?c#d"), map);
    RC_ASSERT(queries(url) == map);
    RC_ASSERT(URL::parse(url.absoluteString()) == url);
}

RC_GTEST_PROP(Queries, readBackAFormThatWasAppended, ()) {
    const QueryMap map = *queryMaps();
    RC_ASSERT(queries(appendingQueryString(parsed("a://b"), formUrlEncoded(map))) == map);
}

TEST(FormUrlEncoded, leavesAlphanumericsAlone) {
    EXPECT_EQ(formUrlEncoded({{"name", "a b-c_d.e~f"}, {"größe", "1&2=3"}}),
              "gr%C3%B6%C3%9Fe=1%262%3D3&name=a%20b%2Dc%5Fd%2Ee%7Ef");
    EXPECT_EQ(formUrlEncoded({{"x", ""}}), "x=");
    EXPECT_EQ(formUrlEncoded({}), "");
}

TEST(ThumbnailOfURL, isThatOfTheFile) {
    const test::TemporaryFolder folder;
    folder.file("QuickLookPreview", "picture");
    const test::TemporaryFolder locks;
    const FileCoordinator coordinator(locks.path());
    quorinThumbnail(URL::fileURL(folder.path()),
                    [](const auto& data, const auto& error) {
                        EXPECT_EQ(data, "picture");
                        EXPECT_FALSE(error.has_value());
                    },
                    {.coordinator = &coordinator});
}

TEST(ThumbnailOfURL, ofAnythingElseIsAnError) {
    bool isCalled = false;
    quorinThumbnail(parsed("https://quorin.example/a"), [&](const auto& data, const auto& error) {
        isCalled = true;
        EXPECT_FALSE(data.has_value());
        EXPECT_STREQ(error->what(), "https://quorin.example/a: is no file");
    });
    EXPECT_TRUE(isCalled);
}

TEST(QueryHelpers, takeLongQueriesInNoTime) {
    std::string query = "?";
    for (int i = 0; i < 50'000; ++i)
        query += "a=%&";
    const URL url = appendingQueryString(parsed("a:b"), query);
    EXPECT_THAT(queries(url), ElementsAre(Pair("?a", "%"), Pair("a", "%")));
}

}  // namespace
}  // namespace quorin
