#pragma once

#include <simdjson.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "quorin/platform/foundation/JSONDecoder.h"

namespace quorin {

/// A JSON text taken apart: the text once more with the padding that the fast reader wants, where
/// the tokens start, and the values. Kept together to be advised on, which `simdjson::dom::parser`
/// does not allow.
class ParsedJSON {
public:
    /// Throws `DecodingError` as `JSONDecoder` says.
    ParsedJSON(std::string_view text, const JSONDecoder::Options& options);

    simdjson::dom::element root() const { return document.root(); }

private:
    simdjson::error_code parse(std::string_view text, std::size_t maximumDepth);
    simdjson::error_code allocate(std::size_t size, std::size_t maximumDepth);

    std::unique_ptr<std::uint8_t[]> padded;
    std::unique_ptr<simdjson::internal::dom_parser_implementation> parser;
    simdjson::dom::document document;
};

}  // namespace quorin
