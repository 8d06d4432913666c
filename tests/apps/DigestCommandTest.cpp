#include <filesystem>
#include <string>

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

// RFC 1321, appendix A.5, and FIPS 180-2, appendix A.
constexpr const char* abcLine =
    "900150983cd24fb0d6963f7d28e17f72  a9993e364706816aba3e25717850c26c9cd0d89d  ";
constexpr const char* heading =
    "md5                               sha1                                      file\n";

TEST(DigestCommand, printsBothDigestsOfEachFile) {
    const TemporaryFolder folder;
    const std::string abc = folder.file("abc", "abc"), empty = folder.file("empty", "");
    const ProgramRun run = runQuorin({"digest", abc, empty});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output,
              heading + (abcLine + abc) +
                  "\nd41d8cd98f00b204e9800998ecf8427e  da39a3ee5e6b4b0d3255bfef95601890afd80709  " +
                  empty + "\n");
}

TEST(DigestCommand, readsFilesOfManyBlocks) {
    const TemporaryFolder folder;
    const std::string file = folder.file("zeros", "");
    std::filesystem::resize_file(file, std::uintmax_t{16} << 20);
    const ProgramRun run = runQuorin({"digest", file});
    EXPECT_THAT(run, WentWell());
    // Of 16 MiB of zeros, by md5sum and sha1sum.
    EXPECT_THAT(run.output, testing::HasSubstr("2c7ab85a893283e98c931e9511add182  "
                                               "3b4417fc421cee30a9ad0fd9319220a8dae32da2  "));
}

TEST(DigestCommand, printsRecordsForPrograms) {
    const TemporaryFolder folder;
    const std::string abc = folder.file("abc", "abc");
    const ProgramRun run = runQuorin({"digest", "--json", abc, folder / "none"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "quorin: " + (folder / "none") + ": no such file\n");
    EXPECT_EQ(run.output, "[\n  {\n    \"file\": \"" + abc +
                              "\",\n    \"md5\": \"900150983cd24fb0d6963f7d28e17f72\",\n"
                              "    \"sha1\": \"a9993e364706816aba3e25717850c26c9cd0d89d\"\n  },\n"
                              "  {\n    \"file\": \"" +
                              (folder / "none") + "\",\n    \"error\": \"no such file\"\n  }\n]\n");
}

TEST(DigestCommand, saysWhichFilesItCannotRead) {
    const TemporaryFolder folder;
    EXPECT_THAT(runQuorin({"digest", folder / "none"}),
                RefusedInput(folder / "none: no such file"));
    EXPECT_THAT(runQuorin({"digest", folder.path()}),
                RefusedInput(folder.path() + ": is a directory"));
    const std::string abc = folder.file("abc", "abc");
    const ProgramRun run = runQuorin({"digest", folder / "none", abc});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, heading + (abcLine + abc) + "\n") << "the others are read";
}

}  // namespace
}  // namespace quorin
