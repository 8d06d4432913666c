#include "quorin/platform/foundation/NSNotificationCenter.h"

#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Sender : public Object {
public:
    bool isEqual(const Object&) const override { return true; }  // identity has to count
    std::string description() const override { return "sender"; }
};

/// A centre whose observers write down their names as they are called.
class NSNotificationCenterTest : public ::testing::Test {
protected:
    std::shared_ptr<Object> observe(std::optional<NSNotificationName> name, std::string called,
                                    const std::shared_ptr<Object>& object = nullptr) {
        return center.addObserver(
            name, object, [this, called](const NSNotification&) { calls.push_back(called); });
    }
    void post(NSNotificationName name, std::shared_ptr<Object> object = nullptr) {
        calls.clear();
        center.postNotification(NSNotification(name, std::move(object)));
    }

    NSNotificationCenter center;
    std::vector<std::string> calls;
};

TEST_F(NSNotificationCenterTest, deliversWhatIsPostedBeforePostingReturns) {
    const auto sender = std::make_shared<Sender>();
    std::optional<NSNotification> received;
    center.addObserver("change", nullptr, [&](const NSNotification& note) { received = note; });
    center.postNotification(NSNotification("change", sender, Value::Map{{"width", 3}}));
    ASSERT_TRUE(received);
    EXPECT_EQ(received->name(), NSNotificationName("change"));
    EXPECT_EQ(received->object(), sender);
    EXPECT_EQ(received->userInfo(), (Value::Map{{"width", 3}}));
}

TEST_F(NSNotificationCenterTest, tellsNoUserInfoFromEmptyUserInfo) {
    std::vector<bool> present;
    center.addObserver("change", nullptr, [&](const NSNotification& note) {
        present.push_back(note.userInfo().has_value());
    });
    center.postNotification(NSNotification("change"));
    center.postNotification(NSNotification("change", nullptr, Value::Map()));
    EXPECT_THAT(present, ElementsAre(false, true));
}

TEST_F(NSNotificationCenterTest, deliversByName) {
    observe("a", "observer of a");
    observe("b", "observer of b");
    post("a");
    EXPECT_THAT(calls, ElementsAre("observer of a"));
    post("c");
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NSNotificationCenterTest, deliversEveryNameToThoseWithoutOneInOrderOfTheirStart) {
    observe("a", "1");
    observe(std::nullopt, "2");
    observe("a", "3");
    observe("b", "4");
    observe(std::nullopt, "5");
    post("a");
    EXPECT_THAT(calls, ElementsAre("1", "2", "3", "5"));
    post("b");
    EXPECT_THAT(calls, ElementsAre("2", "4", "5"));
    post("never observed");
    EXPECT_THAT(calls, ElementsAre("2", "5"));
}

TEST_F(NSNotificationCenterTest, tellsSendersApartByIdentity) {
    const auto one = std::make_shared<Sender>(), other = std::make_shared<Sender>();
    observe("a", "of one", one);
    observe("a", "of any");
    observe(std::nullopt, "all of one", one);
    post("a", one);
    EXPECT_THAT(calls, ElementsAre("of one", "of any", "all of one"));
    post("a", other);
    EXPECT_THAT(calls, ElementsAre("of any"));
    post("a");
    EXPECT_THAT(calls, ElementsAre("of any"));
}

TEST_F(NSNotificationCenterTest, tellsSendersApartThatLiveInOneObject) {
    struct Pair {
        Sender one, other;
    };
    const auto pair = std::make_shared<Pair>();
    const std::shared_ptr<Object> one(pair, &pair->one), other(pair, &pair->other);
    observe("a", "of one", one);
    observe("a", "of the other", other);
    post("a", one);
    EXPECT_THAT(calls, ElementsAre("of one"));
    post("a", other);
    EXPECT_THAT(calls, ElementsAre("of the other"));
}

TEST_F(NSNotificationCenterTest, doesNotTakeANewSenderAtTheOldPlaceForTheOldOne) {
    alignas(Sender) unsigned char place[sizeof(Sender)];
    const auto madeThere = [&] {
        return std::shared_ptr<Object>(new (place) Sender,
                                       [](Object* sender) { sender->~Object(); });
    };
    std::shared_ptr<Object> sender = madeThere();
    const Object* const before = sender.get();
    observe("a", "of the old one", sender);
    post("a", sender);
    EXPECT_THAT(calls, ElementsAre("of the old one"));

    sender.reset();
    sender = madeThere();
    ASSERT_EQ(sender.get(), before);
    post("a", sender);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NSNotificationCenterTest, doesNotKeepSendersAlive) {
    auto sender = std::make_shared<Sender>();
    const std::weak_ptr<Sender> watched = sender;
    observe("a", "of the sender", sender);
    post("a", sender);
    sender.reset();
    EXPECT_TRUE(watched.expired());
    post("a");
    EXPECT_THAT(calls, IsEmpty()) << "not those of no sender either";
}

TEST_F(NSNotificationCenterTest, callsTwiceWhoObservesTwice) {
    observe("a", "x");
    const auto second = observe("a", "x");
    post("a");
    EXPECT_THAT(calls, ElementsAre("x", "x"));
    center.removeObserver(second);
    post("a");
    EXPECT_THAT(calls, ElementsAre("x"));
}

TEST_F(NSNotificationCenterTest, keepsAnObserverThatNobodyElseHolds) {
    observe("a", "forgotten");
    post("a");
    EXPECT_THAT(calls, ElementsAre("forgotten"));
}

TEST_F(NSNotificationCenterTest, ignoresTheRemovalOfWhatItDoesNotHave) {
    NSNotificationCenter other;
    const auto observer = observe("a", "here");
    other.addObserver("a", nullptr, [](const NSNotification&) {});
    other.removeObserver(observer);
    center.removeObserver(nullptr);
    center.removeObserver(std::make_shared<Sender>());
    post("a");
    EXPECT_THAT(calls, ElementsAre("here"));

    center.removeObserver(observer);
    center.removeObserver(observer);
    post("a");
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NSNotificationCenterTest, centresDoNotHearEachOther) {
    observe("a", "here");
    NSNotificationCenter other;
    other.postNotification(NSNotification("a"));
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_NE(&NSNotificationCenter::defaultCenter(), &center);
    EXPECT_EQ(&NSNotificationCenter::defaultCenter(), &NSNotificationCenter::defaultCenter());
}

TEST_F(NSNotificationCenterTest, doesNotCallWhoIsRemovedBeforeItsTurn) {
    std::shared_ptr<Object> later;
    center.addObserver("a", nullptr, [&](const NSNotification&) {
        calls.push_back("first");
        center.removeObserver(later);
    });
    later = observe("a", "removed");
    observe("a", "last");
    post("a");
    EXPECT_THAT(calls, ElementsAre("first", "last"));
    post("a");
    EXPECT_THAT(calls, ElementsAre("first", "last"));
}

TEST_F(NSNotificationCenterTest, callsWhoIsAddedDuringAPostFromTheNextOneOn) {
    bool isAdded = false;
    center.addObserver("a", nullptr, [&](const NSNotification&) {
        calls.push_back("first");
        if (!std::exchange(isAdded, true)) {
            observe("a", "added");
            observe(std::nullopt, "added for all names");
        }
    });
    post("a");
    EXPECT_THAT(calls, ElementsAre("first"));
    post("a");
    EXPECT_THAT(calls, ElementsAre("first", "added", "added for all names"));
}

TEST_F(NSNotificationCenterTest, anObserverMayRemoveItselfAndUseWhatItHoldsToTheEnd) {
    const auto held = std::make_shared<std::string>("what it holds, too long for a short text");
    std::shared_ptr<Object> itself;
    itself = center.addObserver("a", nullptr, [&, copy = held](const NSNotification&) {
        center.removeObserver(itself);
        itself.reset();
        calls.push_back(*copy);
    });
    post("a");
    EXPECT_THAT(calls, ElementsAre(*held));
    EXPECT_EQ(held.use_count(), 1) << "released after the post";
    post("a");
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NSNotificationCenterTest, postsWithinAPostAreDeliveredFirst) {
    center.addObserver("outer", nullptr, [&](const NSNotification&) {
        calls.push_back("before");
        center.postNotification(NSNotification("inner"));
        calls.push_back("after");
    });
    observe("outer", "second");
    observe("inner", "inner");
    post("outer");
    EXPECT_THAT(calls, ElementsAre("before", "inner", "after", "second"));
}

TEST_F(NSNotificationCenterTest, aRemovalWithinAnInnerPostCountsForTheOuterOne) {
    std::shared_ptr<Object> later;
    int depth = 0;
    center.addObserver("a", nullptr, [&](const NSNotification&) {
        calls.push_back("first");
        if (++depth == 1)
            center.postNotification(NSNotification("a"));
        else
            center.removeObserver(later);
    });
    later = observe("a", "removed");
    post("a");
    EXPECT_THAT(calls, ElementsAre("first", "first"));
}

TEST_F(NSNotificationCenterTest, releasesABlockAtOnceAmongManyOthers) {
    const auto held = std::make_shared<int>(1);
    std::vector<std::shared_ptr<Object>> observers;
    for (int i = 0; i < 8; ++i)
        observers.push_back(center.addObserver("a", nullptr, [held](const NSNotification&) {}));
    EXPECT_EQ(held.use_count(), 9);
    center.removeObserver(std::exchange(observers[3], nullptr));
    EXPECT_EQ(held.use_count(), 8);
}

TEST_F(NSNotificationCenterTest, aReleasedBlockMayOwnAnotherObservation) {
    struct Owner {
        Owner(NSNotificationCenter& of, std::shared_ptr<Object> owned)
            : centre(of), observer(std::move(owned)) {}
        Owner(const Owner&) = delete;
        Owner& operator=(const Owner&) = delete;
        ~Owner() { centre.removeObserver(observer); }

        NSNotificationCenter& centre;
        std::shared_ptr<Object> observer;
    };
    auto owner = std::make_shared<Owner>(center, observe("a", "owned"));
    auto owning = center.addObserver("a", nullptr, [owned = owner](const NSNotification&) {});
    const std::weak_ptr<Owner> watched = owner;
    owner.reset();
    post("a");
    EXPECT_THAT(calls, ElementsAre("owned"));
    center.removeObserver(std::exchange(owning, nullptr));
    EXPECT_TRUE(watched.expired());
    post("a");
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NSNotificationCenterTest, whatABlockThrowsReachesThePosterAndHarmsNothing) {
    auto throwing = center.addObserver(
        "a", nullptr, [](const NSNotification&) { throw std::runtime_error("from the block"); });
    observe("a", "later");
    EXPECT_THROW(post("a"), std::runtime_error);
    EXPECT_THAT(calls, IsEmpty());
    center.removeObserver(throwing);
    post("a");
    EXPECT_THAT(calls, ElementsAre("later"));
}

TEST_F(NSNotificationCenterTest, aBlockMayDestroyTheCentreThatCallsIt) {
    auto own = std::make_unique<NSNotificationCenter>();
    own->addObserver("a", nullptr, [&](const NSNotification&) { own.reset(); });
    own->addObserver("a", nullptr, [&](const NSNotification&) { calls.push_back("second"); });
    own->postNotification(NSNotification("a"));
    EXPECT_EQ(own, nullptr);
    EXPECT_THAT(calls, ElementsAre("second"));
}

TEST_F(NSNotificationCenterTest, servesTenThousandObservers) {
    std::vector<std::shared_ptr<Object>> observers;
    std::size_t count = 0;
    for (int i = 0; i < 10'000; ++i)
        observers.push_back(
            center.addObserver("a", nullptr, [&](const NSNotification&) { ++count; }));
    center.postNotification(NSNotification("a"));
    EXPECT_EQ(count, 10'000u);

    for (std::size_t i = 0; i < observers.size(); i += 2)
        center.removeObserver(observers[i]);
    count = 0;
    center.postNotification(NSNotification("a"));
    EXPECT_EQ(count, 5'000u);
    for (const auto& observer : observers)
        center.removeObserver(observer);
    count = 0;
    center.postNotification(NSNotification("a"));
    EXPECT_EQ(count, 0u);
}

TEST_F(NSNotificationCenterTest, tenThousandObserversMayComeAndGoInAnyOrder) {
    // Steps that share no divisor with the count visit every place once.
    const std::size_t many = 10'000, orders[] = {1, 7'919, many - 1};
    for (const std::size_t order : orders) {
        SCOPED_TRACE(order);
        std::vector<std::shared_ptr<Object>> observers;
        std::size_t count = 0;
        for (std::size_t i = 0; i < many; ++i)
            observers.push_back(
                center.addObserver("a", nullptr, [&](const NSNotification&) { ++count; }));
        for (std::size_t i = 0; i < many; ++i) {
            center.removeObserver(observers[(i + 1) * order % many]);
            if (i % 1'000 == 999) {
                count = 0;
                center.postNotification(NSNotification("a"));
                EXPECT_EQ(count, many - i - 1);
            }
        }
    }
}

TEST_F(NSNotificationCenterTest, tenThousandObserversMayGoWhileTheyAreCalled) {
    std::vector<std::shared_ptr<Object>> observers(10'000);
    std::size_t count = 0;
    for (std::size_t i = 0; i < observers.size(); ++i)
        observers[i] = center.addObserver("a", nullptr, [&, i](const NSNotification&) {
            ++count;
            center.removeObserver(observers[i]);
            if (i + 1 < observers.size())
                center.removeObserver(observers[i + 1]);
        });
    center.postNotification(NSNotification("a"));
    EXPECT_EQ(count, 5'000u);
    center.postNotification(NSNotification("a"));
    EXPECT_EQ(count, 5'000u);
}

TEST_F(NSNotificationCenterTest, anObserverDescribesWhatItObserves) {
    EXPECT_EQ(observe("change", "")->description(), "observer of \"change\"");
    EXPECT_EQ(observe(std::nullopt, "")->description(), "observer of all notifications");
}

RC_GTEST_PROP(NSNotificationCenter, callsWhoIsThereInOrderWhateverCameAndWent,
              (const std::vector<std::pair<bool, unsigned>>& steps)) {
    NSNotificationCenter center;
    std::vector<std::pair<int, std::shared_ptr<Object>>> there;
    std::vector<int> calls;
    int next = 0;
    for (const auto& [isRemoval, which] : steps) {
        if (isRemoval && !there.empty()) {
            const auto leaving = there.begin() + static_cast<std::ptrdiff_t>(which % there.size());
            center.removeObserver(leaving->second);
            there.erase(leaving);
        } else {
            std::optional<NSNotificationName> name;
            if (which % 3 != 0)
                name = "a";
            const int number = next++;
            there.emplace_back(
                number, center.addObserver(name, nullptr, [&calls, number](const NSNotification&) {
                    calls.push_back(number);
                }));
        }
        calls.clear();
        center.postNotification(NSNotification("a"));
        RC_ASSERT(calls.size() == there.size());
        for (std::size_t i = 0; i < there.size(); ++i)
            RC_ASSERT(calls[i] == there[i].first);
    }
}

}  // namespace
}  // namespace quorin
