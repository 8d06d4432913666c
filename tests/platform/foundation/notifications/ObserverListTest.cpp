#include "quorin/platform/foundation/notifications/ObserverList.h"

#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::SizeIs;

/// A list, and the observers that are in it.
class ObserverListTest : public testing::Test {
protected:
    ObserverListTest() { list.unshare(former); }

    void add(int count) {
        for (int i = 0; i < count; ++i) {
            there.push_back(std::make_shared<NotificationObserver>(std::nullopt, nullptr,
                                                                   [](const NSNotification&) {}));
            there.back()->setOrder(++lastOrder);
            list.add(there.back());
        }
    }
    void removeFirst() {
        EXPECT_EQ(list.remove(*there.front()), there.front());
        there.erase(there.begin());
    }

    ObserverList list, former;
    std::vector<std::shared_ptr<NotificationObserver>> there;
    std::uint64_t lastOrder = 0;
};

TEST_F(ObserverListTest, hasNoMoreGapsThanObservers) {
    add(100);
    while (!there.empty()) {
        removeFirst();
        EXPECT_LE(list.entries().size(), 2 * there.size());
    }
}

TEST_F(ObserverListTest, closesItsGapsOnlyNowAndThen) {
    add(1'000);
    int closings = 0;
    while (!there.empty()) {
        const std::size_t before = list.entries().size();
        removeFirst();
        closings += list.entries().size() < before ? 1 : 0;
    }
    EXPECT_LE(closings, 10) << "each time half of what is left, and 2 to the tenth is 1,024";
}

TEST_F(ObserverListTest, leavesItsGapsToThoseWhoShareItWhenItChanges) {
    add(3);
    removeFirst();
    const ObserverList shared = list;
    EXPECT_THAT(shared.entries(), SizeIs(3));
    list.unshare(former);
    EXPECT_THAT(list.entries(), SizeIs(2));
    EXPECT_THAT(shared.entries(), SizeIs(3));
}

TEST_F(ObserverListTest, doesNotGrowWhileObserversComeAndGoAndOthersShareIt) {
    add(2);
    for (int i = 0; i < 100; ++i) {
        const ObserverList shared = list;
        list.unshare(former);
        add(1);
        removeFirst();
    }
    EXPECT_LE(list.entries().size(), 4u);
}

}  // namespace
}  // namespace quorin
