#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// A record cannot be read. The message starts with the coding path of the place, for example
/// `segments[3].radius: key not found`.
class DecodingError : public std::runtime_error {
public:
    enum class Kind { keyNotFound, typeMismatch, valueCorrupted };

    DecodingError(Kind kind, const std::string& message)
        : std::runtime_error(message), _kind(kind) {}

    Kind kind() const { return _kind; }

private:
    Kind _kind;
};

/// A value cannot be written, for example a number that is not finite. The message starts with
/// the coding path of the place.
class EncodingError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes one record of named values, in the order of the calls. Which form the record takes
/// (JSON, a binary form) is the implementation's affair.
///
/// A point is written as the list [x, y], a size as [width, height], a vector as [dx, dy], a rect
/// as [[x, y], [width, height]], a transform as its six numbers. Throws `EncodingError`.
///
/// An encoder writes only while no inner record of it is open.
class Encoder {
public:
    virtual ~Encoder() = default;

    virtual void encodeBool(std::string_view key, bool value) = 0;
    virtual void encodeInt(std::string_view key, std::int64_t value) = 0;
    virtual void encodeNumber(std::string_view key, CGFloat value) = 0;
    virtual void encodeText(std::string_view key, std::string_view value) = 0;
    virtual void encodePoint(std::string_view key, CGPoint value) = 0;
    virtual void encodeSize(std::string_view key, CGSize value) = 0;
    virtual void encodeVector(std::string_view key, CGVector value) = 0;
    virtual void encodeRect(std::string_view key, const CGRect& value) = 0;
    virtual void encodeTransform(std::string_view key, const CGAffineTransform& value) = 0;
    virtual void encodeNumbers(std::string_view key, std::span<const CGFloat> values) = 0;

    /// One record under `key`, written by `body`.
    virtual void encodeRecord(std::string_view key, FunctionRef<void(Encoder&)> body) = 0;
    /// A list of `count` records under `key`; `body` writes the one of the given index.
    virtual void encodeRecords(std::string_view key, std::size_t count,
                               FunctionRef<void(Encoder&, std::size_t)> body) = 0;
};

/// Reads one record of named values, in any order of keys. Every `decode` requires its key; a key
/// that is missing, holds another type or an impossible value throws `DecodingError`. A Boolean
/// is not a number and a number is not a Boolean.
class Decoder {
public:
    virtual ~Decoder() = default;

    virtual bool contains(std::string_view key) = 0;

    virtual bool decodeBool(std::string_view key) = 0;
    virtual std::int64_t decodeInt(std::string_view key) = 0;
    virtual CGFloat decodeNumber(std::string_view key) = 0;
    virtual std::string decodeText(std::string_view key) = 0;
    virtual CGPoint decodePoint(std::string_view key) = 0;
    virtual CGSize decodeSize(std::string_view key) = 0;
    virtual CGVector decodeVector(std::string_view key) = 0;
    virtual CGRect decodeRect(std::string_view key) = 0;
    virtual CGAffineTransform decodeTransform(std::string_view key) = 0;
    /// A list of any number of numbers.
    virtual std::vector<CGFloat> decodeNumbers(std::string_view key) = 0;

    /// The record under `key`, read by `body`.
    virtual void decodeRecord(std::string_view key, FunctionRef<void(Decoder&)> body) = 0;
    /// How many records the list under `key` holds.
    virtual std::size_t recordCount(std::string_view key) = 0;
    /// Each record of the list under `key` in order; `body` reads the one of the given index.
    virtual void decodeRecords(std::string_view key,
                               FunctionRef<void(Decoder&, std::size_t)> body) = 0;

    /// Throws a `DecodingError` of kind `valueCorrupted` that names the coding path of `key`.
    [[noreturn]] virtual void corrupted(std::string_view key, std::string_view why) = 0;
};

}  // namespace quorin
