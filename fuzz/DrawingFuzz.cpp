#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/FuzzSupport.h"
#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"
#include "quorin/svg/Drawing.h"

using namespace quorin;

/// Any text is a drawing's record or a `DecodingError`, and what was decoded is written in a form
/// that does not change any more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const JSONDecoder decoder;
    const JSONEncoder encoder;
    try {
        const std::string once = encoder.encode(decoder.decode<Drawing>(text));
        fuzz::expect(encoder.encode(decoder.decode<Drawing>(once)) == once,
                     "a drawing comes back from its record");
    } catch (const DecodingError&) {
    }
    return 0;
}
