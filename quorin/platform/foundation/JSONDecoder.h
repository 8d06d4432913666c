#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "quorin/platform/values/FunctionRef.h"
#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

/// Reads keyed records from JSON text in UTF-8, with or without a byte order mark. Every finite
/// double comes back bit for bit; integers beyond 64 bits are read as doubles; of a key that
/// stands twice in a record the last value counts.
///
/// Throws `DecodingError`. Where a value is missing or wrong the message starts with its coding
/// path (`segments[3].point[1]: not a number`); where the text is no JSON, with the place (`line 3,
/// column 14: expected ':'`); where a limit was passed it names that limit.
class JSONDecoder {
public:
    struct Options {
        /// How deep lists and records may stand in each other; one that is empty does not count.
        /// More than a million is taken as a million.
        std::size_t maximumDepth = 1'024;
        /// In bytes. Reading reserves about fifteen times as much memory for a moment, and uses a
        /// third of it.
        std::size_t maximumTextSize = std::size_t{512} << 20;
        /// Reads the texts "inf", "-inf" and "nan" where a number is asked for.
        bool nonFiniteAsTexts = false;
    };

    JSONDecoder() = default;
    explicit JSONDecoder(Options how) : options(how) {}

    /// The text's record, read by `body`.
    void decode(std::string_view text, FunctionRef<void(Decoder&)> body) const;
    /// A list of records without a record around it; `body` reads the one of the given index.
    void decodeRecords(std::string_view text, FunctionRef<void(Decoder&, std::size_t)> body) const;

    /// What `Record::decode` makes of the text's record.
    template <typename Record>
    auto decode(std::string_view text) const {
        std::optional<decltype(Record::decode(std::declval<Decoder&>()))> result;
        decode(text, [&](Decoder& decoder) { result.emplace(Record::decode(decoder)); });
        return *std::move(result);
    }

private:
    Options options;
};

}  // namespace quorin
