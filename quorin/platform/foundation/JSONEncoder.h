#pragma once

#include <concepts>
#include <cstddef>
#include <string>

#include "quorin/platform/values/FunctionRef.h"
#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

/// Writes keyed records as JSON text in UTF-8. Numbers have the fewest digits that read back to
/// the same double, -0.0 included; the text depends on nothing but the record.
///
/// Throws `EncodingError`, the coding path in its message, for a number that is not finite and for
/// text that is not UTF-8; nothing of the record is handed out then.
class JSONEncoder {
public:
    struct Options {
        /// Spaces by which each level is set in, for human readers; 0 writes a single line.
        std::size_t indentation = 0;
        /// Writes numbers that are not finite as the texts "inf", "-inf" and "nan".
        bool nonFiniteAsTexts = false;
    };

    JSONEncoder() = default;
    explicit JSONEncoder(Options how) : options(how) {}

    /// The record that `body` writes.
    std::string encode(FunctionRef<void(Encoder&)> body) const;
    /// A list of `count` records without a record around it.
    std::string encodeRecords(std::size_t count,
                              FunctionRef<void(Encoder&, std::size_t)> body) const;

    /// A value that writes itself.
    template <typename Record>
    requires requires(const Record& record, Encoder& encoder) { record.encode(encoder); }
    std::string encode(const Record& record) const {
        return encode([&](Encoder& encoder) { record.encode(encoder); });
    }

private:
    Options options;
};

}  // namespace quorin
