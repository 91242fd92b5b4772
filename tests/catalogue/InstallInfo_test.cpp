#include "catalogue/InstallInfo.h"

#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/OddRegistry.h"

using namespace zorvo;
using namespace std::string_literals;

namespace {

class GetQBKInfoTest : public CatalogueTest {
protected:
    void ask(const std::string& sProduct, const std::string& sGroup, const std::string& sYear, Hive hive)
    {
        bInstalled = !bInstalled; // whatever was there must be written over
        sPath = "before";
        status.GetQBKInfo(sProduct, sGroup, sYear, bInstalled, sPath, hive);
    }

    bool bInstalled = false;
    std::string sPath;
};

using GetInstallInfo2002Test = GetQBKInfoTest;
using GetProductTitleTest = CatalogueTest;

} // namespace

TEST_F(GetQBKInfoTest, ReadsTheYearKeyOfTheGivenHive)
{
    addYear(HKEY_CURRENT_USER, "Tessora", "P", "2005", "C:\\user");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "C:\\machine");
    ask("P", "Tessora", "2005", HKEY_CURRENT_USER);
    EXPECT_TRUE(bInstalled);
    EXPECT_EQ(sPath, "C:\\user");
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(bInstalled);
    EXPECT_EQ(sPath, "C:\\machine");
    ask("P", "Quillbook", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(bInstalled);
    EXPECT_EQ(sPath, "");
}

TEST_F(GetQBKInfoTest, TrimsThePathOfAYear)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "  C:\\a b\\ ");
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_EQ(sPath, "C:\\a b\\");
}

TEST_F(GetQBKInfoTest, CountsAnEmptyValueAsInstalled)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "");
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(bInstalled);
    EXPECT_EQ(sPath, "");
}

TEST_F(GetQBKInfoTest, IsNotInstalledWithoutInstallDefaultsOrWithoutTheValue)
{
    fakes.registry->addKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P\\2005");
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P\\2006\\InstallDefaults",
                            "AppPath", "C:\\x");
    for (const char* year : {"2004", "2005", "2006"}) {
        ask("P", "Tessora", year, HKEY_LOCAL_MACHINE);
        EXPECT_FALSE(bInstalled) << year;
        EXPECT_EQ(sPath, "") << year;
    }
}

TEST_F(GetQBKInfoTest, FitsAPathOf255BytesAndNotOf256)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", std::string(255, 'x'));
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(bInstalled);
    EXPECT_EQ(sPath.size(), 255U);
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", std::string(256, 'x'));
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(bInstalled);
    EXPECT_EQ(sPath, "");
}

TEST_F(GetQBKInfoTest, CountsTheCapacityInUtf8Bytes)
{
    std::string sAccents;
    for (int n = 0; n < 127; ++n)
        sAccents += "é";
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", sAccents);
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_EQ(sPath, sAccents);
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", sAccents + "é");
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(bInstalled);
}

TEST_F(GetQBKInfoTest, CutsThePathAtItsFirstZeroAheadOfTrimming)
{
    fakes.registry->setBytes(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P\\2005\\InstallDefaults",
                             "AppPath2", RegistryType::string, " C:\\a \0 rest"s);
    ask("P", "Tessora", "2005", HKEY_LOCAL_MACHINE);
    EXPECT_EQ(sPath, "C:\\a");
}

TEST_F(GetQBKInfoTest, TakesOnlyTheExactText2002ForThatYear)
{
    addYear(HKEY_CURRENT_USER, "Tessora", "P", " 2002", "C:\\year key");
    ask("P", "Tessora", " 2002", HKEY_CURRENT_USER);
    EXPECT_EQ(sPath, "C:\\year key");
}

TEST_F(GetQBKInfoTest, OpensWithReadAccess)
{
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    platform().registry = odd;
    addYear(HKEY_CURRENT_USER, "Tessora", "P", "2005", "C:\\x");
    ask("P", "Tessora", "2005", HKEY_CURRENT_USER);
    EXPECT_EQ(odd->accesses, std::vector<std::uint32_t>{25});
}

TEST_F(GetInstallInfo2002Test, ReadsTheProductsOwnKeyOfTheMachineWhateverTheHive)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P\\InstallDefaults", "AppPath2",
                            "C:\\old");
    for (const Hive hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, kHiveNone}) {
        ask("P", "Tessora", "2002", hive);
        EXPECT_TRUE(bInstalled);
        EXPECT_EQ(sPath, "C:\\old");
    }
}

TEST_F(GetInstallInfo2002Test, IgnoresTheCurrentUsersKey)
{
    fakes.registry->setText(HKEY_CURRENT_USER, "Software\\Zorvo\\Tessora\\P\\InstallDefaults", "AppPath2",
                            "C:\\old");
    ask("P", "Tessora", "2002", HKEY_CURRENT_USER);
    EXPECT_FALSE(bInstalled);
    EXPECT_EQ(sPath, "");
}

TEST_F(GetInstallInfo2002Test, NeverReadsAYearKey2002)
{
    addYear(HKEY_CURRENT_USER, "Tessora", "P", "2002", "C:\\user");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2002", "C:\\machine");
    ask("P", "Tessora", "2002", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(bInstalled);
}

TEST_F(GetInstallInfo2002Test, DoesNotTrimThePath)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P\\InstallDefaults", "AppPath2",
                            " C:\\old ");
    ask("P", "Tessora", "2002", HKEY_LOCAL_MACHINE);
    EXPECT_EQ(sPath, " C:\\old ");
}

TEST_F(GetInstallInfo2002Test, TakesAGroupWithAndWithoutABackslash)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P\\InstallDefaults", "AppPath2",
                            "x");
    for (const char* group : {"Tessora", "Tessora\\"}) {
        GetInstallInfo2002(group, "P", bInstalled, sPath);
        EXPECT_TRUE(bInstalled) << group;
    }
}

TEST_F(GetInstallInfo2002Test, FitsAPathOf255BytesAndNotOf256)
{
    const char* key = "Software\\Zorvo\\Tessora\\P\\InstallDefaults";
    fakes.registry->setText(HKEY_LOCAL_MACHINE, key, "AppPath2", std::string(255, 'x'));
    ask("P", "Tessora", "2002", HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(bInstalled);
    fakes.registry->setText(HKEY_LOCAL_MACHINE, key, "AppPath2", std::string(256, 'x'));
    ask("P", "Tessora", "2002", HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(bInstalled);
}

TEST_F(GetProductTitleTest, IsTrimmedAndOfTheGivenHive)
{
    setTitle(HKEY_CURRENT_USER, "Tessora", "P", "  User's title ");
    setTitle(HKEY_LOCAL_MACHINE, "Tessora", "P", "Machine's title");
    EXPECT_EQ(GetProductTitle("Tessora\\P", HKEY_CURRENT_USER), "User's title");
    EXPECT_EQ(GetProductTitle("Tessora\\P", HKEY_LOCAL_MACHINE), "Machine's title");
}

TEST_F(GetProductTitleTest, IsEmptyWithoutTheKeyOrTheValue)
{
    EXPECT_EQ(GetProductTitle("Tessora\\P", HKEY_CURRENT_USER), "");
    fakes.registry->addKey(HKEY_CURRENT_USER, "Software\\Zorvo\\Tessora\\P");
    EXPECT_EQ(GetProductTitle("Tessora\\P", HKEY_CURRENT_USER), "");
}

TEST_F(GetProductTitleTest, Fits127BytesAndNot128)
{
    setTitle(HKEY_CURRENT_USER, "Tessora", "P", std::string(127, 't'));
    EXPECT_EQ(GetProductTitle("Tessora\\P", HKEY_CURRENT_USER), std::string(127, 't'));
    setTitle(HKEY_CURRENT_USER, "Tessora", "P", std::string(128, 't'));
    EXPECT_EQ(GetProductTitle("Tessora\\P", HKEY_CURRENT_USER), "");
}
