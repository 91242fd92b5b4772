#include "base/RunTimeError.h"
#include "platform/linux/SettingsFile.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

/// What the port promises, held against the file and against the fake that stands in for it.
struct RealSettings {
    TemporaryFolder folder;
    SettingsFile settings{folder.path()};
};

struct FakeStore {
    FakeSettings settings;
};

template <typename Store>
class SettingsContract : public testing::Test {
protected:
    SettingsStore& settings() { return store.settings; }

    Store store;
};

using Stores = testing::Types<RealSettings, FakeStore>;
TYPED_TEST_SUITE(SettingsContract, Stores);

using Rows = std::vector<std::pair<std::string, std::string>>;

TYPED_TEST(SettingsContract, AKeyThatWasNeverSetIsAbsent)
{
    EXPECT_FALSE(this->settings().get("App", "Settings", "Key"));
    EXPECT_TRUE(this->settings().list("App", "Settings").empty());
}

TYPED_TEST(SettingsContract, WhatIsSetComesBack)
{
    this->settings().set("App", "Settings", "Key", "1");
    this->settings().set("App", "Settings", "Key", "2");
    EXPECT_EQ(this->settings().get("App", "Settings", "Key"), "2");
    this->settings().set("App", "Settings", "Key", "");
    EXPECT_EQ(this->settings().get("App", "Settings", "Key"), "");
}

TYPED_TEST(SettingsContract, KeysAndSectionsMatchInAnyCaseAndKeepTheirFirstSpelling)
{
    this->settings().set("App", "Settings", "Sch\u00F6n", "1");
    this->settings().set("App", "SETTINGS", "SCH\u00D6N", "2");
    EXPECT_EQ(this->settings().get("App", "settings", "sch\u00F6N"), "2");
    EXPECT_EQ(this->settings().list("App", "Settings"), (Rows{{"Sch\u00F6n", "2"}}));
}

TYPED_TEST(SettingsContract, ApplicationsAndSectionsAreApart)
{
    this->settings().set("App", "One", "Key", "1");
    this->settings().set("App", "Two", "Key", "2");
    this->settings().set("Other", "One", "Key", "3");
    EXPECT_EQ(this->settings().get("App", "One", "Key"), "1");
    EXPECT_EQ(this->settings().get("App", "Two", "Key"), "2");
    EXPECT_EQ(this->settings().get("Other", "One", "Key"), "3");
}

TYPED_TEST(SettingsContract, AListIsSortedByKeyWithoutRegardToCase)
{
    for (const char* key : {"b", "C", "a", "_"})
        this->settings().set("App", "S", key, std::string("of ") + key);
    EXPECT_EQ(this->settings().list("App", "S"),
              (Rows{{"a", "of a"}, {"b", "of b"}, {"C", "of C"}, {"_", "of _"}}));
}

TYPED_TEST(SettingsContract, AnyTextIsKept)
{
    const std::vector<std::string> texts{"",
                                         " ",
                                         "  two  ",
                                         "a=b",
                                         "=",
                                         "[Settings]",
                                         "a]b",
                                         ";x",
                                         "#x",
                                         "a\nb",
                                         "\r\n",
                                         "%",
                                         "%41",
                                         "%0A",
                                         "C:\\new\\table",
                                         "\u00E4\U0001F600",
                                         "\xFF\xFE",
                                         "\t",
                                         std::string("a\0b", 3),
                                         "\"q\"",
                                         std::string(100000, 'x')};
    for (const std::string& text : texts) {
        this->settings().set("App", "S", "key of " + text, text);
        this->settings().set("App", text, text, "in " + text);
    }
    for (const std::string& text : texts) {
        EXPECT_EQ(this->settings().get("App", "S", "key of " + text), text);
        EXPECT_EQ(this->settings().get("App", text, text), "in " + text);
        EXPECT_EQ(this->settings().list("App", text), (Rows{{text, "in " + text}}));
    }
}

} // namespace
} // namespace zorvo
