#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/FuzzSupport.h"
#include "quorin/platform/values/KeyedCoding.h"
#include "quorin/svg/SvgReader.h"
#include "quorin/svg/SvgWriter.h"

using namespace quorin;

namespace {

std::optional<Drawing> read(std::string_view text) {
    // Small enough that `use` elements cannot multiply an input into minutes of work.
    const SvgLimits limits{.bytes = 1 << 20, .elements = 2'000, .pathCommands = 20'000};
    try {
        return readSvg(text, "fuzz.svg", limits).drawing;
    } catch (const SvgError&) {
        return std::nullopt;
    }
}

std::optional<std::string> write(const Drawing& drawing) {
    try {
        return writeSvg(drawing);
    } catch (const EncodingError&) {  // a transform has led beyond the doubles
        return std::nullopt;
    }
}

}  // namespace

/// Any text is a drawing or an `SvgError`, and a drawing comes back from what is written of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto drawing = read({reinterpret_cast<const char*>(data), size});
    if (!drawing)
        return 0;
    const auto written = write(*drawing);
    if (written)
        fuzz::expect(hasSameGeometry(readSvg(*written, "written.svg").drawing, *drawing),
                     "the geometry comes back from what was written");
    return 0;
}
