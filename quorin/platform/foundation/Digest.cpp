#include "quorin/platform/foundation/Digest.h"

#include <openssl/evp.h>

#include <array>

#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

const EVP_MD* implementation(DigestAlgorithm algorithm) {
    return algorithm == DigestAlgorithm::md5 ? EVP_md5() : EVP_sha1();
}

void require(int result) {
    // All that can fail is a library that was told to allow no old algorithms.
    if (result != 1)
        fatalError("libcrypto refuses a digest");
}

}  // namespace

struct Digest::State {
    DigestAlgorithm algorithm;
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context{EVP_MD_CTX_new(),
                                                                    &EVP_MD_CTX_free};

    void begin() { require(EVP_DigestInit_ex(context.get(), implementation(algorithm), nullptr)); }
};

Digest::Digest(DigestAlgorithm algorithm) : state(new State{algorithm}) { state->begin(); }

Digest::~Digest() = default;

void Digest::update(std::span<const std::uint8_t> bytes) {
    require(EVP_DigestUpdate(state->context.get(), bytes.data(), bytes.size()));
}

void Digest::update(std::string_view bytes) {
    require(EVP_DigestUpdate(state->context.get(), bytes.data(), bytes.size()));
}

std::vector<std::uint8_t> Digest::finish() {
    std::array<std::uint8_t, EVP_MAX_MD_SIZE> bytes{};
    unsigned count = 0;
    require(EVP_DigestFinal_ex(state->context.get(), bytes.data(), &count));
    state->begin();
    return {bytes.begin(), bytes.begin() + count};
}

}  // namespace quorin
