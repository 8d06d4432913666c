#include "quorin/platform/foundation/json/ParsedJSON.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "quorin/platform/foundation/JSONSyntax.h"
#include "quorin/platform/foundation/PageAdvice.h"

namespace quorin {
namespace {

[[noreturn]] void throwSyntaxError(std::string_view text, std::size_t maximumDepth,
                                   simdjson::error_code code) {
    const auto error = findJSONSyntaxError(text, maximumDepth);
    throw DecodingError(DecodingError::Kind::valueCorrupted,
                        error ? describePlace(text, error->offset) + ": " + error->reason
                              : simdjson::error_message(code));
}

std::string_view withoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.substr(text.starts_with(mark) ? mark.size() : 0);
}

}  // namespace

ParsedJSON::ParsedJSON(std::string_view text, const JSONDecoder::Options& options) {
    if (text.size() > options.maximumTextSize)
        throw DecodingError(DecodingError::Kind::valueCorrupted,
                            "text of " + std::to_string(text.size()) + " bytes, the limit is " +
                                std::to_string(options.maximumTextSize));
    text = withoutByteOrderMark(text);
    const std::size_t maximumDepth = std::min<std::size_t>(options.maximumDepth, 1'000'000);

    // The fast reader has neither -0 nor integers beyond 64 bits; both are rare enough to read
    // twice.
    simdjson::error_code error = simdjson::NUMBER_ERROR;
    if (!hasNegativeZeroIntegers(text))
        error = parse(text, maximumDepth);
    if (error == simdjson::NUMBER_ERROR)
        error = parse(spellingOutDoubles(text), maximumDepth);

    if (error == simdjson::MEMALLOC)
        throw std::bad_alloc();
    if (error != simdjson::SUCCESS)
        throwSyntaxError(text, maximumDepth, error);
}

simdjson::error_code ParsedJSON::parse(std::string_view text, std::size_t maximumDepth) {
    if (const auto error = allocate(text.size(), maximumDepth))
        return error;
    std::memcpy(padded.get(), text.data(), text.size());
    std::memset(padded.get() + text.size(), ' ', simdjson::SIMDJSON_PADDING);
    return parser->parse(padded.get(), text.size(), document);
}

simdjson::error_code ParsedJSON::allocate(std::size_t size, std::size_t maximumDepth) {
    const std::size_t capacity = std::max(size, simdjson::dom::MINIMAL_DOCUMENT_CAPACITY);
    // The parser counts the text itself as a level.
    if (const auto error = simdjson::get_active_implementation()->create_dom_parser_implementation(
            capacity, maximumDepth + 1, parser))
        return error;
    if (const auto error = document.allocate(capacity))
        return error;
    const std::size_t paddedSize = size + simdjson::SIMDJSON_PADDING;
    padded = std::make_unique_for_overwrite<std::uint8_t[]>(paddedSize);
    adviseHugePages(padded.get(), paddedSize);
    adviseHugePages(parser->structural_indexes.get(), capacity * sizeof(std::uint32_t));
    adviseHugePages(document.tape.get(), capacity * sizeof(std::uint64_t));
    adviseHugePages(document.string_buf.get(), capacity);
    return simdjson::SUCCESS;
}

}  // namespace quorin
