#include "quorin/platform/foundation/UserDefaults.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "quorin/platform/foundation/NSLog.h"
#include "quorin/platform/values/KeyedCoding.h"
#include "tests/TestSupport.h"
#include "tests/support/FileFaults.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;
namespace fs = std::filesystem;

class UserDefaultsTest : public testing::Test {
protected:
    std::string fileNamed(const std::string& name) const { return folder / ("quorin/" + name); }
    void writeFile(const std::string& text) const {
        fs::create_directory(folder / "quorin");
        folder.file("quorin/defaults.json", text);
    }

    const TemporaryFolder folder;
    UserDefaults defaults{folder / "quorin"};
    std::vector<std::string> logged;
    const LogRedirection redirection{
        [this](std::string_view message) { logged.emplace_back(message); }};
};

using UserDefaultsValues = UserDefaultsTest;

TEST_F(UserDefaultsValues, keepEveryKindForTheNextStart) {
    const Value::Map values = {{"boolean", true},
                               {"double", 1.0},
                               {"integer", -3},
                               {"list", Value::List{1, "two", nullptr, Value::List{}}},
                               {"map", Value::Map{{"a.b", false}, {"", Value::Map{}}}},
                               {"text", "caf\u00e9 \"\n"},
                               {"", "a key without letters"}};
    for (const auto& [key, value] : values)
        defaults.set(key, value);
    const UserDefaults next(folder / "quorin");
    EXPECT_EQ(next.values(), values);
    EXPECT_EQ(next.value("integer").asInteger(), -3);
    EXPECT_EQ(next.value("double").asDouble(), 1.0);
    EXPECT_THAT(logged, ElementsAre());
}

TEST_F(UserDefaultsValues, areNothingWhereThereIsNoFileAndMakeNone) {
    EXPECT_TRUE(defaults.value("key").isNothing());
    EXPECT_EQ(defaults.values(), Value::Map());
    defaults.remove("key");
    EXPECT_FALSE(fs::exists(defaults.path()));
}

TEST_F(UserDefaultsValues, goAwayWithNothingAsTheValue) {
    defaults.set("a", 1);
    defaults.set("b", 2);
    defaults.remove("a");
    defaults.set("never", nullptr);
    EXPECT_EQ(defaults.values(), (Value::Map{{"b", 2}}));
}

TEST_F(UserDefaultsValues, changeTheirKindEvenWhenTheNumberIsEqual) {
    defaults.set("a", 1);
    defaults.set("a", 1.0);
    EXPECT_TRUE(defaults.value("a").asDouble());
}

TEST_F(UserDefaultsValues, areRefusedWhenTheyCannotBeKeptAndTheOthersStay) {
    defaults.set("a", 1);
    EXPECT_THAT(
        [&] {
            defaults.set("point", CGPoint{1, 2});
        },
        ThrowsMessage<EncodingError>(HasSubstr("point: not a value that JSON has")));
    EXPECT_THROW(defaults.set("\xFF", 1), EncodingError);
    EXPECT_THROW(defaults.set("text", "\xFF"), EncodingError);
    EXPECT_EQ(defaults.values(), (Value::Map{{"a", 1}}));
}

TEST_F(UserDefaultsValues, areRefusedWhenTheyCouldNotBeReadAgain) {
    defaults.set("a", 1);
    EXPECT_THAT(
        [&] { defaults.set("b", std::string(std::size_t{64} << 20, 'b')); },
        ThrowsMessage<FileError>(defaults.path() + ": larger than the limit of 67108864 bytes"));
    EXPECT_EQ(defaults.values(), (Value::Map{{"a", 1}}));
}

TEST_F(UserDefaultsValues, changeTogetherOrNotAtAll) {
    defaults.set("a", 1);
    defaults.change([](Value::Map& map) {
        map["b"] = Value(2);
        map.erase("a");
    });
    EXPECT_EQ(defaults.values(), (Value::Map{{"b", 2}}));
    EXPECT_THROW(defaults.change([](Value::Map& map) {
        map.clear();
        throw std::runtime_error("changed my mind");
    }),
                 std::runtime_error);
    EXPECT_EQ(defaults.values(), (Value::Map{{"b", 2}}));
}

using UserDefaultsFile = UserDefaultsTest;

TEST_F(UserDefaultsFile, isForTheUserAlone) {
    writeFile("{}");
    fs::permissions(defaults.path(), fs::perms(0666));
    defaults.set("a", 1);
    EXPECT_EQ(test::modeOf(defaults.path()), 0600u);
    EXPECT_EQ(test::modeOf(fileNamed("defaults.json.lock")), 0600u);
    const UserDefaults elsewhere(folder / "new/quorin");
    UserDefaults(elsewhere).set("a", 1);
    EXPECT_EQ(test::modeOf(elsewhere.path()), 0600u);
    EXPECT_EQ(test::modeOf(folder / "new/quorin"), 0700u);
}

TEST_F(UserDefaultsFile, isNotTouchedWhenNothingChanges) {
    defaults.set("a", 1);
    const auto before = fs::last_write_time(defaults.path());
    fs::permissions(defaults.path(), fs::perms(0400));
    defaults.set("a", 1);
    EXPECT_EQ(test::modeOf(defaults.path()), 0400u);
    EXPECT_EQ(fs::last_write_time(defaults.path()), before);
}

TEST_F(UserDefaultsFile, standsInTheConfigurationFolder) {
    const char* const before = std::getenv("XDG_CONFIG_HOME");
    const std::string kept = before ? before : "";
    setenv("XDG_CONFIG_HOME", "/somewhere/config/", 1);
    EXPECT_EQ(UserDefaults::defaultFolder(), "/somewhere/config/quorin");
    setenv("XDG_CONFIG_HOME", "not/absolute", 1);
    EXPECT_EQ(UserDefaults::defaultFolder(), std::string(std::getenv("HOME")) + "/.config/quorin");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(UserDefaults().path(),
              std::string(std::getenv("HOME")) + "/.config/quorin/defaults.json");
    if (before)
        setenv("XDG_CONFIG_HOME", kept.c_str(), 1);
}

TEST_F(UserDefaultsFile, mayBeALink) {
    fs::create_directories(folder / "dotfiles");
    fs::create_directory(folder / "quorin");
    fs::create_symlink("../dotfiles/defaults", defaults.path());
    folder.file("dotfiles/defaults", "{\"a\": 1}");
    defaults.set("b", 2);
    EXPECT_TRUE(fs::is_symlink(defaults.path()));
    EXPECT_EQ(defaults.values(), (Value::Map{{"a", 1}, {"b", 2}}));
}

using DamagedUserDefaults = UserDefaultsTest;

TEST_F(DamagedUserDefaults, areSetAsideWithAWarning) {
    writeFile("{\"a\": 1");
    EXPECT_TRUE(defaults.value("a").isNothing());
    EXPECT_THAT(logged, ElementsAre(testing::AllOf(
                            HasSubstr(defaults.path() + " are damaged (line 1, column 8"),
                            HasSubstr("are kept as " + defaults.path() + ".damaged"))));
    EXPECT_EQ(readFile(fileNamed("defaults.json.damaged")), "{\"a\": 1");
    EXPECT_FALSE(fs::exists(defaults.path()));
}

TEST_F(DamagedUserDefaults, areNotOverwrittenByANewValue) {
    for (const std::string text : {"", "[1]", "nonsense", "{\"a\": \"\xFF\"}", "null"}) {
        SCOPED_TRACE(text);
        const TemporaryFolder place;
        const std::string file = place.file("defaults.json", text);
        UserDefaults(place.path()).set("b", 2);
        EXPECT_EQ(readFile(file + ".damaged"), text);
        EXPECT_EQ(UserDefaults(place.path()).values(), (Value::Map{{"b", 2}}));
    }
    EXPECT_EQ(logged.size(), 5u);
}

TEST_F(DamagedUserDefaults, doNotReplaceEarlierDamagedOnes) {
    for (const std::string text : {"first", "second", "third"}) {
        writeFile(text);
        defaults.values();
    }
    EXPECT_EQ(readFile(fileNamed("defaults.json.damaged")), "first");
    EXPECT_EQ(readFile(fileNamed("defaults.json.damaged-2")), "second");
    EXPECT_EQ(readFile(fileNamed("defaults.json.damaged-3")), "third");
}

TEST_F(DamagedUserDefaults, areSetAsideOnceByManyReaders) {
    constexpr std::size_t rounds = 20;  // in some of which two find the damage at the same time
    for (std::size_t round = 1; round <= rounds; ++round) {
        writeFile("nonsense");
        std::vector<std::thread> readers;
        for (int i = 0; i < 4; ++i)
            readers.emplace_back([this] { EXPECT_EQ(defaults.values(), Value::Map()); });
        for (std::thread& reader : readers)
            reader.join();
        ASSERT_EQ(logged.size(), round);
    }
    EXPECT_FALSE(fs::exists(fileNamed("defaults.json.damaged-21")));
}

}  // namespace
}  // namespace quorin
