#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "quorin/platform/drawing/CGImage.h"
#include "quorin/svg/Drawing.h"
#include "quorin/svg/SvgReader.h"

namespace quorin::app {

/// What the user gave cannot be used. The message is one line that names the file and the place.
class InputError : public std::runtime_error {
public:
    InputError(const std::string& file, const std::string& reason)
        : std::runtime_error(file + ": " + reason), _reason(reason) {}
    explicit InputError(const SvgError& error);

    /// The message without the file, to be read beside its name.
    const std::string& reason() const { return _reason; }

private:
    std::string _reason;
};

struct LoadedDrawing {
    Drawing drawing;
    std::vector<SvgWarning> warnings;  ///< of what was left out, none for JSON
};

/// Reads a drawing: keyed JSON when the name ends in .json, otherwise SVG. Throws `InputError`.
LoadedDrawing loadDrawing(const std::string& file);
/// The same for one drawing that is worked on alone: warnings go to standard error.
Drawing loadDrawingAloud(const std::string& file);

/// Throws `InputError` unless there is something of the drawing's plane to be painted.
void requireArea(const Drawing& drawing, const std::string& file);

/// Writes a drawing in the form its name asks for, .svg or .json, whole or not at all. Throws
/// `InputError`.
void saveDrawing(const Drawing& drawing, const std::string& file);
/// Writes a PNG file, whole or not at all. Throws `InputError`.
void savePicture(const CGImage& picture, const std::string& file);

/// Whether a name ends in a form that can be written, in letters of any case.
bool isDrawingName(const std::string& file);
bool isPictureName(const std::string& file);

/// Throw `InputError` unless the name is one.
void requireDrawingName(const std::string& file);
void requirePictureName(const std::string& file);

}  // namespace quorin::app
