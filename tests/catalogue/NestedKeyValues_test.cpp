#include "base/RunTimeError.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/OddRegistry.h"

#include <limits>

using namespace zorvo;
using namespace std::string_literals;

namespace {

using Texts = std::vector<std::string>;

class nGetNestedKeyValuesTest : public CatalogueTest {
protected:
    void addDefaults(const std::string& sPath, const std::string& sAppPath)
    {
        fakes.registry->setText(HKEY_LOCAL_MACHINE, sPath + "\\InstallDefaults", "AppPath2", sAppPath);
    }

    std::int32_t walk(const std::string& pKey)
    {
        return status.nGetNestedKeyValues(pKey, "InstallDefaults", "AppPath2", found, nCount);
    }

    Texts found;
    std::int32_t nCount = 0;
};

} // namespace

TEST_F(nGetNestedKeyValuesTest, FindsKeysOfTheNameAtAnyDepthDepthFirst)
{
    addDefaults("R\\b", "second");
    addDefaults("R\\a\\deep\\deeper", "first");
    addDefaults("R\\c", "third");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(nCount, 3);
    EXPECT_EQ(found, (Texts{"", "first", "second", "third"}));
}

TEST_F(nGetNestedKeyValuesTest, GivesMinusOneWhenTheHiveNameIsNotInTheTable)
{
    addDefaults("R", "x");
    for (const char* key : {"HKLM\\R", "hkey_local_machine\\R", "NOTHING\\R", "\\R"})
        EXPECT_EQ(walk(key), -1) << key;
    EXPECT_EQ(found, Texts{});
    EXPECT_EQ(nCount, 0);
}

TEST_F(nGetNestedKeyValuesTest, GivesMinusOneWhenTheStartingKeyCannotBeOpened)
{
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), -1);
    addDefaults("R", "x");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R\\"), -1);
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\\\R"), -1);
    EXPECT_EQ(nCount, 0);
}

TEST_F(nGetNestedKeyValuesTest, FailsForAKeyWithoutABackslash)
{
    EXPECT_EQ(numberOfFailure([&] { walk("HKEY_LOCAL_MACHINE"); }), kInvalidCall);
}

TEST_F(nGetNestedKeyValuesTest, DoesNotTestTheStartingKeyItself)
{
    addDefaults("R", "outer");
    addDefaults("R\\InstallDefaults\\sub", "inner");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R\\InstallDefaults"), 259);
    EXPECT_EQ(found, (Texts{"", "inner"}));
}

TEST_F(nGetNestedKeyValuesTest, DoesNotDescendIntoAKeyFoundByItsName)
{
    addDefaults("R", "outer");
    addDefaults("R\\InstallDefaults\\sub", "inner");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "outer"}));
}

TEST_F(nGetNestedKeyValuesTest, ComparesTheNameExactlyAndDescendsIntoANameOfOtherCase)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "R\\installdefaults", "AppPath2", "no");
    addDefaults("R\\installdefaults", "yes");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "yes"}));
}

TEST_F(nGetNestedKeyValuesTest, AddsNothingForAKeyWithoutTheValue)
{
    addDefaults("R\\a", "one");
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "R\\b\\InstallDefaults", "Other", "no");
    addDefaults("R\\c", "two");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(nCount, 2);
    EXPECT_EQ(found, (Texts{"", "one", "two"}));
}

TEST_F(nGetNestedKeyValuesTest, AddsNothingForAFoundKeyThatCannotBeOpened)
{
    addDefaults("R\\a", "one");
    addDefaults("R\\b", "two");
    fakes.registry->failOn(HKEY_LOCAL_MACHINE, "R\\a\\InstallDefaults", kRegistryAccessDenied);
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "two"}));
}

TEST_F(nGetNestedKeyValuesTest, IgnoresABranchThatCannotBeOpened)
{
    addDefaults("R\\a", "one");
    addDefaults("R\\b", "two");
    fakes.registry->failOn(HKEY_LOCAL_MACHINE, "R\\a", kRegistryAccessDenied);
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "two"}));
}

TEST_F(nGetNestedKeyValuesTest, LeavesTheArrayAsItWasForAKeyWithoutSubKeys)
{
    fakes.registry->addKey(HKEY_LOCAL_MACHINE, "R");
    found = {"", "kept"};
    nCount = 1;
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "kept"}));
    EXPECT_EQ(nCount, 1);
}

TEST_F(nGetNestedKeyValuesTest, GoesOnWhereAFirstCallStopped)
{
    addDefaults("R1\\b", "one");
    addDefaults("R2\\a", "two");
    walk("HKEY_LOCAL_MACHINE\\R1");
    walk("HKEY_LOCAL_MACHINE\\R2");
    EXPECT_EQ(found, (Texts{"", "one", "two"}));
    EXPECT_EQ(nCount, 2);
}

TEST_F(nGetNestedKeyValuesTest, EndsTheArrayAtTheCountWhateverWasGiven)
{
    addDefaults("R\\a", "new");
    found = {"", "1", "2", "3", "4"};
    nCount = 1;
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(found, (Texts{"", "1", "new"}));
    found.clear();
    nCount = 2;
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(found, (Texts{"", "", "", "new"}));
}

TEST_F(nGetNestedKeyValuesTest, FailsForACountThatNoArrayCanFollow)
{
    addDefaults("R\\a", "new");
    for (const std::int32_t nGiven : {-2, std::numeric_limits<std::int32_t>::min(),
                                      std::numeric_limits<std::int32_t>::max(), 100'000'000}) {
        nCount = nGiven;
        EXPECT_EQ(numberOfFailure([&] { walk("HKEY_LOCAL_MACHINE\\R"); }), kIndexOutOfRange) << nGiven;
        EXPECT_EQ(nCount, nGiven);
    }
    nCount = -1;
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(found, Texts{"new"});
}

TEST_F(nGetNestedKeyValuesTest, TakesAValueOf2048BytesWithItsTerminatorAndNoLonger)
{
    addDefaults("R\\a", std::string(2047, 'x'));
    addDefaults("R\\b", std::string(2048, 'y'));
    walk("HKEY_LOCAL_MACHINE\\R");
    ASSERT_EQ(nCount, 1);
    EXPECT_EQ(found[1], std::string(2047, 'x'));
}

TEST_F(nGetNestedKeyValuesTest, CutsTheValueAtItsFirstZeroAndKeepsItsBlanks)
{
    fakes.registry->setBytes(HKEY_LOCAL_MACHINE, "R\\a\\InstallDefaults", "AppPath2",
                             RegistryType::multiString, " C:\\a \0C:\\b\0\0"s);
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(found, (Texts{"", " C:\\a "}));
}

TEST_F(nGetNestedKeyValuesTest, CountsAnEmptyValue)
{
    addDefaults("R\\a", "");
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(nCount, 1);
    EXPECT_EQ(found, (Texts{"", ""}));
}

TEST_F(nGetNestedKeyValuesTest, ReadsAnExpandableTextAsItStands)
{
    fakes.registry->setBytes(HKEY_LOCAL_MACHINE, "R\\a\\InstallDefaults", "AppPath2",
                             RegistryType::expandString, "%ProgramFiles%\\x\0"s);
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(found, (Texts{"", "%ProgramFiles%\\x"}));
}

TEST_F(nGetNestedKeyValuesTest, PassesOverANameThatDoesNotFitAndGoesOn)
{
    addDefaults("R\\" + std::string(2048, 'a'), "lost");
    addDefaults("R\\" + std::string(2047, 'b'), "kept");
    addDefaults("R\\c", "after");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "kept", "after"}));
}

TEST_F(nGetNestedKeyValuesTest, EndsALevelAtTheEndOfTheEntriesOnly)
{
    addDefaults("R\\a", "one");
    addDefaults("R\\b", "two");
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    odd->enumerate(HKEY_LOCAL_MACHINE, "R",
                   {{kRegistryBusy, "b"}, {kRegistrySuccess, "a"}, {kRegistryAccessDenied, ""}, {0, "b"}});
    platform().registry = odd;
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "one", "two"}));
}

TEST_F(nGetNestedKeyValuesTest, LeavesALevelThatFailsForEver)
{
    addDefaults("R\\a", "lost");
    addDefaults("R\\b\\c", "kept");
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    odd->enumerate(HKEY_LOCAL_MACHINE, "R\\a",
                   std::vector<OddRegistry::Entry>(1'000'000, {kRegistryCorrupt, ""}));
    platform().registry = odd;
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\R"), 259);
    EXPECT_EQ(found, (Texts{"", "kept"}));
    EXPECT_LT(odd->nEnumerations, 2000U);
}

TEST_F(nGetNestedKeyValuesTest, GoesOnBehindAnyNumberOfNamesThatDoNotFit)
{
    addDefaults("R\\a", "kept");
    std::vector<OddRegistry::Entry> entries(5000, {kRegistryMoreData, ""});
    entries.push_back({kRegistrySuccess, "a"});
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    odd->enumerate(HKEY_LOCAL_MACHINE, "R", entries);
    platform().registry = odd;
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(found, (Texts{"", "kept"}));
}

TEST_F(nGetNestedKeyValuesTest, OpensEveryKeyWithReadAccess)
{
    addDefaults("R\\a", "one");
    const auto odd = std::make_shared<OddRegistry>(fakes.registry);
    platform().registry = odd;
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(odd->accesses, (std::vector<std::uint32_t>{25, 25, 25}));
}

TEST_F(nGetNestedKeyValuesTest, FindsNothingBelowABareHive)
{
    // Below the empty path every child has an empty level in front.
    addDefaults("R", "x");
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "InstallDefaults", "AppPath2", "y");
    EXPECT_EQ(walk("HKEY_LOCAL_MACHINE\\"), 259);
    EXPECT_EQ(nCount, 0);
}

TEST_F(nGetNestedKeyValuesTest, FindsNothingForAnEmptySearchKey)
{
    addDefaults("R\\a", "x");
    EXPECT_EQ(status.nGetNestedKeyValues("HKEY_LOCAL_MACHINE\\R", "", "AppPath2", found, nCount), 259);
    EXPECT_EQ(nCount, 0);
}

TEST_F(nGetNestedKeyValuesTest, TakesOneListingPerKey)
{
    for (int n = 0; n < 100; ++n)
        addDefaults("R\\p" + std::to_string(n), "x");
    walk("HKEY_LOCAL_MACHINE\\R");
    EXPECT_EQ(nCount, 100);
    EXPECT_EQ(fakes.registry->listingsTaken, 101U);
}
