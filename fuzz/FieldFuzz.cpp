// Arbitrary bytes are typed into a field of every kind, in a locale that the first byte chooses:
// each transformer gives a number, a list of radii, or the text as it was typed, and what was read
// can be shown and is then read again.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/FuzzSupport.h"
#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/transformers/ValueTransformer.h"

namespace quorin::fuzz {
namespace {

constexpr const char* locales[] = {"en_US", "de_DE", "fr_FR", "sv_SE", "hi_IN", "C"};

bool isRadius(const Value& value) {
    const auto number = value.asDouble();
    return number && (std::isnan(*number) || (*number >= 0 && !std::signbit(*number)));
}

void expectWhatMayBeRead(const std::string& text, const Value& value) {
    if (const Value::List* radii = value.asList()) {
        expect(!radii->empty(), "a text has at least one radius");
        for (const Value& radius : *radii)
            expect(isRadius(radius), "radii are not negative");
    } else {
        expect(value.isNothing() || value.asNumber() || value == Value(text),
               "what is no number stays as it was typed");
    }
}

void type(const std::string& text) {
    for (const std::string& name : ValueTransformer::classNames()) {
        const auto transformer = ValueTransformer::create(name);
        const Value value = transformer->reverseTransformedValue(text);
        expectWhatMayBeRead(text, value);
        const Value shown = transformer->transformedValue(value);
        if (const std::string* again = shown.asText())
            expectWhatMayBeRead(*again, transformer->reverseTransformedValue(shown));
    }
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    if (size == 0)
        return 0;
    const NSLocale::CurrentScope scope(fuzz::locales[data[0] % std::size(fuzz::locales)]);
    fuzz::type(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
    return 0;
}
