#include "quorin/screens/DocumentSizeDidChangeNotification.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "quorin/observation/TypedNotification.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using Notification = DocumentSizeDidChangeNotification;

static_assert(TypedNotification<Notification>);

NSNotification received(NSNotification::UserInfo userInfo) {
    return NSNotification("DocumentSizeDidChangeNotification", nullptr, std::move(userInfo));
}

const Value::Map whole{{"size", CGSize{375, 812}}, {"scale", 3.0}, {"name", "mini"}};

/// The user info with one entry set, or without it.
NSNotification changed(const char* key, const Value& value) {
    Value::Map info = whole;
    info.erase(key);
    if (!value.isNothing())
        info.emplace(key, value);
    return received(info);
}

TEST(DocumentSizeDidChangeNotification, travelsUnderTheNameOfItsType) {
    EXPECT_EQ(notificationName<Notification>().text(), "DocumentSizeDidChangeNotification");
}

TEST(DocumentSizeDidChangeNotification, hasNoSender) {
    EXPECT_EQ(Notification("mini", {375, 812}, 3).object(), nullptr);
}

TEST(DocumentSizeDidChangeNotification, carriesSizeScaleAndName) {
    EXPECT_EQ(Notification("mini", {375, 812}, 3).userInfo(), whole);
}

TEST(DocumentSizeDidChangeNotification, carriesANameOnlyWhereThereIsOne) {
    EXPECT_EQ(Notification(std::nullopt, {1, 2}, 4).userInfo(),
              (Value::Map{{"size", CGSize{1, 2}}, {"scale", 4.0}}));
    EXPECT_EQ(Notification("", {1, 2}, 4).userInfo()->at("name"), Value(""));
}

TEST(DocumentSizeDidChangeNotification, readsWhatItCarries) {
    const Notification note(received(whole));
    EXPECT_EQ(note.name, "mini");
    EXPECT_EQ(note.size, (CGSize{375, 812}));
    EXPECT_EQ(note.scale, 3);
    EXPECT_EQ(note.userInfo(), whole);
}

TEST(DocumentSizeDidChangeNotification, readsNumbersAsTheyAre) {
    EXPECT_EQ(Notification(changed("size", CGSize{0.5, -1})).size, (CGSize{0.5, -1}));
    EXPECT_TRUE(
        std::isnan(Notification(changed("scale", std::numeric_limits<double>::quiet_NaN())).scale));
    EXPECT_EQ(Notification(changed("scale", 2)).scale, 2) << "an integer is a number";
}

TEST(DocumentSizeDidChangeNotification, hasNoNameWithoutAText) {
    EXPECT_EQ(Notification(changed("name", nullptr)).name, std::nullopt);
    EXPECT_EQ(Notification(changed("name", 3)).name, std::nullopt);
    EXPECT_EQ(Notification(changed("name", "")).name, "");
}

TEST(DocumentSizeDidChangeNotification, stopsTheProcessWithoutASize) {
    const char* const message = "has no size under \"size\"";
    EXPECT_DEATH(Notification{changed("size", nullptr)}, message);
    EXPECT_DEATH(Notification{changed("size", (CGPoint{1, 2}))}, message);
    EXPECT_DEATH(Notification{changed("size", 3)}, message);
    EXPECT_DEATH(Notification{received(std::nullopt)}, message);
    EXPECT_DEATH(Notification{received(Value::Map())}, message);
}

TEST(DocumentSizeDidChangeNotification, stopsTheProcessWithoutAScale) {
    const char* const message = "has no number under \"scale\"";
    EXPECT_DEATH(Notification{changed("scale", nullptr)}, message);
    EXPECT_DEATH(Notification{changed("scale", "3")}, message);
    EXPECT_DEATH(Notification{changed("scale", true)}, message);
    EXPECT_DEATH(Notification{changed("scale", (CGSize{1, 2}))}, message);
}

TEST(DocumentSizeDidChangeNotification, arrivesAsItWasPosted) {
    std::vector<std::optional<std::string>> names;
    const auto token = startObserving<Notification>(
        nullptr, [&](const Notification& note) { names.push_back(note.name); });
    post(Notification("mini", {1, 2}, 3));
    post(Notification(std::nullopt, {1, 2}, 3));
    EXPECT_THAT(names, ::testing::ElementsAre("mini", std::nullopt));
}

}  // namespace
}  // namespace quorin
