#include "quorin/observation/TypedNotification.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Document : public Object {
public:
    std::string description() const override { return "document"; }
};

/// Its member of that name is none of the type's.
class WidthDidChange {
public:
    explicit WidthDidChange(double width, std::shared_ptr<Document> document = nullptr)
        : _width(width), sender(std::move(document)) {}
    explicit WidthDidChange(const NSNotification& note)
        : _width(note.userInfo()->at("width").asDouble().value()),
          sender(std::dynamic_pointer_cast<Document>(note.object())) {}

    double width() const { return _width; }
    std::optional<std::string> name() const { return std::nullopt; }
    std::shared_ptr<Document> object() const { return sender; }
    std::optional<Value::Map> userInfo() const { return Value::Map{{"width", _width}}; }

private:
    double _width;
    std::shared_ptr<Document> sender;
};

struct Renamed {
    Renamed() = default;
    explicit Renamed(const NSNotification&) {}
    static const char* name() { return "a name of its own"; }
    std::nullptr_t object() const { return nullptr; }
    std::nullopt_t userInfo() const { return std::nullopt; }
};

/// Counts how often one is made from a notification.
struct Tick {
    Tick() = default;
    explicit Tick(const NSNotification&) { ++made; }
    std::shared_ptr<Object> object() const { return nullptr; }
    NSNotification::UserInfo userInfo() const { return std::nullopt; }

    static inline std::atomic<int> made = 0;
};

static_assert(TypedNotification<WidthDidChange>);
static_assert(TypedNotification<Renamed>);
static_assert(!TypedNotification<int>);
static_assert(!TypedNotification<Document>);

TEST(TypedNotification, travelsUnderTheNameOfItsTypeUnlessThatStatesAnother) {
    EXPECT_EQ(notificationName<WidthDidChange>().text(), "WidthDidChange");
    EXPECT_EQ(notificationName<Renamed>().text(), "a name of its own");
}

TEST(TypedNotification, arrivesAsItWasPosted) {
    const auto document = std::make_shared<Document>();
    std::vector<double> widths;
    std::shared_ptr<Document> sender;
    const auto token = startObserving<WidthDidChange>(nullptr, [&](const WidthDidChange& change) {
        widths.push_back(change.width());
        sender = change.object();
    });
    post(WidthDidChange(12.5, document));
    EXPECT_THAT(widths, ElementsAre(12.5));
    EXPECT_EQ(sender, document);
}

TEST(TypedNotification, isANotificationOfTheDefaultCentre) {
    std::vector<NSNotification> received;
    const NotificationToken token(NSNotificationCenter::defaultCenter().addObserver(
        "WidthDidChange", nullptr, [&](const NSNotification& note) { received.push_back(note); }));
    const auto document = std::make_shared<Document>();
    post(WidthDidChange(3, document));
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0].object(), document);
    EXPECT_EQ(received[0].userInfo(), (Value::Map{{"width", 3.0}}));

    double width = 0;
    const auto typed = startObserving<WidthDidChange>(
        nullptr, [&](const WidthDidChange& change) { width = change.width(); });
    NSNotificationCenter::defaultCenter().postNotification(
        NSNotification("WidthDidChange", nullptr, Value::Map{{"width", 4.0}}));
    EXPECT_EQ(width, 4);
}

TEST(TypedNotification, canBePostedOnAnyCentre) {
    NSNotificationCenter center;
    int received = 0, receivedByDefault = 0;
    center.addObserver("a name of its own", nullptr, [&](const NSNotification&) { ++received; });
    const auto token = startObserving<Renamed>(nullptr, [&](Renamed) { ++receivedByDefault; });
    center.post(Renamed());
    EXPECT_EQ(received, 1);
    EXPECT_EQ(receivedByDefault, 0);
    post(Renamed());
    EXPECT_EQ(received, 1);
    EXPECT_EQ(receivedByDefault, 1);
}

TEST(TypedNotification, observedWithASenderIsNotSeenFromAnother) {
    const auto one = std::make_shared<Document>(), other = std::make_shared<Document>();
    std::vector<double> widths;
    const auto token = startObserving<WidthDidChange>(
        one, [&](const WidthDidChange& change) { widths.push_back(change.width()); });
    post(WidthDidChange(1, one));
    post(WidthDidChange(2, other));
    post(WidthDidChange(3));
    EXPECT_THAT(widths, ElementsAre(1));
}

TEST(TypedNotification, isMadeAnewForEachCallAndForNothingElse) {
    Tick::made = 0;
    post(Tick());
    EXPECT_EQ(Tick::made, 0);
    const auto first = startObserving<Tick>(nullptr, [](const Tick&) {});
    const auto second = startObserving<Tick>(nullptr, [](Tick) {});
    const auto ofSomeone = startObserving<Tick>(std::make_shared<Document>(), [](Tick) {});
    post(Tick());
    EXPECT_EQ(Tick::made, 2);
}

TEST(TypedNotification, isDeliveredOnThePostingThread) {
    std::thread::id called;
    const auto token =
        startObserving<Tick>(nullptr, [&](Tick) { called = std::this_thread::get_id(); });
    std::thread poster([] { post(Tick()); });
    const std::thread::id posting = poster.get_id();
    poster.join();
    EXPECT_EQ(called, posting);
}

TEST(TypedNotification, postingAsksForNoMemory) {
    int calls = 0;
    const auto token = startObserving<Tick>(nullptr, [&](const Tick&) { ++calls; });
    const auto forAll = NotificationToken(NSNotificationCenter::defaultCenter().addObserver(
        std::nullopt, nullptr, [&](const NSNotification&) { ++calls; }));
    post(Tick());
    const std::size_t before = test::allocationCount();
    for (int i = 0; i < 10; ++i)
        post(Tick());
    EXPECT_EQ(test::allocationCount(), before);
    EXPECT_EQ(calls, 22);
}

TEST(NotificationToken, endsDeliveryAtOnceWhenItIsReleased) {
    int calls = 0;
    auto token = startObserving<Tick>(nullptr, [&](Tick) { ++calls; });
    post(Tick());
    token.reset();
    post(Tick());
    EXPECT_EQ(calls, 1);
}

TEST(NotificationToken, observesUntilItsLastHolderReleasesIt) {
    int calls = 0;
    auto token = startObserving<Tick>(nullptr, [&](Tick) { ++calls; });
    const auto holder = token;
    token.reset();
    post(Tick());
    EXPECT_EQ(calls, 1);
}

TEST(NotificationToken, releasedInACallEndsDeliveryToThoseNotYetCalled) {
    std::vector<int> calls;
    std::shared_ptr<NotificationToken> second;
    const auto first = startObserving<Tick>(nullptr, [&](Tick) {
        calls.push_back(1);
        second.reset();
    });
    second = startObserving<Tick>(nullptr, [&](Tick) { calls.push_back(2); });
    post(Tick());
    EXPECT_THAT(calls, ElementsAre(1));
}

TEST(NotificationToken, mayBeReleasedByItsOwnCallback) {
    int calls = 0;
    std::shared_ptr<NotificationToken> token;
    token = startObserving<Tick>(nullptr, [&](Tick) {
        token.reset();
        ++calls;
    });
    post(Tick());
    post(Tick());
    EXPECT_EQ(calls, 1);
}

TEST(NotificationToken, mayBeReleasedByOneThreadWhileAnotherPosts) {
    std::atomic<bool> isDone = false;
    std::thread poster([&] {
        while (!isDone)
            post(Tick());
    });
    for (int i = 0; i < 200; ++i) {
        const auto calls = std::make_shared<std::atomic<int>>(0);
        auto token = startObserving<Tick>(nullptr, [calls](const Tick&) { ++*calls; });
        if (i % 2 == 0)
            while (*calls == 0)
                std::this_thread::yield();
        token.reset();
        // A call that was going on may come to its end, after which the callback is let go.
        while (calls.use_count() > 1)
            std::this_thread::yield();
        const int before = *calls;
        post(Tick());
        EXPECT_EQ(*calls, before);
    }
    isDone = true;
    poster.join();
}

TEST(NotificationToken, mayBeReleasedByItsOwnCallbackInAPostWithinAPost) {
    std::vector<int> calls;
    std::shared_ptr<NotificationToken> token;
    token = startObserving<Tick>(nullptr, [&](Tick) {
        calls.push_back(1);
        if (calls.size() == 1)
            post(Tick());
        token.reset();
    });
    const auto behind = startObserving<Tick>(nullptr, [&](Tick) { calls.push_back(2); });
    post(Tick());
    EXPECT_THAT(calls, ElementsAre(1, 1, 2, 2));
    post(Tick());
    EXPECT_THAT(calls, ElementsAre(1, 1, 2, 2, 2));
}

TEST(NotificationToken, releasesWhatItsCallbackHolds) {
    const auto held = std::make_shared<int>(1);
    auto token = startObserving<Tick>(nullptr, [held](Tick) {});
    EXPECT_EQ(held.use_count(), 2);
    token.reset();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(NotificationToken, holdsTheObserverOfTheDefaultCentre) {
    int calls = 0;
    const auto token = startObserving<Tick>(nullptr, [&](Tick) { ++calls; });
    ASSERT_NE(token->token(), nullptr);
    NSNotificationCenter::defaultCenter().removeObserver(token->token());
    post(Tick());
    EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace quorin
