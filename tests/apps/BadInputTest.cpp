#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedInput;
using test::runQuorin;
using test::TemporaryFolder;

/// What each command does with a drawing that cannot be read, `output` being there before.
std::vector<std::vector<std::string>> commandsReading(const std::string& file,
                                                      const std::string& output) {
    return {{"hit", file, "--at", "1,1"},
            {"convert", file, output + ".svg"},
            {"convert", file, output + ".json"},
            {"render", file, output + ".png"},
            {"transform", file, output + ".svg", "--scale", "2"},
            {"round", file, output + ".json", "--radius", "2"},
            {"trim", file, output + ".svg", "--to", "0.5"},
            {"compare", file, file},
            {"sheet", output + ".png", file}};
}

void expectRefusal(const TemporaryFolder& folder, const std::string& file,
                   const std::string& message) {
    SCOPED_TRACE(message);
    for (const char* extension : {"out.svg", "out.json", "out.png"})
        folder.file(extension, "as it was");
    const std::ptrdiff_t countBefore = folder.count();
    for (const auto& arguments : commandsReading(file, folder / "out"))
        EXPECT_THAT(runQuorin(arguments), RefusedInput(message)) << arguments[0];
    EXPECT_EQ(runQuorin({"info", file}).errors, "quorin: " + message + "\n");

    EXPECT_EQ(folder.count(), countBefore) << "something was left behind";
    for (const char* extension : {"out.svg", "out.json", "out.png"})
        EXPECT_EQ(test::contents(folder / extension), "as it was");
}

TEST(BadInput, isNamedInOneLineAndLeavesOutputAlone) {
    struct Row {
        const char* name;
        const char* contents;
        const char* message;
    };
    const Row table[] = {
        {"empty.svg", "", ": the file is empty"},
        {"text.svg", "hello\n", ":1: this is not SVG: it does not begin with '<'"},
        {"html.svg", "<html>\n<p/></html>", ":1: this is not SVG: its first element is <html>"},
        {"open.svg", "<svg xmlns='http://www.w3.org/2000/svg'>\n\n<g>",
         ":3: the text ends before the last element does"},
        {"packed.svg", "\x1f\x8b\x08", ": compressed by gzip: unpack it first"},
        {"empty.json", "", ": the file is empty"},
        {"text.json", "hello", ": line 1, column 1: expected a value"},
        {"truncated.json", "{\"version\": 1,\n \"viewBox\": [[0",
         ": line 2, column 16: the text ends, expected ',' or ']'"},
        {"list.json", "[1]", ": not a record"},
        {"keys.json", "{\"version\": 1, \"viewbox\": 0}", ": viewBox: key not found"},
    };
    for (const auto& [name, contents, message] : table) {
        const TemporaryFolder folder;
        const std::string file = folder.file(name, contents);
        expectRefusal(folder, file, file + message);
    }
}

TEST(BadInput, isNamedWhereThereIsNoFileToRead) {
    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", test::sampleSvg);
    expectRefusal(folder, folder / "missing.svg", folder / "missing.svg: no such file");
    expectRefusal(folder, folder.path(), folder.path() + ": is a directory");
    expectRefusal(folder, file + "/b.svg", file + "/b.svg: Not a directory");
    // A file that opens and then cannot be read, whoever asks.
    expectRefusal(folder, "/proc/self/mem", "/proc/self/mem: Input/output error");
}

}  // namespace
}  // namespace quorin
