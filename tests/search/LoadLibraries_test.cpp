#include "search/SWDSearchSupport.h"

#include "branding/companyIdentity.h"
#include "catalogue/catalogueState.h"
#include "search/searchState.h"
#include "tests/search/SearchTest.h"
#include "window/messageBox.h"

#include <set>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::SizeIs;

/// LoadLibraries with a year, an index text and answers of GetQBKInfo, without any machine.
class LoadLibrariesTest : public SearchTest {
protected:
    /// "ID version" of an edition that is there, in the machine's hive.
    void provide(const std::string& sEdition) { installed_.insert(sEdition); }

    void load(const std::string& sIndex, int nYear = 2010)
    {
        LibrarySources sources;
        sources.nYear = nYear;
        sources.index.loadXML(sIndex);
        sources.GetQBKInfo = [this](const std::string& sID, const std::string& sGroup,
                                    const std::string& sVersion, bool& bInstalled, std::string& sPath,
                                    Hive hHive) {
            const std::string sHive = hHive == HKEY_CURRENT_USER ? " user" : "";
            asked.push_back(sGroup + " " + sID + " " + sVersion + sHive);
            bInstalled = installed_.count(sID + " " + sVersion + sHive) > 0;
            sPath = bInstalled ? "C:\\" + sID + "\\" + sVersion : "";
        };
        LoadLibrariesFrom(sources, list, nCount, bFound, bCheckOnly);
    }

    void know(const std::string& sVersion, const std::string& sProduct)
    {
        SwdInstalledTable& table = catalogueState().swdInstalled;
        table.setUp();
        table.writeRow(sVersion, sProduct);
        table.closeRow();
    }

    static std::string threeEditions()
    {
        return indexText(productText("One", "A") + productText("Two", "B") + productText("Three", "C"));
    }

    std::vector<std::string> asked;
    std::vector<std::string> list;
    std::int16_t nCount = 0;
    bool bFound = false;
    bool bCheckOnly = false;

private:
    std::set<std::string> installed_;
};

TEST_F(LoadLibrariesTest, StoresEachEditionTrimmedInTheOrderOfTheIndex)
{
    load(indexText(productText("One", "A") + productText("Two", "B")), 2001);
    const SearchState& state = searchState();
    EXPECT_EQ(state.nSWDCount, 2);
    EXPECT_THAT(state.sSWDName, ElementsAre("One", "Two", ""));
    EXPECT_THAT(state.sSWDID, ElementsAre("A", "B", ""));
    EXPECT_THAT(state.sSWDTitle, ElementsAre("Title of One", "Title of Two", ""));
    EXPECT_THAT(state.sSWDRdfExt, ElementsAre("rtf", "rtf", ""));
    EXPECT_THAT(state.sSWDTemplate, ElementsAre("dot", "dot", ""));
}

TEST_F(LoadLibrariesTest, SizesEveryTableOneLongerThanTheLibraryCount)
{
    load(threeEditions());
    EXPECT_THAT(searchState().sSWDPath, SizeIs(4));
    EXPECT_THAT(searchState().sSWDVersion, SizeIs(4));
    EXPECT_THAT(searchState().bSWDInstalled, SizeIs(4));
}

TEST_F(LoadLibrariesTest, AnotherLoadOverwritesTheTables)
{
    provide("A 2009");
    load(threeEditions());
    load(indexText(productText("Other", "D")));
    EXPECT_THAT(searchState().sSWDName, ElementsAre("Other", ""));
    EXPECT_THAT(searchState().sSWDVersion, ElementsAre("", ""));
    EXPECT_THAT(searchState().bSWDInstalled, ElementsAre(false, false));
}

TEST_F(LoadLibrariesTest, HandsTheTrimmedGroupToTheQuestion)
{
    load(indexText(productText("One", "A"), " Quillbook "), 2002);
    EXPECT_THAT(asked, ElementsAre("Quillbook A 2002"));
}

TEST_F(LoadLibrariesTest, WalksTheYearsDownTo2002With2003AtTheUser)
{
    load(indexText(productText("One", "A")), 2005);
    EXPECT_THAT(asked, ElementsAre("Quillbook A 2005", "Quillbook A 2004", "Quillbook A 2003 user",
                                   "Quillbook A 2002"));
    EXPECT_FALSE(bFound);
    EXPECT_EQ(nCount, 0);
}

TEST_F(LoadLibrariesTest, FindsTheCurrentYearMinusTwoOnTheThirdYear)
{
    provide("A 2008");
    provide("A 2007");
    load(indexText(productText("One", "A")), 2010);
    EXPECT_THAT(asked, ElementsAre("Quillbook A 2010", "Quillbook A 2009", "Quillbook A 2008"));
    EXPECT_EQ(searchState().sSWDVersion[0], "2008");
    EXPECT_EQ(searchState().sSWDPath[0], "C:\\A\\2008");
}

TEST_F(LoadLibrariesTest, Finds2003OnlyInTheUsersHive)
{
    provide("A 2003 user");
    load(indexText(productText("One", "A")), 2004);
    EXPECT_EQ(searchState().sSWDVersion[0], "2003");
}

TEST_F(LoadLibrariesTest, ListsTwoInstalledEditionsWithBlankAndYearInIndexOrder)
{
    provide("A 2007");
    provide("C 2006");
    load(threeEditions());
    EXPECT_TRUE(bFound);
    EXPECT_EQ(nCount, 2);
    EXPECT_THAT(list, ElementsAre("One 2007", "Three 2006"));
    EXPECT_THAT(searchState().bSWDInstalled, ElementsAre(true, false, true, false));
}

TEST_F(LoadLibrariesTest, TheCountIsOfThisLoadAlone)
{
    nCount = 7;
    provide("A 2007");
    load(threeEditions());
    EXPECT_EQ(nCount, 1);
}

TEST_F(LoadLibrariesTest, NothingInstalledLeavesFoundAsItWas)
{
    bFound = true;
    load(threeEditions());
    EXPECT_TRUE(bFound);
    EXPECT_EQ(nCount, 0);
}

TEST_F(LoadLibrariesTest, WritesIntoTheListFromItsFirstEntryOn)
{
    provide("B 2007");
    list = {"x", "y", "z"};
    load(threeEditions());
    EXPECT_THAT(list, ElementsAre("Two 2007", "y", "z"));
    EXPECT_EQ(nCount, 1);
}

TEST_F(LoadLibrariesTest, UsesAKnownVersionDirectlyInTheMachinesHive)
{
    know("11.0.2", "A");
    provide("A 11.0.2");
    provide("A 2010");
    load(indexText(productText("One", "A")));
    EXPECT_THAT(asked, ElementsAre("Quillbook A 11.0.2"));
    EXPECT_EQ(searchState().sSWDVersion[0], "11.0.2");
    EXPECT_THAT(list, ElementsAre("One 11.0.2"));
}

TEST_F(LoadLibrariesTest, DoesNotWalkTheYearsOfAKnownVersionThatIsNotInstalled)
{
    know("11.0.2", "A");
    provide("A 2010");
    load(indexText(productText("One", "A")));
    EXPECT_THAT(asked, ElementsAre("Quillbook A 11.0.2"));
    EXPECT_EQ(searchState().sSWDVersion[0], "");
    EXPECT_FALSE(bFound);
}

TEST_F(LoadLibrariesTest, IgnoresAKnownVersionOfExactlyFourCharacters)
{
    know("2009", "A");
    provide("A 2010");
    load(indexText(productText("One", "A")));
    EXPECT_THAT(asked, ElementsAre("Quillbook A 2010"));
}

TEST_F(LoadLibrariesTest, TakesTheLastOfSeveralKnownVersions)
{
    know("11.0.2", "A");
    know("11.0.3", "A");
    load(indexText(productText("One", "A")));
    EXPECT_THAT(asked, ElementsAre("Quillbook A 11.0.3"));
}

TEST_F(LoadLibrariesTest, ComparesKnownProductsToTheLetter)
{
    know("11.0.2", "a");
    load(indexText(productText("One", "A")), 2002);
    EXPECT_THAT(asked, ElementsAre("Quillbook A 2002"));
}

TEST_F(LoadLibrariesTest, KnowsEachOfTheFirstThreeEditions)
{
    know("11.0.1", "A");
    know("11.0.2", "B");
    know("11.0.3", "C");
    load(threeEditions());
    EXPECT_THAT(asked, ElementsAre("Quillbook A 11.0.1", "Quillbook B 11.0.2", "Quillbook C 11.0.3"));
}

TEST_F(LoadLibrariesTest, CountsTheCharactersOfAKnownVersionNotItsBytes)
{
    know("200\xC3\xA9", "A");
    load(indexText(productText("One", "A")), 2002);
    EXPECT_THAT(asked, ElementsAre("Quillbook A 2002"));
}

TEST_F(LoadLibrariesTest, NeverKnowsTheFourthEdition)
{
    know("11.0.2", "D");
    load(indexText(productText("One", "A") + productText("Two", "B") + productText("Three", "C") +
                   productText("Four", "D")),
         2002);
    EXPECT_THAT(asked,
                ElementsAre("Quillbook A 2002", "Quillbook B 2002", "Quillbook C 2002", "Quillbook D 2002"));
}

TEST_F(LoadLibrariesTest, AFifthEditionRunsOffTheTables)
{
    std::string sProducts;
    for (const char* id : {"A", "B", "C", "D", "E"})
        sProducts += productText(id, id);
    EXPECT_EQ(numberOfFailure([&] { load(indexText(sProducts), 2002); }), kIndexOutOfRange);
    EXPECT_THAT(asked, SizeIs(4));
}

TEST_F(LoadLibrariesTest, MoreEditionsThan16BitsCountIsAnOverflow)
{
    std::string sProducts;
    for (int i = 0; i < 32768; ++i)
        sProducts += "<Product/>";
    EXPECT_EQ(numberOfFailure([&] { load(indexText(sProducts)); }), kOverflow);
}

TEST_F(LoadLibrariesTest, CheckOnlySetsNothingButFound)
{
    bCheckOnly = true;
    provide("B 2007");
    load(threeEditions());
    EXPECT_TRUE(bFound);
    EXPECT_THAT(list, IsEmpty());
    EXPECT_EQ(nCount, 0);
}

TEST_F(LoadLibrariesTest, CheckOnlyTellsAlsoThatNothingIsThere)
{
    bCheckOnly = true;
    bFound = true;
    load(threeEditions());
    EXPECT_FALSE(bFound);
}

TEST_F(LoadLibrariesTest, AnEmptyIndexFailsAtTheGroup)
{
    EXPECT_EQ(numberOfFailure([&] { load(""); }), kObjectNotSet);
}

TEST_F(LoadLibrariesTest, AnIndexWithoutAGroupFails)
{
    EXPECT_EQ(
        numberOfFailure([&] { load("<SWDInformation>" + productText("One", "A") + "</SWDInformation>"); }),
        kObjectNotSet);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(LoadLibrariesTest, AMalformedIndexIsAsNone)
{
    EXPECT_EQ(
        numberOfFailure([&] { load("<SWDInformation group=\"Quillbook\">" + productText("One", "A")); }),
        kObjectNotSet);
}

TEST_F(LoadLibrariesTest, AnEditionWithoutAPartFails)
{
    EXPECT_EQ(numberOfFailure([&] { load(indexText("<Product><name>One</name></Product>")); }),
              kObjectNotSet);
}

TEST_F(LoadLibrariesTest, Excel8IsToldWithItsVersionAndTheListStaysEmpty)
{
    installEdition("SablewoodLibrary", "2024", "C:\\Lib");
    office->setVersions("11.0", "8.0");
    nCount = 3;
    LoadLibraries(list, nCount, bFound, false);
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt,
              "This feature requires Excel 9.0 or later. You are using Excel 8.    ");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgCritical);
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle:  Zorvo's Sablewood Library");
    EXPECT_THAT(list, IsEmpty());
    EXPECT_EQ(nCount, 0);
    EXPECT_EQ(searchState().nSWDCount, 0);
}

TEST_F(LoadLibrariesTest, Excel9IsEnough)
{
    office->setVersions("11.0", "9.0");
    EXPECT_TRUE(bExcelIsRecentEnough());
    EXPECT_THAT(messages.boxes, IsEmpty());
    office->setVersions("11.0", "8.9");
    EXPECT_FALSE(bExcelIsRecentEnough());
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(messages.boxes[0].sPrompt, EndsWith(" Excel 8.9.    "));
}

TEST_F(LoadLibrariesTest, ReleasesExcelWithoutEndingIt)
{
    EXPECT_TRUE(bExcelIsRecentEnough());
    EXPECT_THAT(office->calls(), ElementsAre("Create Excel.Application", "Excel.Version"));
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(LoadLibrariesTest, AMachineWithoutExcelFailsTheCall)
{
    office->bExcelInstalled = false;
    EXPECT_EQ(numberOfFailure([&] { LoadLibraries(list, nCount, bFound, false); }), kCannotCreateObject);
}

TEST_F(LoadLibrariesTest, ReadsIndexYearAndRegistryOfTheMachine)
{
    installEdition("SablewoodLibrary", "2024", "C:\\Lib\\2024");
    installEdition("SablewoodNonprofit", "2023", "C:\\Non\\2023");
    installEdition("SablewoodGovernment", "2025", "C:\\Gov\\2025");
    LoadLibraries(list, nCount, bFound, false);
    EXPECT_THAT(list, ElementsAre("Library 2024", "Nonprofits 2023"));
    EXPECT_EQ(searchState().sSWDPath[2], "C:\\Non\\2023");
    EXPECT_TRUE(bFound);
}

TEST_F(LoadLibrariesTest, AMissingIndexFileFailsTheCall)
{
    fakes.files->remove("C:\\Zorvo\\TreeData\\SWDXML.xml");
    EXPECT_EQ(numberOfFailure([&] { LoadLibraries(list, nCount, bFound, false); }), kObjectNotSet);
}

} // namespace
} // namespace zorvo
