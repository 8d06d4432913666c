#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/FileWork.h"
#include "apps/quorin/TextTable.h"
#include "quorin/extensions/NSDataExtension.h"
#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/Digest.h"
#include "quorin/platform/foundation/FileBlocks.h"
#include "quorin/platform/foundation/JSONEncoder.h"

namespace quorin::app {

namespace {

struct DigestOptions {
    std::vector<std::string> files;
    bool asJson = false;
};

struct FileDigests {
    std::string file, md5, sha1;
    std::string error;  ///< why there are none, else empty
};

/// Reads the file once for both; throws nothing.
FileDigests digestsOf(const std::string& file) {
    FileDigests digests;
    digests.file = file;
    try {
        Digest md5(DigestAlgorithm::md5), sha1(DigestAlgorithm::sha1);
        forEachBlock(file, [&](std::string_view block) {
            md5.update(block);
            sha1.update(block);
        });
        digests.md5 = hexadecimal(md5.finish());
        digests.sha1 = hexadecimal(sha1.finish());
    } catch (const FileError& error) {
        digests.error = error.reason();
    } catch (const std::bad_alloc&) {
        digests.error = "not enough memory";
    }
    return digests;
}

void printJson(const std::vector<FileDigests>& all) {
    const JSONEncoder encoder({.indentation = 2});
    print(encoder.encodeRecords(all.size(), [&](Encoder& record, std::size_t i) {
        record.encodeText("file", validUtf8(all[i].file));
        if (!all[i].error.empty())
            return record.encodeText("error", validUtf8(all[i].error));
        record.encodeText("md5", all[i].md5);
        record.encodeText("sha1", all[i].sha1);
    }));
    print("\n");
}

void printTable(const std::vector<FileDigests>& all) {
    constexpr auto left = TextColumn::Side::left;
    TextTable table({{"md5", left}, {"sha1", left}, {"file", left}});
    bool isEmpty = true;
    for (const FileDigests& digests : all) {
        if (!digests.error.empty())
            continue;
        table.add({digests.md5, digests.sha1, oneLine(digests.file)});
        isEmpty = false;
    }
    if (!isEmpty)
        print(table.text());
}

void run(const DigestOptions& options) {
    std::vector<FileDigests> all(options.files.size());
    forEachFile(all.size(), "reading",
                [&](std::size_t index) { all[index] = digestsOf(options.files[index]); });
    bool isComplete = true;
    for (const FileDigests& digests : all) {
        if (digests.error.empty())
            continue;
        complain(digests.file + ": " + digests.error);
        isComplete = false;
    }
    if (options.asJson)
        printJson(all);
    else
        printTable(all);
    if (!isComplete)
        throw CLI::RuntimeError(1);
}

}  // namespace

void addDigestCommand(CLI::App& program) {
    const auto options = std::make_shared<DigestOptions>();
    CLI::App* const command =
        program.add_subcommand("digest", "Tell files apart by their MD5 and SHA-1 digests");
    command->add_option("FILE", options->files, "Files of any kind and size")
        ->type_name("")
        ->required();
    command->add_flag("--json", options->asJson, "Print a JSON list");
    command->footer(
        "Equal files have equal digests, and files that differ by chance have different ones. "
        "They\n"
        "do not prove who made a file: two files with one digest can be made on purpose.\n\n"
        "Examples:\n"
        "  quorin digest icon.svg\n"
        "  quorin digest --json icons/*.svg");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
