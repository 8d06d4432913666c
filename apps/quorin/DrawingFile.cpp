#include "apps/quorin/DrawingFile.h"

#include <algorithm>
#include <string_view>

#include "apps/quorin/Console.h"
#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"
#include "quorin/svg/SvgWriter.h"

namespace quorin::app {

namespace {

char smallLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool hasExtension(std::string_view file, std::string_view extension) {
    if (file.size() <= extension.size())
        return false;
    const std::string_view end = file.substr(file.size() - extension.size());
    return std::equal(end.begin(), end.end(), extension.begin(),
                      [](char c, char small) { return smallLetter(c) == small; });
}

LoadedDrawing readDrawing(const std::string& text, const std::string& file) {
    if (hasExtension(file, ".json"))
        return {JSONDecoder().decode<Drawing>(text), {}};
    SvgReadResult result = readSvg(text, file);
    return {std::move(result.drawing), std::move(result.warnings)};
}

}  // namespace

// What stands behind "icon.svg:" starts with the number of the line.
InputError::InputError(const SvgError& error)
    : std::runtime_error(error.what()),
      _reason(
          std::string("line ").append(std::string_view(what()).substr(error.file().size() + 1))) {}

LoadedDrawing loadDrawing(const std::string& file) {
    try {
        const std::string text = readFile(file);
        if (text.empty())
            throw InputError(file, "the file is empty");
        if (text.starts_with("\x1f\x8b"))
            throw InputError(file, "compressed by gzip: unpack it first");
        return readDrawing(text, file);
    } catch (const FileError& error) {
        throw InputError(file, error.reason());
    } catch (const SvgError& error) {
        throw InputError(error);
    } catch (const DecodingError& error) {
        throw InputError(file, error.what());
    }
}

Drawing loadDrawingAloud(const std::string& file) {
    LoadedDrawing loaded = loadDrawing(file);
    for (const SvgWarning& warning : loaded.warnings)
        complain(warning.description());
    return std::move(loaded.drawing);
}

void requireArea(const Drawing& drawing, const std::string& file) {
    const auto isThere = [](const CGSize& size) { return size.width > 0 && size.height > 0; };
    if (!isThere(drawing.size) || !isThere(drawing.viewBox.size))
        throw InputError(file, "the drawing has no size, so there is nothing to paint");
}

bool isDrawingName(const std::string& file) {
    return hasExtension(file, ".svg") || hasExtension(file, ".json");
}

bool isPictureName(const std::string& file) { return hasExtension(file, ".png"); }

void requireDrawingName(const std::string& file) {
    if (!isDrawingName(file))
        throw InputError(file, "the name of a drawing to write must end in .svg or .json");
}

void requirePictureName(const std::string& file) {
    if (!isPictureName(file))
        throw InputError(file, "the name of a picture to write must end in .png");
}

void saveDrawing(const Drawing& drawing, const std::string& file) {
    requireDrawingName(file);
    try {
        writeFileAtomically(file, hasExtension(file, ".json")
                                      ? JSONEncoder({.indentation = 2}).encode(drawing)
                                      : writeSvg(drawing));
    } catch (const FileError& error) {
        throw InputError(file, error.reason());
    } catch (const EncodingError& error) {
        throw InputError(file, error.what());
    }
}

void savePicture(const CGImage& picture, const std::string& file) {
    requirePictureName(file);
    try {
        picture.writePNG(file);
    } catch (const FileError& error) {
        throw InputError(file, error.reason());
    }
}

}  // namespace quorin::app
