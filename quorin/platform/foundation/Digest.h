#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {

enum class DigestAlgorithm { md5, sha1 };

/// The digest of bytes that come piece by piece. Neither algorithm withstands somebody who wants
/// two contents with one digest: they tell files apart that differ by chance.
class Digest {
public:
    explicit Digest(DigestAlgorithm algorithm);
    Digest(const Digest&) = delete;
    Digest& operator=(const Digest&) = delete;
    ~Digest();

    void update(std::span<const std::uint8_t> bytes);
    void update(std::string_view bytes);
    /// The 16 bytes of MD5 or 20 of SHA-1, and from then on the digest starts anew.
    std::vector<std::uint8_t> finish();

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace quorin
