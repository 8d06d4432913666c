#include "quorin/extensions/NSCoderExtension.h"

#include "tests/TestSupport.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

TEST(CGFloatCoding, readsWhatItWrote) {
    test::MemoryRecord record;
    test::MemoryEncoder encoder(record);
    encode(encoder, 0.1, "radius");
    test::MemoryDecoder decoder(record);
    EXPECT_EQ(decodeCGFloat(decoder, "radius"), 0.1);
}

TEST(CGFloatCoding, namesAKeyThatIsMissing) {
    const test::MemoryRecord record;
    test::MemoryDecoder decoder(record);
    EXPECT_THAT([&] { decodeCGFloat(decoder, "radius"); },
                testing::ThrowsMessage<DecodingError>("radius: key not found"));
}

}  // namespace
}  // namespace quorin
