#include "quorin/screens/ScreenCatalogue.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/AtomicFile.h"
#include "tests/TestSupport.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

/// What `readScreenTemplates` makes of a bundle with these bytes as the resource.
std::optional<ScreenCatalogue> readFrom(std::string_view bytes) {
    const TemporaryFolder folder;
    folder.file("ScreenTemplates.json", bytes);
    return readScreenTemplates(Bundle(folder.path()));
}

std::string screen(std::string_view fields) {
    std::string text = R"([{"category": "TV", "templates": [{)";
    return text.append(fields).append("}]}]");
}

constexpr const char* valid =
    R"([{"category": "Web", "templates": [{"width": 1.5, "height": 2, "density": 1, "name": "a"},
                                          {"width": 3, "height": 4, "density": 2, "name": "b"}]},
        {"category": "iPhone", "templates": []}])";

TEST(ScreenCatalogue, isReadInTheOrderOfTheFile) {
    const auto catalogue = readFrom(valid);
    ASSERT_TRUE(catalogue.has_value());
    ASSERT_EQ(catalogue->size(), 2u);
    const ScreenTemplate& web = *catalogue->front();
    EXPECT_EQ(web.category(), DeviceCategory::Web);
    ASSERT_EQ(web.templates().size(), 2u);
    EXPECT_EQ(web.templates()[0]->width(), 1.5);
    EXPECT_EQ(web.templates()[1]->height(), 4);
    EXPECT_EQ(web.templates()[1]->density(), 2);
    EXPECT_EQ(web.templates()[1]->name(), "b");
    EXPECT_EQ(catalogue->back()->category(), DeviceCategory::iPhone);
    EXPECT_THAT(catalogue->back()->templates(), IsEmpty());
}

TEST(ScreenCatalogue, thatIsEmptyDiffersFromOneThatIsAbsent) {
    const auto empty = readFrom("[]");
    ASSERT_TRUE(empty.has_value());
    EXPECT_THAT(*empty, IsEmpty());
    EXPECT_EQ(readFrom(""), std::nullopt);
}

TEST(ScreenCatalogue, keepsDuplicateCategoriesInOrder) {
    const auto catalogue =
        readFrom(R"([{"category": "TV", "templates": []}, {"category": "Web", "templates": []},
                     {"category": "TV", "templates": []}])");
    ASSERT_TRUE(catalogue.has_value());
    std::vector<DeviceCategory> categories;
    for (const auto& screens : *catalogue)
        categories.push_back(screens->category());
    EXPECT_THAT(categories,
                ElementsAre(DeviceCategory::TV, DeviceCategory::Web, DeviceCategory::TV));
}

TEST(ScreenCatalogue, ignoresKeysThatNobodyAskedFor) {
    const auto catalogue = readFrom(
        R"([{"year": {"of": [2021]}, "templates": [{"name": "a", "density": 1, "height": 2,
             "width": 3, "depth": "?"}], "category": "TV"}])");
    ASSERT_TRUE(catalogue.has_value());
    EXPECT_EQ(catalogue->front()->templates().front()->width(), 3);
}

TEST(ScreenCatalogue, withACategoryInOtherLettersIsAbsentAsAWhole) {
    EXPECT_EQ(readFrom(R"([{"category": "TV", "templates": []},
                           {"category": "iphone", "templates": []}])"),
              std::nullopt);
}

TEST(ScreenCatalogue, withATemplateWithoutANameIsAbsentAsAWhole) {
    EXPECT_EQ(readFrom(R"([{"category": "TV", "templates": [
                  {"width": 1, "height": 2, "density": 3, "name": "a"},
                  {"width": 1, "height": 2, "density": 3}]}])"),
              std::nullopt);
}

TEST(ScreenCatalogue, takesNumbersAndNamesAsTheyAre) {
    const auto catalogue = readFrom(
        screen(R"("width": -0.0, "height": 37.5e1, "density": 18446744073709551616, "name": "")"));
    ASSERT_TRUE(catalogue.has_value());
    const Template& odd = *catalogue->front()->templates().front();
    EXPECT_TRUE(odd.width() == 0 && std::signbit(odd.width()));
    EXPECT_EQ(odd.height(), 375);
    EXPECT_EQ(odd.density(), 18446744073709551616.0);
    EXPECT_EQ(odd.name(), "");
}

TEST(ScreenCatalogue, isAbsentWhenAnythingInItIsWrong) {
    const std::string ok = R"("width": 1, "height": 2, "density": 3, "name": "a")";
    ASSERT_TRUE(readFrom(screen(ok)).has_value());
    const std::pair<const char*, std::string> table[] = {
        {"nothing", ""},
        {"no JSON", "ScreenTemplates"},
        {"the end is missing", "[{\"category\": \"TV\", \"templates\": ["},
        {"a trailing comma", "[{\"category\": \"TV\", \"templates\": []},]"},
        {"two lists", "[][]"},
        {"one record instead of a list", R"({"category": "TV", "templates": []})"},
        {"null", "null"},
        {"a list of numbers", "[1, 2]"},
        {"a list of lists", "[[]]"},
        {"an empty record", "[{}]"},
        {"a lower-case category", R"([{"category": "iphone", "templates": []}])"},
        {"a category of its own", R"([{"category": "Desktop", "templates": []}])"},
        {"a number as category", R"([{"category": 0, "templates": []}])"},
        {"no category", R"([{"templates": []}])"},
        {"no templates", R"([{"category": "TV"}])"},
        {"templates that are null", R"([{"category": "TV", "templates": null}])"},
        {"templates in a record", R"([{"category": "TV", "templates": {}}])"},
        {"a template that is a text", R"([{"category": "TV", "templates": ["a"]}])"},
        {"no name", screen(R"("width": 1, "height": 2, "density": 3)")},
        {"no width", screen(R"("height": 2, "density": 3, "name": "a")")},
        {"no height", screen(R"("width": 1, "density": 3, "name": "a")")},
        {"no density", screen(R"("width": 1, "height": 2, "name": "a")")},
        {"a number as a text", screen(R"("width": "1", "height": 2, "density": 3, "name": "a")")},
        {"infinity as a text", screen(R"("width": "inf", "height": 2, "density": 3, "name": "a")")},
        {"a Boolean", screen(R"("width": 1, "height": true, "density": 3, "name": "a")")},
        {"null as density", screen(R"("width": 1, "height": 2, "density": null, "name": "a")")},
        {"a number as name", screen(R"("width": 1, "height": 2, "density": 3, "name": 4)")},
        {"keys in other letters", screen(R"("Width": 1, "height": 2, "density": 3, "name": "a")")},
        {"a number in quotes as density",
         screen(R"("width": 1, "height": 2, "density": "3", "name": "a")")},
        {"a number with a plus", screen(R"("width": +1, "height": 2, "density": 3, "name": "a")")},
        {"a number in hexadecimal",
         screen(R"("width": 0x1, "height": 2, "density": 3, "name": "a")")},
        {"a number beyond doubles",
         screen(R"("width": 1e999, "height": 2, "density": 3, "name": "a")")},
        {"a name that is no UTF-8",
         screen("\"width\": 1, \"height\": 2, \"density\": 3, \"name\": \"\xFF\"")},
    };
    for (const auto& [says, text] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(readFrom(text), std::nullopt);
    }
}

TEST(ScreenCatalogue, isAbsentAsAWholeForOneMistakeAtItsEnd) {
    std::string text(valid);
    text.pop_back();
    text.append(R"(, {"category": "phone", "templates": []}])");
    EXPECT_EQ(readFrom(text), std::nullopt);
}

TEST(ScreenCatalogue, saysWhereATextIsWrongToThoseWhoAsk) {
    EXPECT_THAT([] { decodeScreenTemplates(R"([{"category": "tv", "templates": []}])"); },
                ThrowsMessage<DecodingError>("[0].category: \"tv\" is no category"));
    EXPECT_THAT(
        [] {
            decodeScreenTemplates(
                R"([{"category": "TV", "templates": []},
                    {"category": "TV", "templates": [{"width": "1"}]}])");
        },
        ThrowsMessage<DecodingError>("[1].templates[0].width: not a number"));
}

TEST(ScreenCatalogue, saysWhatIsWrongFirstInTheOrderOfTheKeysNotOfTheText) {
    EXPECT_THAT([] { decodeScreenTemplates(R"([{"templates": 1, "category": "tv"}])"); },
                ThrowsMessage<DecodingError>("[0].category: \"tv\" is no category"));
    const std::pair<const char*, const char*> table[] = {
        {R"("name": 1, "density": "", "height": "", "width": "")", "width"},
        {R"("name": 1, "density": "", "height": "", "width": 1)", "height"},
        {R"("name": 1, "density": "", "height": 1, "width": 1)", "density"},
        {R"("name": 1, "density": 1, "height": 1, "width": 1)", "name"},
    };
    for (const auto& [fields, key] : table) {
        const std::string text = screen(fields);
        const std::string place = std::string("[0].templates[0].") + key + ": ";
        EXPECT_THAT([&] { decodeScreenTemplates(text); },
                    ThrowsMessage<DecodingError>(::testing::StartsWith(place)));
    }
}

TEST(ScreenCatalogue, isAbsentWithoutAFileThatCanBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(readScreenTemplates(Bundle(folder.path())), std::nullopt);
    EXPECT_EQ(readScreenTemplates(Bundle(folder / "missing")), std::nullopt);
    EXPECT_EQ(readScreenTemplates(Bundle("")), std::nullopt);

    std::filesystem::create_directory(folder / "ScreenTemplates.json");
    EXPECT_EQ(readScreenTemplates(Bundle(folder.path())), std::nullopt) << "a folder";
    std::filesystem::remove(folder / "ScreenTemplates.json");

    const std::string file = folder.file("ScreenTemplates.json", "[]");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(file, std::filesystem::perms::none);
    const test::AsNobody nobody;
    EXPECT_EQ(readScreenTemplates(Bundle(folder.path())), std::nullopt) << "forbidden";
}

TEST(ScreenCatalogue, isSilentAboutWhatIsWrong) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    readFrom("[{}]");
    readScreenTemplates(Bundle("/missing"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ScreenCatalogue, ofTenMegabytesIsReadWhole) {
    std::string text = R"([{"category": "Web", "templates": [)";
    std::size_t count = 0;
    for (; text.size() < 10'000'000; ++count) {
        text.append(R"({"width": 375, "height": 812, "density": 3, "name": "screen )");
        text.append(std::to_string(count)).append("\"},\n");
    }
    text.erase(text.rfind(','));
    const std::string cut = text;
    text.append("]}]");
    const auto catalogue = readFrom(text);
    ASSERT_TRUE(catalogue.has_value());
    ASSERT_EQ(catalogue->front()->templates().size(), count);
    EXPECT_EQ(catalogue->front()->templates().back()->name(),
              "screen " + std::to_string(count - 1));
    EXPECT_EQ(readFrom(cut), std::nullopt);
}

TEST(ScreenCatalogue, beyondItsSizeLimitIsAbsent) {
    EXPECT_TRUE(readFrom(std::string(1'000'000, ' ').append("[]")).has_value());
    EXPECT_EQ(readFrom(std::string(std::size_t{64} << 20, ' ').append("[]")), std::nullopt);
}

std::string nested(std::size_t depth) {
    std::string text = R"([{"category": "TV", "templates": [], "more": )";
    return text.append(depth, '[').append("1").append(depth, ']').append("}]");
}

TEST(ScreenCatalogue, nestedTooDeepIsAbsent) {
    EXPECT_TRUE(readFrom(nested(1'000)).has_value());
    EXPECT_EQ(readFrom(nested(2'000)), std::nullopt);
    EXPECT_EQ(readFrom(nested(5'000'000)), std::nullopt);
    EXPECT_EQ(readFrom(std::string(5'000'000, '[')), std::nullopt);
}

RC_GTEST_PROP(ScreenCatalogue, readsWhatItWrites, ()) {
    ScreenCatalogue catalogue;
    for (const int index : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 5))) {
        ScreenTemplate::Templates templates;
        for (const auto& [width, height] : *rc::gen::arbitrary<std::vector<std::pair<int, int>>>())
            templates.push_back(Template::create(width / 4.0, height, index, "a \"name\""));
        catalogue.push_back(ScreenTemplate::create(
            allDeviceCategories[static_cast<std::size_t>(index)], std::move(templates)));
    }
    const std::string text = encodeScreenTemplates(catalogue);
    const ScreenCatalogue read = decodeScreenTemplates(text);
    RC_ASSERT(read.size() == catalogue.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        RC_ASSERT(read[i]->category() == catalogue[i]->category());
        const auto& templates = catalogue[i]->templates();
        RC_ASSERT(read[i]->templates().size() == templates.size());
        for (std::size_t k = 0; k < templates.size(); ++k) {
            RC_ASSERT(read[i]->templates()[k]->width() == templates[k]->width());
            RC_ASSERT(read[i]->templates()[k]->height() == templates[k]->height());
            RC_ASSERT(read[i]->templates()[k]->density() == templates[k]->density());
            RC_ASSERT(read[i]->templates()[k]->name() == templates[k]->name());
        }
    }
    RC_ASSERT(encodeScreenTemplates(read) == text);
}

RC_GTEST_PROP(ScreenCatalogue, survivesDamagedBytes, ()) {
    std::string text(valid);
    for (int i = *rc::gen::inRange(1, 4); i > 0; --i)
        text[*rc::gen::inRange<std::size_t>(0, text.size())] = *rc::gen::arbitrary<char>();
    try {
        decodeScreenTemplates(text);
    } catch (const DecodingError&) {
        // The damage may leave a catalogue or not; nothing else may happen.
    }
}

/// The catalogue that comes with the library.
ScreenCatalogue delivered() { return decodeScreenTemplates(readFile(QUORIN_SCREEN_TEMPLATES)); }

TEST(DeliveredCatalogue, isFoundWhereTheLibraryWasBuilt) {
    const auto found = libraryScreenTemplates();
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(encodeScreenTemplates(*found), encodeScreenTemplates(delivered()));
}

TEST(DeliveredCatalogue, hasEachCategoryOnceInOrder) {
    std::vector<DeviceCategory> categories;
    for (const auto& screens : delivered())
        categories.push_back(screens->category());
    EXPECT_THAT(categories, ::testing::ElementsAreArray(allDeviceCategories));
}

TEST(DeliveredCatalogue, holdsTheScreenThatDocumentsStartWith) {
    const ScreenCatalogue catalogue = delivered();
    int count = 0;
    for (const auto& screen : catalogue.front()->templates())
        count += screen->width() == 375 && screen->height() == 812 && screen->density() == 3;
    EXPECT_GT(count, 0);
}

TEST(DeliveredCatalogue, sizesScreensInPointsNotInPixels) {
    struct Row {
        const char* name;
        CGFloat pixelsWide, pixelsHigh, density;
    };
    // What the makers' tables of these screens say.
    const Row table[] = {
        {"iPhone SE", 750, 1334, 2},
        {"iPhone 11", 828, 1792, 2},
        {"iPhone 14 Pro", 1179, 2556, 3},
        {"iPhone 16 Pro Max", 1320, 2868, 3},
        {"iPad 9.7-inch", 1536, 2048, 2},
        {"iPad Pro 12.9-inch", 2048, 2732, 2},
        {"Watch SE 40 mm", 324, 394, 2},
        {"Watch Ultra 2", 410, 502, 2},
        {"TV HD", 1920, 1080, 1},
        {"TV 4K", 3840, 2160, 2},
        {"Laptop 1366 × 768", 1366, 768, 1},
    };
    std::map<std::string, std::shared_ptr<Template>> screens;
    for (const auto& category : delivered())
        for (const auto& screen : category->templates())
            screens[screen->name()] = screen;
    for (const auto& [name, pixelsWide, pixelsHigh, density] : table) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(screens.contains(name));
        EXPECT_EQ(screens[name]->width(), pixelsWide / density);
        EXPECT_EQ(screens[name]->height(), pixelsHigh / density);
        EXPECT_EQ(screens[name]->density(), density);
    }
}

TEST(DeliveredCatalogue, holdsScreensOfEveryDensityThatDocumentsCanHave) {
    const ScreenCatalogue catalogue = delivered();
    std::map<CGFloat, int> counts;
    for (const auto& screens : catalogue)
        for (const auto& screen : screens->templates())
            ++counts[screen->density()];
    EXPECT_THAT(counts, ElementsAre(::testing::Key(1), ::testing::Key(2), ::testing::Key(3),
                                    ::testing::Key(4)));
    const auto& web = catalogue.back()->templates();
    EXPECT_TRUE(std::any_of(web.begin(), web.end(),
                            [](const auto& screen) { return screen->density() == 1; }));
}

TEST(DeliveredCatalogue, namesEachScreenOnceAndSizesItInWholePoints) {
    std::map<std::string, int> names;
    for (const auto& screens : delivered())
        for (const auto& screen : screens->templates()) {
            SCOPED_TRACE(screen->name());
            EXPECT_EQ(++names[screen->name()], 1);
            for (const CGFloat side : {screen->width(), screen->height()}) {
                EXPECT_EQ(side, std::floor(side));
                EXPECT_GE(side, 100);
                EXPECT_LE(side, 4000);
            }
        }
    EXPECT_GE(names.size(), 50u);
}

}  // namespace
}  // namespace quorin
