#include "catalogue/ProductYears.h"

#include "base/RunTimeError.h"
#include "catalogue/catalogueState.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/OddRegistry.h"

#include <limits>

using namespace zorvo;
using namespace std::string_literals;

namespace {

class ListProductYearsTest : public CatalogueTest {
protected:
    std::string scan(const std::string& sProduct = "P", const std::string& sGroup = "Tessora")
    {
        return ProductYears().ListProductYears(sGroup, sProduct);
    }
    void addKey(Hive hive, const std::string& sBelowTessora)
    {
        fakes.registry->addKey(hive, "Software\\Zorvo\\Tessora\\" + sBelowTessora);
    }
    /// Version, installed and latest of every node, as "2005 True False;".
    std::string summary(const std::string& sNodes)
    {
        std::string sSummary;
        for (auto n = sNodes.find("Version=\""); n != std::string::npos;
             n = sNodes.find("Version=\"", n + 1)) {
            for (const char* attribute : {"Version=\"", " Installed=\"", " LatestFlag=\""}) {
                const auto start = sNodes.find(attribute, n) + std::string(attribute).size();
                sSummary += sNodes.substr(start, sNodes.find('"', start) - start) + " ";
            }
            sSummary.back() = ';';
        }
        return sSummary;
    }
    std::size_t openings(const std::string& sFullKey)
    {
        const auto& opened = fakes.registry->opened;
        return static_cast<std::size_t>(std::count(opened.begin(), opened.end(), sFullKey));
    }
    SwdInstalledTable& table = catalogueState().swdInstalled;
};

class LibraryTableTest : public ListProductYearsTest {
protected:
    std::string rows()
    {
        std::string sRows;
        for (std::size_t n = 0; n < static_cast<std::size_t>(table.SWDInstalledCount); ++n)
            sRows += table.SWDInstalledProducts.at(n) + ":" + table.SWDInstalledYears.at(n) + ";";
        return sRows;
    }
};

} // namespace

TEST_F(ListProductYearsTest, GivesAFilledNodePerYear)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "C:\\P05\\");
    setTitle(HKEY_LOCAL_MACHINE, "Tessora", "P", " The Product ");
    EXPECT_EQ(scan(),
              statusNode({.sVersion = "2005", .sKey = "P", .sName = "The Product", .sPath = "C:\\P05\\"}));
}

TEST_F(ListProductYearsTest, YieldsNothingForMissingKeys)
{
    EXPECT_EQ(scan(), "");
    fakes.registry->addKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora");
    EXPECT_EQ(scan(), "");
    addKey(HKEY_LOCAL_MACHINE, "P");
    EXPECT_EQ(scan(), "");
}

TEST_F(ListProductYearsTest, YieldsNothingForAProductThatCannotBeOpened)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    fakes.registry->failOn(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P", kRegistryAccessDenied);
    EXPECT_EQ(scan(), "");
}

TEST_F(ListProductYearsTest, ListsAYearOfBothHivesTwiceTheCurrentUsersFirst)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "C:\\machine");
    addYear(HKEY_CURRENT_USER, "Tessora", "P", "2005", "C:\\user");
    setTitle(HKEY_LOCAL_MACHINE, "Tessora", "P", "Machine's");
    setTitle(HKEY_CURRENT_USER, "Tessora", "P", "User's");
    EXPECT_EQ(
        scan(),
        statusNode({.sVersion = "2005", .sKey = "P", .sName = "User's", .sPath = "C:\\user"}) +
            statusNode({.sVersion = "2005", .sKey = "P", .sName = "Machine's", .sPath = "C:\\machine"}));
}

TEST_F(ListProductYearsTest, DecidesTheLatestYearPerHive)
{
    addYear(HKEY_CURRENT_USER, "Tessora", "P", "2005", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2006", "x");
    EXPECT_EQ(summary(scan()), "2005 True True;2005 True False;2006 True True;");
}

TEST_F(ListProductYearsTest, FlagsAHighestYearThatIsNotInstalled)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    addKey(HKEY_LOCAL_MACHINE, "P\\2006");
    EXPECT_EQ(summary(scan()), "2005 True False;2006 False True;");
}

TEST_F(ListProductYearsTest, FlagsAllEntriesOfTheHighestValue)
{
    addKey(HKEY_LOCAL_MACHINE, "P\\2005");
    addKey(HKEY_LOCAL_MACHINE, "P\\2006");
    addKey(HKEY_LOCAL_MACHINE, "P\\2006.0");
    addKey(HKEY_LOCAL_MACHINE, "P\\2005.5");
    EXPECT_EQ(summary(scan()), "2005 False False;2005.5 False True;2006 False True;2006.0 False True;");
}

TEST_F(ListProductYearsTest, CannotRaiseTheHighestYearWithAValueOfZeroOrBelow)
{
    addKey(HKEY_LOCAL_MACHINE, "P\\-3");
    addKey(HKEY_LOCAL_MACHINE, "P\\0");
    addKey(HKEY_LOCAL_MACHINE, "P\\0.4");
    EXPECT_EQ(summary(scan()), "-3 False False;0 False True;0.4 False True;");
    addKey(HKEY_LOCAL_MACHINE, "Q\\-3");
    EXPECT_EQ(summary(scan("Q")), "-3 False False;");
}

TEST_F(ListProductYearsTest, DropsAnEntryThatIsNotNumeric)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    addKey(HKEY_LOCAL_MACHINE, "P\\Setup");
    addKey(HKEY_LOCAL_MACHINE, "P\\2007a");
    EXPECT_EQ(summary(scan()), "2005 True True;");
}

TEST_F(ListProductYearsTest, FailsForAYearPastThirtyTwoBits)
{
    addKey(HKEY_LOCAL_MACHINE, "P\\20040101000000");
    EXPECT_EQ(numberOfFailure([&] { scan(); }), kOverflow);
}

TEST_F(ListProductYearsTest, ComparesTheProductKeyExactly)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "p", "2005", "x");
    EXPECT_EQ(scan("P"), "");
    EXPECT_EQ(summary(scan("p")), "2005 True True;");
    EXPECT_EQ(scan(""), "");
    EXPECT_EQ(scan("p\\2005"), "");
}

TEST_F(ListProductYearsTest, HasAnEmptyNameWithoutATitleOrWithALongOne)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    EXPECT_EQ(scan(), statusNode({.sVersion = "2005", .sKey = "P", .sName = "", .sPath = "x"}));
    setTitle(HKEY_LOCAL_MACHINE, "Tessora", "P", std::string(128, 't'));
    EXPECT_EQ(scan(), statusNode({.sVersion = "2005", .sKey = "P", .sName = "", .sPath = "x"}));
}

TEST_F(ListProductYearsTest, IsNotInstalledWithAPathOf256Bytes)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", std::string(256, 'x'));
    EXPECT_EQ(scan(), statusNode({.sVersion = "2005", .sInstalled = "False", .sKey = "P"}));
}

TEST_F(ListProductYearsTest, DoesNotEndAtAMatch)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    odd->enumerate(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora", {{0, "P"}, {0, "Q"}, {0, "P"}});
    platform().registry = odd;
    EXPECT_EQ(summary(scan()), "2005 True True;2005 True True;");
}

TEST_F(ListProductYearsTest, EndsBothEnumerationsAtAnythingButSuccess)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2006", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "Q", "2007", "x");
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    odd->enumerate(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora",
                   {{0, "P"}, {kRegistryMoreData, ""}, {0, "Q"}});
    odd->enumerate(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P",
                   {{0, "2005"}, {kRegistryBusy, ""}, {0, "2006"}});
    platform().registry = odd;
    EXPECT_EQ(summary(scan("P")), "2005 True True;");
    EXPECT_EQ(scan("Q"), "");
}

TEST_F(ListProductYearsTest, FindsNoProductBehindAKeyNameOf2000Bytes)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "B", "2005", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    addKey(HKEY_LOCAL_MACHINE, "C" + std::string(1999, 'c'));
    EXPECT_EQ(summary(scan("B")), "2005 True True;");
    EXPECT_EQ(scan("P"), "");
}

TEST_F(ListProductYearsTest, TakesAMarkOf2002AsThatYear)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P\\InstallDefaults", "AppPath2",
                            "C:\\old");
    EXPECT_EQ(scan(), statusNode({.sVersion = "2002", .sKey = "P", .sPath = "C:\\old"}));
}

TEST_F(ListProductYearsTest, GivesTwoNodesForBothMarksOf2002)
{
    addKey(HKEY_LOCAL_MACHINE, "P\\CurrentVersion");
    addKey(HKEY_LOCAL_MACHINE, "P\\InstallDefaults");
    EXPECT_EQ(summary(scan()), "2002 False True;2002 False True;");
}

TEST_F(ListProductYearsTest, ComparesTheMarksOf2002Exactly)
{
    addKey(HKEY_LOCAL_MACHINE, "P\\currentversion");
    addKey(HKEY_LOCAL_MACHINE, "P\\INSTALLDEFAULTS");
    EXPECT_EQ(scan(), "");
}

TEST_F(ListProductYearsTest, IsNotInstalledForAYear2002OfTheCurrentUserOnly)
{
    fakes.registry->setText(HKEY_CURRENT_USER, "Software\\Zorvo\\Tessora\\P\\InstallDefaults", "AppPath2",
                            "x");
    EXPECT_EQ(summary(scan()), "2002 False True;");
}

TEST_F(ListProductYearsTest, StopsCollectingWhereTheCurrentUserHasTheKeyOf2002)
{
    for (const Hive hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        addYear(hive, "Tessora", "P", "2001", "x");
        addKey(hive, "P\\CurrentVersion");
        addKey(hive, "P\\D");
        addKey(hive, "P\\InstallDefaults");
    }
    // Names sort upper-cased: "2001", "CurrentVersion", "D", "InstallDefaults".
    EXPECT_EQ(summary(scan()), "2001 True False;2002 False True;2002 False True;"
                               "2001 True False;2002 False True;2002 False True;");
    addKey(HKEY_CURRENT_USER, "P\\2002\\InstallDefaults");
    // The user's pass now meets the year key 2002 itself; the machine's stops at "CurrentVersion" as well.
    EXPECT_EQ(summary(scan()), "2001 True False;2002 False True;2001 True True;");
}

TEST_F(ListProductYearsTest, LosesAYearBehindTheStop)
{
    addKey(HKEY_CURRENT_USER, "P\\2002\\InstallDefaults");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2001", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2003", "x");
    addKey(HKEY_LOCAL_MACHINE, "P\\CurrentVersion");
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    odd->enumerate(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\P",
                   {{0, "2001"}, {0, "CurrentVersion"}, {0, "2003"}});
    platform().registry = odd;
    EXPECT_EQ(summary(scan()), "2002 False True;2001 True True;");
}

TEST_F(ListProductYearsTest, IsNotStoppedByAKeyOf2002OfTheMachine)
{
    addKey(HKEY_LOCAL_MACHINE, "P\\2002\\InstallDefaults");
    addKey(HKEY_LOCAL_MACHINE, "P\\CurrentVersion");
    EXPECT_EQ(summary(scan()), "2002 False True;2002 False True;");
}

TEST_F(ListProductYearsTest, IsNotStoppedByAUsersYear2002WithoutInstallDefaults)
{
    addKey(HKEY_CURRENT_USER, "P\\2002");
    addKey(HKEY_LOCAL_MACHINE, "P\\CurrentVersion");
    EXPECT_EQ(summary(scan()), "2002 False True;2002 False True;");
}

TEST_F(ListProductYearsTest, OpensEachGroupKeyOncePerScan)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", "2005", "x");
    ProductYears years;
    for (int n = 0; n < 10; ++n) {
        EXPECT_EQ(summary(years.ListProductYears("Tessora", "P")), "2005 True True;");
        EXPECT_EQ(years.ListProductYears("Tessora", "Q"), "");
    }
    EXPECT_EQ(openings("HKEY_LOCAL_MACHINE\\Software\\Zorvo\\Tessora"), 1U);
    EXPECT_EQ(openings("HKEY_CURRENT_USER\\Software\\Zorvo\\Tessora"), 1U);
}

TEST_F(ListProductYearsTest, CostsOneOpeningPerYearAndTwoPerProduct)
{
    for (int year = 2001; year <= 2040; ++year) {
        if (year != 2002)
            addYear(HKEY_LOCAL_MACHINE, "Tessora", "P", std::to_string(year), "x");
    }
    scan();
    EXPECT_EQ(fakes.registry->opened.size(), 2U + 2U + 39U);
}

TEST_F(LibraryTableTest, IsSetUpByTheFirstScanOfAnyProduct)
{
    EXPECT_FALSE(table.bSWDInstalledInit);
    scan();
    EXPECT_TRUE(table.bSWDInstalledInit);
    EXPECT_EQ(table.SWDInstalledCount, 0);
    EXPECT_EQ(table.SWDInstalledYears.size(), 2U);
    EXPECT_EQ(table.SWDInstalledProducts.size(), 2U);
}

TEST_F(LibraryTableTest, HoldsTheYearsOfTheThreeLibrariesOnly)
{
    for (const char* product :
         {"SablewoodLibrary", "SablewoodGovernment", "SablewoodNonprofit", "SablewoodOther", "P"}) {
        addYear(HKEY_LOCAL_MACHINE, "Tessora", product, "2005", "x");
        scan(product);
    }
    EXPECT_EQ(rows(), "SablewoodLibrary:2005;SablewoodGovernment:2005;SablewoodNonprofit:2005;");
    EXPECT_EQ(table.SWDInstalledYears.size(), 5U);
}

TEST_F(LibraryTableTest, TellsALibraryByItsKeyToTheLetter)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "sablewoodlibrary", "2005", "x");
    scan("sablewoodlibrary");
    EXPECT_EQ(rows(), "");
}

TEST_F(LibraryTableTest, HoldsAYearThatIsNotNumericAllTheSame)
{
    addKey(HKEY_LOCAL_MACHINE, "SablewoodLibrary\\20071101");
    addKey(HKEY_LOCAL_MACHINE, "SablewoodLibrary\\Beta");
    EXPECT_EQ(summary(scan("SablewoodLibrary")), "20071101 False True;");
    EXPECT_EQ(rows(), "SablewoodLibrary:20071101;SablewoodLibrary:Beta;");
}

TEST_F(LibraryTableTest, HasAnEmptyRowForAMarkOf2002)
{
    addKey(HKEY_LOCAL_MACHINE, "SablewoodLibrary\\2001");
    addKey(HKEY_LOCAL_MACHINE, "SablewoodLibrary\\CurrentVersion");
    addKey(HKEY_LOCAL_MACHINE, "SablewoodLibrary\\Z");
    scan("SablewoodLibrary");
    EXPECT_EQ(rows(), "SablewoodLibrary:2001;:;SablewoodLibrary:Z;");
}

TEST_F(LibraryTableTest, HasNoRowForTheMarkThatStopsTheCollecting)
{
    addKey(HKEY_CURRENT_USER, "SablewoodLibrary\\2002\\InstallDefaults");
    addKey(HKEY_LOCAL_MACHINE, "SablewoodLibrary\\2001");
    addKey(HKEY_LOCAL_MACHINE, "SablewoodLibrary\\CurrentVersion");
    scan("SablewoodLibrary");
    EXPECT_EQ(rows(), "SablewoodLibrary:2002;SablewoodLibrary:2001;");
}

TEST_F(LibraryTableTest, RepeatsItsRowsWithEachScan)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "SablewoodLibrary", "2005", "x");
    scan("SablewoodLibrary");
    scan("SablewoodLibrary");
    EXPECT_EQ(rows(), "SablewoodLibrary:2005;SablewoodLibrary:2005;");
}

TEST_F(LibraryTableTest, OverflowsPastSixteenBits)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "SablewoodLibrary", "2005", "x");
    table.setUp();
    table.SWDInstalledYears.resize(32768);
    table.SWDInstalledProducts.resize(32768);
    table.SWDInstalledCount = 32766;
    scan("SablewoodLibrary");
    EXPECT_EQ(table.SWDInstalledCount, std::numeric_limits<std::int16_t>::max());
    EXPECT_EQ(numberOfFailure([&] { scan("SablewoodLibrary"); }), kOverflow);
}
