#include "quorin/platform/foundation/CFNotificationCenter.h"

#include <memory>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

struct Call {
    const CFNotificationCenter* center;
    const void* observer;
    NSNotification notification;
};
std::vector<Call> calls;  // plain functions have nowhere else to write

void record(CFNotificationCenter& center, const void* observer, const NSNotificationName& name,
            const std::shared_ptr<Object>& object, const NSNotification::UserInfo& userInfo) {
    calls.push_back({&center, observer, NSNotification(name, object, userInfo)});
}

class Sender : public Object {
public:
    std::string description() const override { return "sender"; }
};

class CFNotificationCenterTest : public ::testing::Test {
protected:
    void SetUp() override { calls.clear(); }
    void TearDown() override {
        for (const int& observer : {std::cref(one), std::cref(other)}) {
            local.removeEveryObserver(&observer);
            darwin.removeEveryObserver(&observer);
        }
    }

    CFNotificationCenter& local = CFNotificationCenter::localCenter();
    CFNotificationCenter& darwin = CFNotificationCenter::darwinNotifyCenter();
    const int one = 0, other = 0;
};

TEST_F(CFNotificationCenterTest, tellsCentreObserverAndAllOfTheNotification) {
    const auto sender = std::make_shared<Sender>();
    local.addObserver(&one, record, "a");
    local.postNotification(NSNotification("a", sender, Value::Map{{"x", 1}}));
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].center, &local);
    EXPECT_EQ(calls[0].observer, &one);
    EXPECT_EQ(calls[0].notification.name().text(), "a");
    EXPECT_EQ(calls[0].notification.object(), sender);
    EXPECT_EQ(calls[0].notification.userInfo(), (Value::Map{{"x", 1}}));
}

TEST_F(CFNotificationCenterTest, theLocalOneIsTheDefaultCentreSeenOtherwise) {
    local.addObserver(&one, record, "a");
    NSNotificationCenter::defaultCenter().postNotification(NSNotification("a"));
    EXPECT_EQ(calls.size(), 1u);
    int received = 0;
    const auto observer = NSNotificationCenter::defaultCenter().addObserver(
        "a", nullptr, [&](const NSNotification&) { ++received; });
    local.postNotification(NSNotification("a"));
    NSNotificationCenter::defaultCenter().removeObserver(observer);
    EXPECT_EQ(received, 1);
}

TEST_F(CFNotificationCenterTest, localAndDarwinCentreDoNotHearEachOther) {
    local.addObserver(&one, record, "a");
    darwin.addObserver(&other, record, "a");
    darwin.postNotification(NSNotification("a"));
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].observer, &other);
    EXPECT_EQ(calls[0].center, &darwin);
    local.postNotification(NSNotification("a"));
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[1].observer, &one);
}

TEST_F(CFNotificationCenterTest, theDarwinCentreCarriesNamesAlone) {
    const auto sender = std::make_shared<Sender>(), another = std::make_shared<Sender>();
    darwin.addObserver(&one, record, "a", sender);
    darwin.postNotification(NSNotification("a", another, Value::Map{{"x", 1}}));
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].notification.object(), nullptr);
    EXPECT_EQ(calls[0].notification.userInfo(), std::nullopt);
}

TEST_F(CFNotificationCenterTest, theLocalCentreFiltersByNameAndSender) {
    const auto sender = std::make_shared<Sender>();
    local.addObserver(&one, record, "a", sender);
    local.addObserver(&other, record, std::nullopt);
    local.postNotification(NSNotification("a", sender));
    EXPECT_EQ(calls.size(), 2u);
    local.postNotification(NSNotification("a"));
    EXPECT_EQ(calls.size(), 3u);
    local.postNotification(NSNotification("b", sender));
    EXPECT_EQ(calls.size(), 4u);
}

TEST_F(CFNotificationCenterTest, callsTwiceWhoIsAddedTwiceUntilAllOfItIsRemoved) {
    local.addObserver(&one, record, "a");
    local.addObserver(&one, record, "a");
    local.addObserver(&other, record, "a");
    local.postNotification(NSNotification("a"));
    EXPECT_EQ(calls.size(), 3u);

    calls.clear();
    local.removeEveryObserver(&one);
    local.postNotification(NSNotification("a"));
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].observer, &other);
}

}  // namespace
}  // namespace quorin
