#include "platform/linux/RegistryStore.h"
#include "tests/fakes/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <memory>

namespace zorvo {
namespace {

/// What the port promises, held against the store and against the fake that stands in for it.
struct RealStore {
    TemporaryFolder folder;
    RegistryStore registry{folder / "user.db", folder / "machine.db", std::chrono::milliseconds(20)};
    void removeKey(Hive hive, const std::string& path)
    {
        registry.apply({{RegistryChange::Kind::deleteKey, hive, path, {}}});
    }
    /// As long as this lives, no listing can be taken: somebody has the file for himself.
    auto breakListings(Hive /*hive*/, const std::string& /*path*/)
    {
        const auto close = [](sqlite3* file) { sqlite3_close(file); };
        sqlite3* file = nullptr;
        EXPECT_EQ(sqlite3_open((folder / "machine.db").c_str(), &file), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(file, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
        return std::unique_ptr<sqlite3, decltype(close)>(file, close);
    }
};

struct FakeStore {
    FakeRegistry registry;
    void removeKey(Hive hive, const std::string& path) { registry.removeKey(hive, path); }
    bool breakListings(Hive hive, const std::string& path)
    {
        registry.failListing(hive, path, kRegistryBusy);
        return true;
    }
};

template <typename Store>
class RegistryContract : public testing::Test {
protected:
    void addText(Hive hive, const std::string& path, const std::string& name, const std::string& text)
    {
        std::unique_ptr<RegistryKey> key;
        ASSERT_EQ(registry().createKey(hive, path, key), kRegistrySuccess);
        ASSERT_EQ(key->setValue(name, RegistryType::string, text + '\0'), kRegistrySuccess);
    }

    std::unique_ptr<RegistryKey> opened(Hive hive, const std::string& path,
                                        std::uint32_t access = kKeyReadAccess)
    {
        std::unique_ptr<RegistryKey> key;
        registry().openKey(hive, path, access, key);
        return key;
    }

    std::int32_t openStatus(Hive hive, const std::string& path, std::uint32_t access = kKeyReadAccess)
    {
        std::unique_ptr<RegistryKey> key;
        const std::int32_t status = registry().openKey(hive, path, access, key);
        EXPECT_EQ(key != nullptr, status == kRegistrySuccess);
        return status;
    }

    std::vector<std::string> names(RegistryKey& key)
    {
        std::vector<std::string> found;
        std::string name;
        for (std::size_t index = 0; key.enumKey(index, 2048, name) == kRegistrySuccess; ++index)
            found.push_back(name);
        return found;
    }

    std::string text(RegistryKey& key, const std::string& name)
    {
        std::string data;
        RegistryType type{};
        return key.queryValue(name, 2048, data, type) == kRegistrySuccess ? data : "(none)";
    }

    Registry& registry() { return store.registry; }

    Store store;
};

using Stores = testing::Types<RealStore, FakeStore>;
TYPED_TEST_SUITE(RegistryContract, Stores);

TYPED_TEST(RegistryContract, AKeyThatIsNotThereIsNotFound)
{
    EXPECT_EQ(this->openStatus(HKEY_CURRENT_USER, "Software\\Zorvo"), kRegistryFileNotFound);
    EXPECT_EQ(this->openStatus(HKEY_LOCAL_MACHINE, "Software\\Zorvo"), kRegistryFileNotFound);
}

TYPED_TEST(RegistryContract, AHiveIsAlwaysThere)
{
    for (const Hive hive :
         {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS, HKEY_CURRENT_CONFIG}) {
        ASSERT_EQ(this->openStatus(hive, ""), kRegistrySuccess);
        EXPECT_TRUE(this->names(*this->opened(hive, "")).empty());
    }
    EXPECT_NE(this->openStatus(kHiveNone, ""), kRegistrySuccess);
}

TYPED_TEST(RegistryContract, TheHivesAreApart)
{
    this->addText(HKEY_CURRENT_USER, "Software\\A", "v", "user");
    this->addText(HKEY_LOCAL_MACHINE, "Software\\A", "v", "machine");
    this->addText(HKEY_CLASSES_ROOT, "Software\\A", "v", "classes");
    EXPECT_EQ(this->text(*this->opened(HKEY_CURRENT_USER, "Software\\A"), "v"), std::string("user\0", 5));
    EXPECT_EQ(this->text(*this->opened(HKEY_LOCAL_MACHINE, "Software\\A"), "v"), std::string("machine\0", 8));
    EXPECT_EQ(this->text(*this->opened(HKEY_CLASSES_ROOT, "Software\\A"), "v"), std::string("classes\0", 8));
}

TYPED_TEST(RegistryContract, CreatingAKeyMakesItsParents)
{
    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(this->registry().createKey(HKEY_CURRENT_USER, "A\\B\\C", key), kRegistrySuccess);
    EXPECT_EQ(this->openStatus(HKEY_CURRENT_USER, "A\\B"), kRegistrySuccess);
    EXPECT_EQ(this->openStatus(HKEY_CURRENT_USER, "A\\B\\C"), kRegistrySuccess);
}

TYPED_TEST(RegistryContract, CreatingAKeyThatIsThereOpensIt)
{
    this->addText(HKEY_CURRENT_USER, "A", "v", "kept");
    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(this->registry().createKey(HKEY_CURRENT_USER, "a", key), kRegistrySuccess);
    EXPECT_EQ(this->text(*key, "v"), std::string("kept\0", 5));
    EXPECT_EQ(this->names(*this->opened(HKEY_CURRENT_USER, "")), std::vector<std::string>{"A"});
}

TYPED_TEST(RegistryContract, NamesMatchInAnyCaseAndKeepTheirFirstSpelling)
{
    this->addText(HKEY_CURRENT_USER, "Softw\u00E4re\\Zorvo", "Titel\u00E4", "1");
    this->addText(HKEY_CURRENT_USER, "SOFTW\u00C4RE\\zorvo", "TITEL\u00C4", "2");
    const auto key = this->opened(HKEY_CURRENT_USER, "softW\u00E4RE\\ZORVO");
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(this->text(*key, "titel\u00C4"), std::string("2\0", 2));
    EXPECT_EQ(this->names(*this->opened(HKEY_CURRENT_USER, "")), std::vector<std::string>{"Softw\u00E4re"});
}

TYPED_TEST(RegistryContract, AnEmptyLevelOpensNothing)
{
    this->addText(HKEY_CURRENT_USER, "A\\B", "v", "1");
    for (const char* path : {"A\\", "\\A", "A\\\\B", "A\\B\\", "\\"}) {
        EXPECT_NE(this->openStatus(HKEY_CURRENT_USER, path), kRegistrySuccess) << path;
        std::unique_ptr<RegistryKey> key;
        EXPECT_NE(this->registry().createKey(HKEY_CURRENT_USER, path, key), kRegistrySuccess) << path;
        EXPECT_EQ(key, nullptr);
    }
}

TYPED_TEST(RegistryContract, SubKeysAscendByTheirUpperCasedNames)
{
    for (const char* name : {"b", "_x", "A", "\u00E4", "Z", "2010", "a_", "CurrentVersion", "2002"})
        this->addText(HKEY_LOCAL_MACHINE, std::string("K\\") + name, "", "");
    // "_" stands behind the capitals that lower-case letters are compared as.
    const std::vector<std::string> expected{"2002",           "2010", "A",  "a_",    "b",
                                            "CurrentVersion", "Z",    "_x", "\u00E4"};
    EXPECT_EQ(this->names(*this->opened(HKEY_LOCAL_MACHINE, "K")), expected);
}

TYPED_TEST(RegistryContract, PastTheLastSubKeyThereAreNoMoreItems)
{
    this->addText(HKEY_LOCAL_MACHINE, "K\\Only", "", "");
    const auto key = this->opened(HKEY_LOCAL_MACHINE, "K");
    std::string name = "left over";
    EXPECT_EQ(key->enumKey(1, 2048, name), kRegistryNoMoreItems);
    EXPECT_EQ(name, "");
    EXPECT_EQ(key->enumKey(999, 2048, name), kRegistryNoMoreItems);
    EXPECT_EQ(this->opened(HKEY_LOCAL_MACHINE, "K\\Only")->enumKey(0, 2048, name), kRegistryNoMoreItems);
}

TYPED_TEST(RegistryContract, ANameFitsWithItsTerminatingZeroOrNotAtAll)
{
    const std::string longest(1999, 'n');
    this->addText(HKEY_LOCAL_MACHINE, "K\\" + longest, "", "");
    this->addText(HKEY_LOCAL_MACHINE, "K\\" + longest + "x", "", "");
    const auto key = this->opened(HKEY_LOCAL_MACHINE, "K");
    std::string name;
    EXPECT_EQ(key->enumKey(0, 2000, name), kRegistrySuccess);
    EXPECT_EQ(name, longest);
    EXPECT_EQ(key->enumKey(1, 2000, name), kRegistryMoreData);
    EXPECT_EQ(name, "");
}

TYPED_TEST(RegistryContract, TheLengthOfANameCountsItsBytes)
{
    this->addText(HKEY_LOCAL_MACHINE, "K\\\u00E4\u00E4", "", "");
    std::string name;
    EXPECT_EQ(this->opened(HKEY_LOCAL_MACHINE, "K")->enumKey(0, 4, name), kRegistryMoreData);
    EXPECT_EQ(this->opened(HKEY_LOCAL_MACHINE, "K")->enumKey(0, 5, name), kRegistrySuccess);
}

TYPED_TEST(RegistryContract, AnOpenKeyHoldsItsListing)
{
    this->addText(HKEY_LOCAL_MACHINE, "K\\A", "", "");
    this->addText(HKEY_LOCAL_MACHINE, "K\\C", "", "");
    const auto key = this->opened(HKEY_LOCAL_MACHINE, "K");
    std::string name;
    ASSERT_EQ(key->enumKey(0, 2048, name), kRegistrySuccess);
    this->addText(HKEY_LOCAL_MACHINE, "K\\B", "", "");
    EXPECT_EQ(key->enumKey(1, 2048, name), kRegistrySuccess);
    EXPECT_EQ(name, "C");
    EXPECT_EQ(this->names(*this->opened(HKEY_LOCAL_MACHINE, "K")).size(), 3U);
}

TYPED_TEST(RegistryContract, AListingThatFailsIsToldOnceAndThenAtItsEnd)
{
    this->addText(HKEY_LOCAL_MACHINE, "K\\A", "", "");
    const auto key = this->opened(HKEY_LOCAL_MACHINE, "K");
    {
        [[maybe_unused]] const auto broken = this->store.breakListings(HKEY_LOCAL_MACHINE, "K");
        std::string name = "left over";
        EXPECT_EQ(key->enumKey(0, 2048, name), kRegistryBusy);
        EXPECT_EQ(name, "");
        EXPECT_EQ(key->enumKey(1, 2048, name), kRegistryNoMoreItems);
        EXPECT_EQ(key->enumKey(0, 2048, name), kRegistryNoMoreItems);
    }
    std::string name;
    EXPECT_EQ(key->enumKey(0, 2048, name), kRegistryNoMoreItems) << "an open key holds its listing";
}

TYPED_TEST(RegistryContract, AValueComesBackByteForByteWithItsType)
{
    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(this->registry().createKey(HKEY_CURRENT_USER, "K", key), kRegistrySuccess);
    const std::string bytes("\0\x01\xFF\0", 4);
    for (const RegistryType type : {RegistryType::none, RegistryType::binary, RegistryType::multiString,
                                    RegistryType::qword, static_cast<RegistryType>(0x20000)}) {
        ASSERT_EQ(key->setValue("v", type, bytes), kRegistrySuccess);
        std::string data;
        RegistryType found{};
        ASSERT_EQ(key->queryValue("v", 2048, data, found), kRegistrySuccess);
        EXPECT_EQ(data, bytes);
        EXPECT_EQ(found, type);
    }
    ASSERT_EQ(key->setValue("empty", RegistryType::binary, {}), kRegistrySuccess);
    EXPECT_EQ(this->text(*key, "empty"), "");
}

TYPED_TEST(RegistryContract, TheEmptyNameIsTheDefaultValue)
{
    this->addText(HKEY_CURRENT_USER, "K", "other", "1");
    const auto key = this->opened(HKEY_CURRENT_USER, "K");
    EXPECT_EQ(this->text(*key, ""), "(none)");
    this->addText(HKEY_CURRENT_USER, "K", "", "default");
    EXPECT_EQ(this->text(*key, ""), std::string("default\0", 8));
}

TYPED_TEST(RegistryContract, AValueThatIsNotThereIsNotFound)
{
    this->addText(HKEY_CURRENT_USER, "K", "v", "1");
    std::string data = "left over";
    RegistryType type{};
    EXPECT_EQ(this->opened(HKEY_CURRENT_USER, "K")->queryValue("w", 2048, data, type), kRegistryFileNotFound);
    EXPECT_EQ(data, "");
}

TYPED_TEST(RegistryContract, AValueFitsTheBufferWholeOrNotAtAll)
{
    this->addText(HKEY_LOCAL_MACHINE, "K", "fits", std::string(255, 'x'));
    this->addText(HKEY_LOCAL_MACHINE, "K", "too long", std::string(256, 'x'));
    const auto key = this->opened(HKEY_LOCAL_MACHINE, "K");
    std::string data;
    RegistryType type{};
    EXPECT_EQ(key->queryValue("fits", 256, data, type), kRegistrySuccess);
    EXPECT_EQ(data.size(), 256U);
    EXPECT_EQ(key->queryValue("too long", 256, data, type), kRegistryMoreData);
    EXPECT_EQ(data, "");
}

TYPED_TEST(RegistryContract, AKeyAnswersOnlyWhatItWasOpenedFor)
{
    this->addText(HKEY_CURRENT_USER, "K\\Sub", "v", "1");
    std::string data;
    RegistryType type{};
    std::string name;
    const auto reader = this->opened(HKEY_CURRENT_USER, "K\\Sub", kKeyQueryValue);
    EXPECT_EQ(reader->queryValue("v", 10, data, type), kRegistrySuccess);
    EXPECT_EQ(reader->enumKey(0, 10, name), kRegistryAccessDenied);
    EXPECT_EQ(reader->setValue("v", RegistryType::string, "2"), kRegistryAccessDenied);
    const auto writer = this->opened(HKEY_CURRENT_USER, "K\\Sub", kKeySetValue);
    EXPECT_EQ(writer->setValue("v", RegistryType::string, "2"), kRegistrySuccess);
    EXPECT_EQ(writer->queryValue("v", 10, data, type), kRegistryAccessDenied);
}

TYPED_TEST(RegistryContract, ANameThatIsNoTextIsRefused)
{
    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(this->registry().createKey(HKEY_CURRENT_USER, "K", key), kRegistrySuccess);
    for (const std::string& name : {std::string("a\nb"), std::string("a\rb"), std::string("a\0b", 3),
                                    std::string("a\xFF"), std::string(16384, 'n')}) {
        EXPECT_EQ(key->setValue(name, RegistryType::binary, "1"), kRegistryInvalidParameter);
        std::unique_ptr<RegistryKey> child;
        EXPECT_EQ(this->registry().createKey(HKEY_CURRENT_USER, "K\\" + name, child),
                  kRegistryInvalidParameter);
        EXPECT_NE(this->openStatus(HKEY_CURRENT_USER, "K\\" + name), kRegistrySuccess);
    }
    EXPECT_TRUE(this->names(*this->opened(HKEY_CURRENT_USER, "K")).empty());
}

TYPED_TEST(RegistryContract, AValueThatIsTooLargeIsRefused)
{
    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(this->registry().createKey(HKEY_CURRENT_USER, "K", key), kRegistrySuccess);
    EXPECT_EQ(key->setValue("v", RegistryType::binary, std::string(kLargestRegistryValue, 'x')),
              kRegistrySuccess);
    EXPECT_EQ(key->setValue("v", RegistryType::binary, std::string(kLargestRegistryValue + 1, 'y')),
              kRegistryInvalidParameter);
}

TYPED_TEST(RegistryContract, ADeletedKeyStaysDeletedForWhoHasItOpen)
{
    this->addText(HKEY_CURRENT_USER, "K\\Sub", "v", "1");
    const auto key = this->opened(HKEY_CURRENT_USER, "K\\Sub", kKeyReadAccess | kKeySetValue);
    this->store.removeKey(HKEY_CURRENT_USER, "K");
    this->addText(HKEY_CURRENT_USER, "K\\Sub", "v", "another");
    std::string data;
    RegistryType type{};
    EXPECT_NE(key->queryValue("v", 100, data, type), kRegistrySuccess);
    EXPECT_EQ(key->setValue("v", RegistryType::string, "2"), kRegistryKeyDeleted);
    EXPECT_EQ(this->text(*this->opened(HKEY_CURRENT_USER, "K\\Sub"), "v"), std::string("another\0", 8));
}

TYPED_TEST(RegistryContract, DeletingAKeyTakesWhatIsBelowAndNothingBeside)
{
    for (const char* path : {"K\\Sub\\Deep", "K Beside", "K]", "KK"})
        this->addText(HKEY_CURRENT_USER, path, "v", "1");
    this->store.removeKey(HKEY_CURRENT_USER, "k");
    EXPECT_EQ(this->openStatus(HKEY_CURRENT_USER, "K"), kRegistryFileNotFound);
    EXPECT_EQ(this->openStatus(HKEY_CURRENT_USER, "K\\Sub\\Deep"), kRegistryFileNotFound);
    for (const char* path : {"K Beside", "K]", "KK"})
        EXPECT_EQ(this->openStatus(HKEY_CURRENT_USER, path), kRegistrySuccess) << path;
}

} // namespace
} // namespace zorvo
