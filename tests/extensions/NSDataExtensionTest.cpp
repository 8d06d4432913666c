#include "quorin/extensions/NSDataExtension.h"

#include "quorin/extensions/NSStringExtension.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

std::vector<std::uint8_t> bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

TEST(MD5, hasThePublishedDigests) {
    // RFC 1321, appendix A.5.
    const std::pair<const char*, const char*> suite[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", "0cc175b9c0f1b6a831c399e269772661"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
         "d174ab98d277d9f5a5611c2c9f419d9f"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"},
    };
    for (const auto& [text, digest] : suite) {
        EXPECT_EQ(computeMD5String(bytesOf(text)), digest) << text;
        EXPECT_EQ(computeMD5(bytesOf(text)), hexadecimal(digest)) << text;
        EXPECT_EQ(md5(bytesOf(text)), hexadecimal(digest)) << text;
    }
}

TEST(SHA1, hasThePublishedDigests) {
    // FIPS 180-2, appendix A, and the empty message of the same authors.
    const std::pair<std::string, const char*> examples[] = {
        {"", "da39a3ee5e6b4b0d3255bfef95601890afd80709"},
        {"abc", "a9993e364706816aba3e25717850c26c9cd0d89d"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "84983e441c3bd26ebaae4aa1f95129e5e54670f1"},
        {std::string(1'000'000, 'a'), "34aa973cd4c4daa4f61eeb2bdbad27316534016f"},
    };
    for (const auto& [text, digest] : examples) {
        EXPECT_EQ(computeSHA1String(bytesOf(text)), digest);
        EXPECT_EQ(computeSHA1(bytesOf(text)), hexadecimal(digest));
    }
}

TEST(HexadecimalOfData, isTwoLowerCaseDigitsAByte) {
    EXPECT_EQ(hexadecimal(std::vector<std::uint8_t>{0x00, 0x0A, 0xFF, 0x9B}), "000aff9b");
    EXPECT_EQ(hexadecimal(std::vector<std::uint8_t>{}), "");
}

RC_GTEST_PROP(HexadecimalOfData, isReadBackByThatOfText, (const std::vector<std::uint8_t>& data)) {
    RC_ASSERT(hexadecimal(hexadecimal(data)).value_or(std::vector<std::uint8_t>()) == data);
}

}  // namespace
}  // namespace quorin
