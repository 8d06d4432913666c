#include "quorin/extensions/NSDataExtension.h"

#include "quorin/platform/foundation/Digest.h"
#include "quorin/platform/foundation/Hexadecimal.h"

namespace quorin {
namespace {

std::vector<std::uint8_t> digestOf(std::span<const std::uint8_t> data, DigestAlgorithm algorithm) {
    Digest digest(algorithm);
    digest.update(data);
    return digest.finish();
}

}  // namespace

std::string hexadecimal(std::span<const std::uint8_t> data) {
    std::string text;
    text.reserve(2 * data.size());
    for (const std::uint8_t byte : data)
        appendHexadecimal(text, byte);
    return text;
}

std::vector<std::uint8_t> computeMD5(std::span<const std::uint8_t> data) {
    return digestOf(data, DigestAlgorithm::md5);
}

std::vector<std::uint8_t> computeSHA1(std::span<const std::uint8_t> data) {
    return digestOf(data, DigestAlgorithm::sha1);
}

std::string computeMD5String(std::span<const std::uint8_t> data) {
    return hexadecimal(computeMD5(data));
}

std::string computeSHA1String(std::span<const std::uint8_t> data) {
    return hexadecimal(computeSHA1(data));
}

std::vector<std::uint8_t> md5(std::span<const std::uint8_t> data) { return computeMD5(data); }

}  // namespace quorin
