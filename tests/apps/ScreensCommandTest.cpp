#include <filesystem>
#include <string>

#include "quorin/screens/ScreenCatalogue.h"
#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedInput;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* few =
    R"([{"category": "TV", "templates": [{"width": 1920, "height": 1080, "density": 2, "name": "large"}]},
        {"category": "Web", "templates": [{"width": 800, "height": 600.5, "density": 1, "name": "a\nb"}]}])";

TEST(ScreensCommand, printsTheCatalogueOfTheLibrary) {
    const ProgramRun run = runQuorin({"screens"});
    EXPECT_THAT(run, WentWell());
    EXPECT_THAT(run.output, StartsWith("category  screen "));
    EXPECT_THAT(run.output, HasSubstr("\niPhone    iPhone 13 mini "));
    EXPECT_THAT(run.output, HasSubstr("    375     812        3  1125 × 2436\n"));
    EXPECT_THAT(run.output, HasSubstr("\nWeb "));
}

TEST(ScreensCommand, printsTheScreensOfOneCategory) {
    const ProgramRun run = runQuorin({"screens", "--category", "Watch"});
    EXPECT_THAT(run, WentWell());
    EXPECT_THAT(run.output, HasSubstr("\nWatch "));
    EXPECT_THAT(run.output, Not(HasSubstr("iPhone")));
}

TEST(ScreensCommand, printsACatalogueThatCanBeReadAgain) {
    const ProgramRun run = runQuorin({"screens", "--json"});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(encodeScreenTemplates(decodeScreenTemplates(run.output)) + "\n", run.output);
    const ProgramRun web = runQuorin({"screens", "--json", "--category", "Web"});
    EXPECT_EQ(decodeScreenTemplates(web.output).size(), 1u);
}

TEST(ScreensCommand, printsAnotherCatalogue) {
    const TemporaryFolder folder;
    const ProgramRun run = runQuorin({"screens", folder.file("few.json", few)});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output,
              "category  screen  width  height  density       pixels\n"
              "TV        large    1920    1080        2  3840 × 2160\n"
              "Web       a?b       800   600.5        1  800 × 600.5\n");
    EXPECT_EQ(runQuorin({"screens", folder.file("none.json", "[]")}).output,
              "category  screen  width  height  density  pixels\n");
}

TEST(ScreensCommand, saysWhatIsWrongWithACatalogue) {
    const TemporaryFolder folder;
    EXPECT_THAT(runQuorin({"screens", folder / "none.json"}),
                RefusedInput(folder / "none.json: no such file"));
    const std::string lower = folder.file("lower.json", R"([{"category": "tv", "templates": []}])");
    EXPECT_THAT(runQuorin({"screens", lower}),
                RefusedInput(lower + ": [0].category: \"tv\" is no category"));
}

TEST(ScreensCommand, refusesACategoryThatIsNone) {
    EXPECT_EQ(runQuorin({"screens", "--category", "iphone"}).exitCode, 2);
}

TEST(ScreensCommand, readsTheCatalogueOfTheTreeInWhichTheProgramIsInstalled) {
    const TemporaryFolder tree;
    std::filesystem::create_directories(tree / "bin");
    std::filesystem::create_directories(tree / "share/QuorinGraphics");
    std::filesystem::copy_file(test::quorinProgram, tree / "bin/quorin");
    const auto runFrom = [&](const std::string& folder) {
        // By its bare name, as a user does, which does not tell where it is.
        return test::runQuorinAfter("PATH='" + (tree / folder) + "' exec quorin screens", {});
    };

    EXPECT_EQ(runFrom("bin").output, runQuorin({"screens"}).output)
        << "built in when there is no file";
    const std::string file = tree.file("share/QuorinGraphics/ScreenTemplates.json", few);
    EXPECT_THAT(runFrom("bin").output, HasSubstr("large"));
    EXPECT_THAT(runFrom("bin").output, Not(HasSubstr("iPhone")));

    std::filesystem::create_directory(tree / "links");
    std::filesystem::create_symlink(tree / "bin/quorin", tree / "links/quorin");
    EXPECT_THAT(runFrom("links").output, HasSubstr("large"));

    tree.file("share/QuorinGraphics/ScreenTemplates.json", "[{}]");
    EXPECT_THAT(runFrom("bin"), RefusedInput(file + ": [0].category: key not found"));
}

}  // namespace
}  // namespace quorin
