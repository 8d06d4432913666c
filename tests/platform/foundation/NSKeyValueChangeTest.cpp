#include "quorin/platform/foundation/NSKeyValueChange.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using Key = NSKeyValueChangeKey;

TEST(NSKeyValueChangeRecord, startsWithoutEntries) {
    const NSKeyValueChangeRecord record;
    EXPECT_TRUE(record.isEmpty());
    EXPECT_FALSE(record.contains(Key::kind));
    EXPECT_TRUE(record[Key::newValue].isNothing());
}

TEST(NSKeyValueChangeRecord, keepsOneValueUnderEachKey) {
    NSKeyValueChangeRecord record;
    record.set(Key::oldValue, 1);
    record.set(Key::newValue, "a");
    record.set(Key::newValue, "b");
    EXPECT_EQ(record.count(), 2u);
    EXPECT_EQ(record[Key::oldValue], Value(1));
    EXPECT_EQ(record[Key::newValue], Value("b"));
    record.set(Key::oldValue, nullptr);
    EXPECT_EQ(record.count(), 1u);
    EXPECT_FALSE(record.contains(Key::oldValue));
}

TEST(NSKeyValueChangeRecord, equalsARecordOfTheSameEntries) {
    NSKeyValueChangeRecord one, two;
    one.set(Key::kind, 1);
    EXPECT_FALSE(one == two);
    two.set(Key::kind, 1);
    EXPECT_TRUE(one == two);
    two.set(Key::indexes, 1);
    EXPECT_FALSE(one == two);
}

}  // namespace
}  // namespace quorin
