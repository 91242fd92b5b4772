#include "catalogue/registryKeys.h"

#include "base/RunTimeError.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/OddRegistry.h"

using namespace zorvo;
using namespace std::string_literals;

TEST(hHiveFromName, KnowsFiveNamesExactly)
{
    EXPECT_EQ(hHiveFromName("HKEY_CLASSES_ROOT"), 0x80000000U);
    EXPECT_EQ(hHiveFromName("HKEY_CURRENT_USER"), 0x80000001U);
    EXPECT_EQ(hHiveFromName("HKEY_LOCAL_MACHINE"), 0x80000002U);
    EXPECT_EQ(hHiveFromName("HKEY_USERS"), 0x80000003U);
    EXPECT_EQ(hHiveFromName("HKEY_CURRENT_CONFIG"), 0x80000005U);
    for (const char* name : {"hkey_local_machine", "HKLM", "HKEY_PERFORMANCE_DATA", "", " HKEY_USERS"})
        EXPECT_EQ(hHiveFromName(name), 0U) << name;
}

TEST(SplitHiveKey, SplitsAtTheFirstBackslash)
{
    std::string sHive;
    std::string sPath;
    SplitHiveKey("HKEY_USERS\\a\\b", sHive, sPath);
    EXPECT_EQ(sHive, "HKEY_USERS");
    EXPECT_EQ(sPath, "a\\b");
    SplitHiveKey("\\a", sHive, sPath);
    EXPECT_EQ(sHive, "");
    EXPECT_EQ(sPath, "a");
    SplitHiveKey("HKEY_USERS\\", sHive, sPath);
    EXPECT_EQ(sPath, "");
}

TEST(SplitHiveKey, FailsWithoutABackslash)
{
    std::string sHive;
    std::string sPath;
    EXPECT_EQ(numberOfFailure([&] { SplitHiveKey("HKEY_USERS", sHive, sPath); }), kInvalidCall);
}

namespace {

class EnumKeyNameTest : public CatalogueTest {
protected:
    std::int32_t statusAt(std::size_t nIndex, std::string& sName)
    {
        std::unique_ptr<RegistryKey> key;
        EXPECT_EQ(platform().registry->openKey(HKEY_CURRENT_USER, "K", kKeyReadAccess, key), 0);
        std::int32_t nStatus = -1;
        EnumKeyName(*key, nIndex, sName, nStatus);
        return nStatus;
    }
};

} // namespace

TEST_F(EnumKeyNameTest, GivesNamesUpToTheEndOfTheEntries)
{
    fakes.registry->addKey(HKEY_CURRENT_USER, "K\\b");
    fakes.registry->addKey(HKEY_CURRENT_USER, "K\\A");
    std::string sName;
    EXPECT_EQ(statusAt(0, sName), 0);
    EXPECT_EQ(sName, "A");
    EXPECT_EQ(statusAt(1, sName), 0);
    EXPECT_EQ(sName, "b");
    EXPECT_EQ(statusAt(2, sName), 259);
    EXPECT_EQ(sName, "");
}

TEST_F(EnumKeyNameTest, FitsANameOf1999BytesAndNotOf2000)
{
    fakes.registry->addKey(HKEY_CURRENT_USER, "K\\" + std::string(1999, 'a'));
    fakes.registry->addKey(HKEY_CURRENT_USER, "K\\" + std::string(2000, 'b'));
    std::string sName;
    EXPECT_EQ(statusAt(0, sName), 0);
    EXPECT_EQ(sName.size(), 1999U);
    EXPECT_NE(statusAt(1, sName), 0);
    EXPECT_EQ(sName, "");
}

TEST_F(EnumKeyNameTest, CutsTheNameAtItsFirstZero)
{
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    fakes.registry->addKey(HKEY_CURRENT_USER, "K");
    odd->enumerate(HKEY_CURRENT_USER, "K", {{kRegistrySuccess, "2004\0junk"s}, {kRegistryBusy, "left over"}});
    platform().registry = odd;
    std::string sName;
    EXPECT_EQ(statusAt(0, sName), 0);
    EXPECT_EQ(sName, "2004");
    EXPECT_EQ(statusAt(1, sName), kRegistryBusy);
    EXPECT_EQ(sName, "");
}
