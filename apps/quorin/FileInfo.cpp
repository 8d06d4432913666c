#include "apps/quorin/FileInfo.h"

#include <new>

#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingFile.h"

namespace quorin::app {

FileInfo infoOf(const std::string& file) {
    FileInfo info;
    info.file = file;
    try {
        LoadedDrawing loaded = loadDrawing(file);
        info.size = loaded.drawing.size;
        info.viewBox = loaded.drawing.viewBox;
        info.paths = summarize(loaded.drawing);
        info.totals = totalsOf(loaded.drawing, info.paths);
        info.warnings = std::move(loaded.warnings);
    } catch (const InputError& error) {
        info.error = error.what();
        info.reason = error.reason();
    } catch (const std::bad_alloc&) {
        info.reason = "not enough memory";
        info.error = file + ": " + *info.reason;
    }
    return info;
}

void FileInfo::encode(Encoder& encoder) const {
    encoder.encodeText("file", validUtf8(file));
    if (reason) {
        encoder.encodeText("error", validUtf8(*reason));
        return;
    }
    encoder.encodeSize("size", size);
    encoder.encodeRect("viewBox", viewBox);
    encoder.encodeInt("shapes", static_cast<std::int64_t>(totals.shapes));
    encoder.encodeInt("anchors", static_cast<std::int64_t>(totals.anchors));
    encoder.encodeNumber("length", totals.length);
    encodeBox(boxAround(paths), encoder);
    encoder.encodeRecords("paths", paths.size(),
                          [&](Encoder& record, std::size_t index) { paths[index].encode(record); });
    encoder.encodeRecords("warnings", warnings.size(), [&](Encoder& record, std::size_t index) {
        const SvgWarning& warning = warnings[index];
        record.encodeInt("line", static_cast<std::int64_t>(warning.line));
        record.encodeInt("offset", static_cast<std::int64_t>(warning.offset));
        record.encodeText("message", validUtf8(warning.message));
    });
}

}  // namespace quorin::app
