#include "quorin/observation/KVONotification.h"

#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using Key = NSKeyValueChangeKey;

KVONotification notificationOf(Key key, Value value) {
    NSKeyValueChangeRecord change;
    change.set(key, std::move(value));
    return {change, "number"};
}

TEST(KVONotification, keepsTheRecordAndTheKeyPathAsDelivered) {
    NSKeyValueChangeRecord change;
    change.set(Key::kind, 1);
    const KVONotification notification(change, "next.number");
    EXPECT_EQ(notification.change, change);
    EXPECT_EQ(notification.keyPath, "next.number");
}

TEST(KVONotification, readsItsKindAsANumber) {
    const std::pair<Value, NSKeyValueChange> table[] = {
        {1, NSKeyValueChange::setting},        {2, NSKeyValueChange::insertion},
        {3.0, NSKeyValueChange::removal},      {4, NSKeyValueChange::replacement},
        {9, static_cast<NSKeyValueChange>(9)},
    };
    for (const auto& [number, kind] : table)
        EXPECT_EQ(notificationOf(Key::kind, number).kind(), kind);
}

TEST(KVONotificationDeathTest, withoutAKindStopsTheProcess) {
    const char* message = "the change record of \"number\" has no kind";
    EXPECT_DEATH(notificationOf(Key::newValue, 1).kind(), message);
    EXPECT_DEATH(notificationOf(Key::kind, "setting").kind(), message);
    EXPECT_DEATH(KVONotification("number", 1, 2).kind(), message);
}

TEST(KVONotification, answersTheOldAndTheNewEntryAsTheyStand) {
    EXPECT_EQ(notificationOf(Key::oldValue, 3).oldValue(), Value(3));
    EXPECT_TRUE(notificationOf(Key::oldValue, 3).newValue().isNothing());
    EXPECT_EQ(notificationOf(Key::newValue, "a").newValue(), Value("a"));
    EXPECT_EQ(notificationOf(Key::newValue, NSNull::null()).newValue(), Value(NSNull::null()));
    EXPECT_EQ(notificationOf(Key::oldValue, NSNull::null()).oldValue(), Value(NSNull::null()));
}

TEST(KVONotification, answersItsIndexesOnlyWhenTheyAreAnIndexSet) {
    const auto indexes = NSIndexSet::create({1, 2});
    EXPECT_EQ(notificationOf(Key::indexes, indexes).indexes(), indexes);
    EXPECT_EQ(notificationOf(Key::indexes, NSNull::null()).indexes(), nullptr);
    EXPECT_EQ(notificationOf(Key::indexes, 3).indexes(), nullptr);
    EXPECT_EQ(notificationOf(Key::kind, 2).indexes(), nullptr);
}

TEST(KVONotification, isPriorOnlyWhenABooleanSaysSo) {
    EXPECT_TRUE(notificationOf(Key::notificationIsPrior, true).isPrior());
    EXPECT_FALSE(notificationOf(Key::notificationIsPrior, false).isPrior());
    EXPECT_FALSE(notificationOf(Key::notificationIsPrior, 1).isPrior());
    EXPECT_FALSE(notificationOf(Key::notificationIsPrior, "true").isPrior());
    EXPECT_FALSE(notificationOf(Key::kind, 1).isPrior());
}

TEST(KVONotification, ofTwoValuesHasTheEntriesThatArePresent) {
    const KVONotification onlyNew("number", nullptr, 2);
    EXPECT_EQ(onlyNew.change.count(), 1u);
    EXPECT_EQ(onlyNew.newValue(), Value(2));
    const KVONotification onlyOld("number", 1, nullptr);
    EXPECT_EQ(onlyOld.change.count(), 1u);
    EXPECT_EQ(onlyOld.oldValue(), Value(1));
    const KVONotification two("number", 1, 2);
    EXPECT_EQ(two.change.count(), 2u);
    EXPECT_EQ(two.keyPath, "number");
    EXPECT_FALSE(two.change.contains(Key::kind));
}

TEST(KVONotification, ofTwoAbsentValuesHasAnEmptyRecord) {
    const KVONotification notification("number", nullptr, nullptr);
    EXPECT_TRUE(notification.change.isEmpty());
    EXPECT_FALSE(notification.isPrior());
    EXPECT_EQ(notification.indexes(), nullptr);
}

}  // namespace
}  // namespace quorin
