#include <CLI/CLI.hpp>
#include <cstddef>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "apps/quorin/ArgumentText.h"
#include "apps/quorin/Commands.h"
#include "apps/quorin/Console.h"
#include "apps/quorin/DrawingChange.h"
#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/ParsedOption.h"
#include "apps/quorin/PictureOptions.h"
#include "apps/quorin/StopSignals.h"
#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/FileMonitor.h"

namespace quorin::app {

namespace {

struct WatchOptions {
    std::string input, output;  // an empty output stands for one beside the drawing
    PictureOptions picture;
    std::size_t count = 0;  // of changes; 0 watches without end
};

/// A picture that keeps up with its drawing.
class LivePicture {
public:
    explicit LivePicture(const WatchOptions& given)
        : options(given), output(given.output.empty() ? given.input + ".png" : given.output) {
        requirePictureName(output);
    }

    /// Reads and paints the drawing as it is now and says what became of it, in one line. Throws
    /// `InputError` when the picture cannot be written.
    void update() {
        isGood = false;
        std::optional<DrawingReading> now;
        std::shared_ptr<const CGImage> picture;
        try {
            now.emplace(loadDrawing(options.input));
            picture = pictureOf(now->drawing(), options.input, output, options.picture);
        } catch (const InputError& error) {
            complainOf(error.what());
            return;
        } catch (const std::bad_alloc&) {
            complainOf(options.input + ": not enough memory");
            return;
        }
        savePicture(*picture, output);
        for (const std::string& warning : now->newWarnings(shown ? &*shown : nullptr))
            complain(warning);
        print(lineOf(*now));
        shown = std::move(now);
        isGood = true;
    }
    /// The same, a picture that cannot be written being something to complain of.
    void keepUp() {
        try {
            update();
        } catch (const InputError& error) {
            complain(error.what());
        }
    }
    /// Whether the last drawing was painted.
    bool isUpToDate() const { return isGood; }

private:
    void complainOf(std::string message) const {
        complain(message.append(shown ? "; the picture stays" : "; no picture yet"));
    }
    std::string lineOf(const DrawingReading& now) const {
        std::string line = oneLine(options.input).append(": ");
        if (shown)
            return line.append(now.changesSince(*shown)).append("\n");
        return line.append(now.numbers())
            .append("; the picture is ")
            .append(oneLine(output))
            .append("\n");
    }

    const WatchOptions& options;
    const std::string output;
    std::optional<DrawingReading> shown;  // in the picture
    bool isGood = false;
};

/// A name that is mistyped is not waited for, while what a file holds may get better.
void requireReadable(const std::string& file) {
    try {
        (void)readFile(file);
    } catch (const FileError& error) {
        throw InputError(file, error.reason());
    }
}

void watch(const WatchOptions& options, LivePicture& picture) {
    const std::shared_ptr<RunLoop> loop = RunLoop::current();
    const StopSignals signals(*loop);
    // Before the first reading, so that nothing is missed in between.
    std::size_t changes = 0;
    const FileMonitor monitor(options.input, loop, [&](const std::optional<FileState>&) {
        picture.keepUp();
        if (++changes == options.count || isOutputBroken())
            loop->stop();
    });
    picture.update();
    loop->run();
    if (options.count > 0 && changes == options.count && !picture.isUpToDate())
        throw CLI::RuntimeError(1);
}

void run(const WatchOptions& options) {
    LivePicture picture(options);
    requireReadable(options.input);
    sendLinesAtOnce();
    try {
        watch(options, picture);
    } catch (const FileError& error) {
        throw InputError(options.input, error.reason());
    }
}

}  // namespace

void addWatchCommand(CLI::App& program) {
    const auto options = std::make_shared<WatchOptions>();
    CLI::App* const command =
        program.add_subcommand("watch", "Paint a drawing into a PNG file whenever it changes");
    command->add_option("DRAWING", options->input, "The drawing to watch, .svg or .json")
        ->type_name("")
        ->required();
    command
        ->add_option("--output", options->output,
                     "The picture to write, ending in .png [the drawing's name with .png behind]")
        ->type_name("PNG");
    addPictureOptions(*command, options->picture);
    addParsedOption(
        *command, "--count", "N", options->count,
        [](std::string_view name, std::string_view text) {
            return countOf(name, text, 1, 1'000'000'000);
        },
        "End after so many changes [end when asked to]");
    command->footer(
        "Prints a line for each change, and one on standard error for a drawing that cannot be\n"
        "read, of which the picture takes no notice. Ctrl-C ends it. With --count the exit code "
        "is\n"
        "1 when the last drawing could not be painted.\n\n"
        "Examples:\n"
        "  quorin watch icon.svg                                paints icon.svg.png\n"
        "  quorin watch icon.svg --output icon.png --size 512 --anchors\n"
        "  quorin watch icon.svg --count 1 && echo saved");
    command->callback([options] { run(*options); });
}

}  // namespace quorin::app
