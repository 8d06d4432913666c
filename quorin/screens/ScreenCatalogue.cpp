#include "quorin/screens/ScreenCatalogue.h"

#include <exception>

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"
#include "quorin/screens/resources/BuiltInScreenTemplates.h"

namespace quorin {
namespace {

constexpr std::size_t maximumFileSize = std::size_t{64} << 20;  // 700,000 screens

std::optional<URL> catalogueURL(const Bundle& bundle) {
    return bundle.resourceURL("ScreenTemplates", "json");
}

}  // namespace

ScreenCatalogue decodeScreenTemplates(std::string_view json) {
    ScreenCatalogue catalogue;
    JSONDecoder().decodeRecords(json, [&](Decoder& record, std::size_t) {
        catalogue.push_back(ScreenTemplate::decode(record));
    });
    return catalogue;
}

std::string encodeScreenTemplates(const ScreenCatalogue& catalogue) {
    const JSONEncoder encoder({.indentation = 2});
    return encoder.encodeRecords(
        catalogue.size(), [&](Encoder& record, std::size_t i) { catalogue[i]->encode(record); });
}

std::optional<ScreenCatalogue> readScreenTemplates(const Bundle& bundle) {
    const auto url = catalogueURL(bundle);
    if (!url)
        return std::nullopt;
    try {
        return decodeScreenTemplates(readFile(url->path(), maximumFileSize));
    } catch (const std::exception&) {
        // A document can be sized without a catalogue, so nobody is bothered with what is wrong.
        return std::nullopt;
    }
}

std::optional<ScreenCatalogue> libraryScreenTemplates() {
    const Bundle& bundle = Bundle::library();
    if (catalogueURL(bundle))
        return readScreenTemplates(bundle);
    return decodeScreenTemplates(builtInScreenTemplates());
}

}  // namespace quorin
