#include "quorin/screens/Template.h"

#include <cmath>
#include <limits>
#include <string>

#include "quorin/platform/foundation/JSONEncoder.h"
#include "tests/TestSupport.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using test::decoded;
using test::MemoryRecord;
using test::recordOf;
using ::testing::ElementsAre;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

std::shared_ptr<Template> mini() { return Template::create(375, 812, 3, "iPhone 13 mini"); }

TEST(Template, holdsSizeDensityAndName) {
    const auto screen = mini();
    EXPECT_EQ(screen->width(), 375);
    EXPECT_EQ(screen->height(), 812);
    EXPECT_EQ(screen->density(), 3);
    EXPECT_EQ(screen->name(), "iPhone 13 mini");
    EXPECT_EQ(screen->description(), "iPhone 13 mini");
}

TEST(Template, isItselfOnlyWhateverItHolds) {
    const auto screen = mini();
    EXPECT_TRUE(screen->isEqual(*screen));
    EXPECT_FALSE(screen->isEqual(*mini()));
}

TEST(Template, writesFourKeysInOrder) {
    MemoryRecord record = recordOf(*mini());
    EXPECT_THAT(record.keys(), ElementsAre("width", "height", "density", "name"));
    EXPECT_EQ(record["width"], MemoryRecord::Entry(375.0));
    EXPECT_EQ(record["height"], MemoryRecord::Entry(812.0));
    EXPECT_EQ(record["density"], MemoryRecord::Entry(3.0));
    EXPECT_EQ(record["name"], MemoryRecord::Entry(std::string("iPhone 13 mini")));
}

TEST(Template, readsItsKeysInOrder) {
    const MemoryRecord whole = recordOf(*mini());
    MemoryRecord record;
    for (const auto& entry : whole.entries) {
        // Of all that is missing the first is named.
        EXPECT_THAT([&] { decoded<Template>(record); },
                    ThrowsMessage<DecodingError>(entry.first + ": key not found"));
        record.entries.push_back(entry);
    }
}

TEST(Template, readsWhatItWrote) {
    const auto screen = decoded<Template>(recordOf(*Template::create(0.1, -0.0, 1e300, "Ω ✓")));
    EXPECT_EQ(screen->width(), 0.1);
    EXPECT_TRUE(std::signbit(screen->height()));
    EXPECT_EQ(screen->density(), 1e300);
    EXPECT_EQ(screen->name(), "Ω ✓");
}

TEST(Template, requiresEveryKey) {
    for (const std::string& key : recordOf(*mini()).keys()) {
        MemoryRecord record = recordOf(*mini());
        record.remove(key);
        EXPECT_THAT([&] { decoded<Template>(record); },
                    ThrowsMessage<DecodingError>(key + ": key not found"));
    }
}

TEST(Template, takesNoValueOfAnotherType) {
    for (const std::string& key : recordOf(*mini()).keys()) {
        for (const MemoryRecord::Entry& wrong :
             {MemoryRecord::Entry(true), MemoryRecord::Entry(MemoryRecord::Numbers{1}),
              key == "name" ? MemoryRecord::Entry(3.0) : MemoryRecord::Entry(std::string("3"))}) {
            MemoryRecord record = recordOf(*mini());
            record[key] = wrong;
            EXPECT_THAT([&] { decoded<Template>(record); },
                        ThrowsMessage<DecodingError>(StartsWith(key + ": ")));
        }
    }
}

TEST(Template, cannotBeWrittenWithoutAFiniteSize) {
    const auto screen =
        Template::create(std::numeric_limits<CGFloat>::quiet_NaN(), 1, 1, "nowhere");
    EXPECT_THAT([&] { JSONEncoder().encode(*screen); },
                ThrowsMessage<EncodingError>(StartsWith("width: ")));
}

}  // namespace
}  // namespace quorin
