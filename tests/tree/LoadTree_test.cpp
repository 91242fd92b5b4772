#include "tree/LoadTree.h"

#include "tests/tree/LoadTreeTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(LoadTreeTest, BuildsGroupsProductsFoldersAndDocuments)
{
    setStatus(group("Outer", group("Inner", entry({.sKey = "AB"})) + entry({.sKey = "CD"})));
    setLibrary(product("AB", "2007", "{P1}", "Product AB", document("{D1}", "Doc", "a.dot")) +
               product("CD", "2007", "{P2}", "Product CD",
                       folder("{F1}", "Chapter", document("{D2}", "Sheet", "b.xlt"))));
    load();
    EXPECT_THAT(lines(),
                ElementsAre("Outer|Outer|1", "  Inner|Inner|1", "    {P1}|Product AB|1", "      {D1}|Doc|3",
                            "  {P2}|Product CD|1", "    {F1}|Chapter|2", "      {D2}|Sheet|3"));
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(LoadTreeTest, PutsNestedGroupsAheadOfTheGroupsOwnProducts)
{
    setStatus(group("Outer", entry({.sKey = "CD"}) + group("Inner", entry({.sKey = "AB"}))));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("CD", "2007", "{P2}", "CD", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("Outer", "Inner", "{P1}", "{D1}", "{P2}", "{D2}"));
}

TEST_F(LoadTreeTest, ExpandsGroupsAndLeavesProductsClosed)
{
    setStatus(group("Outer", group("Inner", entry({.sKey = "AB"}))));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_TRUE(node("Outer").expanded());
    EXPECT_TRUE(node("Inner").expanded());
    EXPECT_FALSE(node("{P1}").expanded());
}

TEST_F(LoadTreeTest, ShowsTheIconsOfGroupsAndProducts)
{
    addIcon("Outer16.ico");
    addIcon("Product16.ico");
    setStatus(group("Outer", entry({.sKey = "AB"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_EQ(node("Outer").image(), tree.images().indexOf("Outer16.ico"));
    EXPECT_EQ(node("{P1}").image(), tree.images().indexOf("Product16.ico"));
    EXPECT_NE(node("Outer").image(), -1);
    EXPECT_NE(node("{P1}").image(), -1);
}

TEST_F(LoadTreeTest, ClearsTheOldNodesAndKeepsTheListBarOnASecondLoad)
{
    setStatus(group("G", entry({.sKey = "AB"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    load();
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
    EXPECT_EQ(listBar.count(), 2);
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(LoadTreeTest, ParsesTheCentralCatalogueOncePerProcess)
{
    setStatus(group("G", entry({.sKey = "AB"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    load();
    load();
    EXPECT_EQ(readsOf(sCentral), 1);
    ReleaseCatalogDocuments();
    EXPECT_EQ(treeState().objLibraryDoc, nullptr);
    EXPECT_EQ(treeState().objStatusDoc, nullptr);
    load();
    EXPECT_EQ(readsOf(sCentral), 2);
}

TEST_F(LoadTreeTest, MakesTheStatusDocumentOfTheMachineOnce)
{
    fakes.files->addFile(
        "C:\\Zorvo\\TreeData\\TreeOrder.xml",
        "<ZorvoTree Version='1'><ProductTreeGroup TreeTitle='G' TreeTitleShort='G' IconLarge='' IconSmall=''>"
        "<Acronymn>AB</Acronymn></ProductTreeGroup></ZorvoTree>");
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\AB\\2007\\InstallDefaults",
                            "AppPath2", "C:\\T\\AB");
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    fakes.files->addFolder("C:\\T\\AB");
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
    const auto status = treeState().objStatusDoc;
    load();
    EXPECT_EQ(treeState().objStatusDoc, status);
}

TEST_F(LoadTreeTest, TakesInstalledWhateverItsCase)
{
    setStatus(group("G", entry({.sKey = "AB", .sInstalled = "tRUE"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_NE(tree.find("{P1}"), nullptr);
}

TEST_F(LoadTreeTest, NeverLooksUpAnEntryThatIsNotInstalled)
{
    setStatus(group("G", entry({.sKey = "AB", .sInstalled = "False"}) +
                             entry({.sKey = "CD", .sInstalled = " True"}) + entry({.sKey = "EF"})));
    setLibrary(product("EF", "2007", "{P1}", "EF", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(LoadTreeTest, TellsEachProductThatTheCatalogueLacksAndGoesOn)
{
    setStatus(group("G", entry({.sKey = "AB"}) + entry({.sKey = "CD", .sVersion = "2008"}) +
                             entry({.sKey = "EF"})));
    setLibrary(product("EF", "2007", "{P1}", "EF", document("{D1}", "Doc", "a.dot")));
    load();
    ASSERT_EQ(messages.boxes.size(), 2U);
    EXPECT_EQ(
        messages.boxes[0].sPrompt,
        "The 'C:\\Zorvo\\TreeData\\Zorvo Library.xml' does not contain the product 'AB' for the year 2007. "
        "Please correct before this product is released.");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgCritical);
    EXPECT_EQ(
        messages.boxes[1].sPrompt,
        "The 'C:\\Zorvo\\TreeData\\Zorvo Library.xml' does not contain the product 'CD' for the year 2008. "
        "Please correct before this product is released.");
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(LoadTreeTest, TellsEachInstalledProductWhenTheCatalogueFileIsMissing)
{
    setStatus(group("G", entry({.sKey = "AB"}) + entry({.sKey = "CD"})));
    load();
    EXPECT_EQ(messages.boxes.size(), 2U);
    EXPECT_EQ(tree.count(), 0);
}

TEST_F(LoadTreeTest, TakesAMalformedCatalogueFileForAnEmptyOne)
{
    fakes.files->addFile(sCentral, "<Library><Product");
    setStatus(group("G", entry({.sKey = "AB"})));
    load();
    EXPECT_EQ(messages.boxes.size(), 1U);
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(LoadTreeTest, PrefersAProductsOwnCatalogueAndTiesItsNodesToIt)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T\\AB\\"})));
    setLibrary(product("AB", "2007", "{P1}", "Central", document("{D1}", "Doc", "a.dot")));
    setOwnLibrary("C:\\T\\AB\\", product("AB", "2007", "{P1}", "Own",
                                         folder("{F1}", "Chapter", document("{D1}", "Own doc", "a.dot"))));
    load();
    EXPECT_THAT(lines(), ElementsAre("G|G|1", "  {P1}`C:\\T\\AB\\Zorvo Library.xml|Own|1",
                                     "    {F1}`C:\\T\\AB\\Zorvo Library.xml|Chapter|2",
                                     "      {D1}`C:\\T\\AB\\Zorvo Library.xml|Own doc|3"));
}

TEST_F(LoadTreeTest, ParsesAProductsOwnCatalogueAnewOnEachLoad)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T\\AB\\"})));
    setOwnLibrary("C:\\T\\AB\\", product("AB", "2007", "{P1}", "Own", document("{D1}", "Doc", "a.dot")));
    load();
    load();
    EXPECT_EQ(readsOf("C:\\T\\AB\\Zorvo Library.xml"), 2);
}

TEST_F(LoadTreeTest, JoinsTheTemplatePathAndTheCatalogueNameAsTheyStand)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T\\AB"})));
    setLibrary(product("AB", "2007", "{P1}", "Central", document("{D1}", "Doc", "a.dot")));
    setOwnLibrary("C:\\T\\AB\\", product("AB", "2007", "{P1}", "Own", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_NE(tree.find("{P1}"), nullptr);
}

TEST_F(LoadTreeTest, NamesTheCentralCatalogueEvenWhenTheOwnOneLacksTheProduct)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T\\AB\\"})));
    setLibrary(product("AB", "2007", "{P1}", "Central", document("{D1}", "Doc", "a.dot")));
    setOwnLibrary("C:\\T\\AB\\", product("AB", "2006", "{P1}", "Own", document("{D1}", "Doc", "a.dot")));
    load();
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_THAT(messages.boxes[0].sPrompt,
                testing::StartsWith("The 'C:\\Zorvo\\TreeData\\Zorvo Library.xml' does"));
    EXPECT_EQ(tree.count(), 0);
}

TEST_F(LoadTreeTest, TellsTheProductOfAMalformedOwnCatalogueAndNeverAsksTheCentralOne)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T\\AB\\"})));
    setLibrary(product("AB", "2007", "{P1}", "Central", document("{D1}", "Doc", "a.dot")));
    fakes.files->addFile("C:\\T\\AB\\Zorvo Library.xml", "<Library><Product");
    load();
    EXPECT_EQ(messages.boxes.size(), 1U);
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_EQ(tree.count(), 0);
}

TEST_F(LoadTreeTest, EndsTheLevelAtAnEntryThatLacksAnElement)
{
    setStatus(group("G", entry({.sKey = "AB"}) + "<ProductRegistryNode Version='2007' Installed='True'/>" +
                             entry({.sKey = "CD"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("CD", "2007", "{P2}", "CD", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadProductGroups"));
    EXPECT_EQ(listBar.item(2).sKey, "Zorvonet");
}

TEST_F(LoadTreeTest, MakesANodeOfEachProductThatTheLookUpFinds)
{
    setStatus(group("G", entry({.sKey = "AB"})));
    setLibrary(product("AB", "2007", "{P1}", "One", document("{D1}", "Doc", "a.dot")) +
               product("AB", "2007", "{P2}", "Two", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}", "{P2}", "{D2}"));
}

TEST_F(LoadTreeTest, LabelsProductsOfAYearGroupWithTheirYear)
{
    setStatus(group("Quillbook", entry({.sKey = "AB"}) + entry({.sKey = "CD", .sVersion = "20071101"})));
    setLibrary(product("AB", "2007", "{P1}", "Alpha", document("{D1}", "Doc", "a.dot")) +
               product("CD", "20071101", "{P2}", "Beta", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_EQ(node("{P1}").text(), "Alpha 2007");
    EXPECT_EQ(node("{P2}").text(), "Beta (11/07)");
}

TEST_F(LoadTreeTest, LabelsEvaluationEditionsInEveryGroup)
{
    setStatus(group("Tessora", entry({.sKey = "AB"}) + entry({.sKey = "CD"})));
    setLibrary(product("AB", "2007", "{P1}", "Alpha eVALUATION copy", document("{D1}", "Doc", "a.dot")) +
               product("CD", "2007", "{P2}", "Beta", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_EQ(node("{P1}").text(), "Alpha eVALUATION copy 2007");
    EXPECT_EQ(node("{P2}").text(), "Beta");
}

TEST_F(LoadTreeTest, TrimsTheTextsOfTheStatusDocument)
{
    setStatus(group("G", entry({.sKey = " AB ", .sVersion = " 2007 ", .sTemplatePath = " C:\\T\\AB\\ "})));
    setOwnLibrary("C:\\T\\AB\\", product("AB", "2007", " {P1}", "Own", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_NE(tree.find(" {P1}`C:\\T\\AB\\Zorvo Library.xml"), nullptr)
        << "a catalogue's Guid is as it stands";
}

TEST_F(LoadTreeTest, PrunesProductsWithoutContentAndTheGroupsThatBecomeEmpty)
{
    setStatus(group("Outer", group("Inner", entry({.sKey = "AB"}))) + group("Kept", entry({.sKey = "CD"})) +
              group("Bare", ""));
    setLibrary(product("AB", "2007", "{P1}", "AB", "") +
               product("CD", "2007", "{P2}", "CD", folder("{F1}", "F", "")));
    load();
    EXPECT_THAT(keys(), ElementsAre("Kept", "{P2}", "{F1}"));
}

TEST_F(LoadTreeTest, EndsAtAGroupTitleMetTwiceAndStillPrunesAndAddsTheWebGroup)
{
    setStatus(group("G", entry({.sKey = "AB"})) + group("Empty", "") + group("G", "") + group("After", ""));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadProductGroups"));
    EXPECT_EQ(messages.reports[0].nNumber, kKeyAlreadyUsed);
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
    // The list bar refuses the second key of that name ahead of the tree.
    ASSERT_EQ(listBar.count(), 3);
    EXPECT_EQ(listBar.item(3).sKey, "Zorvonet");
}

TEST_F(LoadTreeTest, EndsOnlyTheLevelOfANestedGroupTitleMetTwice)
{
    setStatus(group("G", group("Inner", "") + group("Inner", "") + entry({.sKey = "AB"})) +
              group("After", entry({.sKey = "CD"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("CD", "2007", "{P2}", "CD", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadProductGroups"));
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}", "After", "{P2}", "{D2}"));
}

TEST_F(LoadTreeTest, EndsAtAProductGuidMetTwice)
{
    setStatus(group("G", entry({.sKey = "AB"}) + entry({.sKey = "AB"}) + entry({.sKey = "CD"})) +
              group("After", ""));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("CD", "2007", "{P2}", "CD", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadProductGroups"));
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
}

TEST_F(LoadTreeTest, EndsAtAProductWithoutNameOrGuid)
{
    setStatus(group("G", entry({.sKey = "AB"}) + entry({.sKey = "CD"})));
    setLibrary("<Product Acronym='AB' Year='2007' Guid='{P1}'/>" +
               product("CD", "2007", "{P2}", "CD", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadProductGroups"));
    EXPECT_EQ(tree.count(), 0);

    setLibrary("<Product Acronym='AB' Year='2007'><Name>AB</Name></Product>");
    treeState().objLibraryDoc.reset();
    load();
    EXPECT_THAT(messages.tags(),
                ElementsAre("TreeSupport.LoadProductGroups", "TreeSupport.LoadProductGroups"));
    EXPECT_EQ(messages.reports[1].nNumber, kObjectNotSet);
}

TEST_F(LoadTreeTest, FailsAtAKeyThatMakesTheLookUpMalformed)
{
    setStatus(group("G", entry({.sKey = "A\"B"}) + entry({.sKey = "CD"})));
    setLibrary(product("CD", "2007", "{P2}", "CD", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadProductGroups"));
    EXPECT_EQ(messages.reports[0].nNumber, kInvalidCall);
    EXPECT_EQ(tree.count(), 0);
}

TEST_F(LoadTreeTest, TellsKeysApartByTheirCase)
{
    setStatus(group("G", entry({.sKey = "AB"})) + group("g", entry({.sKey = "CD"})));
    setLibrary(product("AB", "2007", "{p}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("CD", "2007", "{P}", "CD", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{p}", "{D1}", "g", "{P}", "{D2}"));
}

TEST_F(LoadTreeTest, ReportsAStatusDocumentThatFails)
{
    // A group of the tree order document without its titles.
    fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml",
                         "<ZorvoTree Version='1'><ProductTreeGroup/></ZorvoTree>");
    load();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadTree"));
    EXPECT_FALSE(treeState().bListBarLoaded);
}

TEST_F(LoadTreeTest, SurvivesTheWindowsEndWhileABoxIsUp)
{
    setStatus(group("G", entry({.sKey = "AB"}) + entry({.sKey = "CD"})));
    setLibrary(product("CD", "2007", "{P2}", "CD", document("{D2}", "Doc", "a.dot")));
    messages.whileBoxIsUp = [] { ReleaseCatalogDocuments(); };
    load();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadProductGroups"));
}

TEST_F(LoadTreeTest, TellsItsProgressEntryByEntryOverAllGroups)
{
    setStatus("<ProductGroup><Title>G</Title><TitleShort/><IconLarge/><IconSmall/>" +
              group("N", entry({.sKey = "AB"}) + entry({.sKey = "XX", .sInstalled = "False"})) +
              entry({.sKey = "CD"}) + "</ProductGroup>" + group("H", entry({.sKey = "EF"})));
    setLibrary(product("AB", "2007", "{P}", "AB", document("{D}", "Doc", "a.dot")) +
               product("CD", "2007", "{Q}", "CD", document("{E}", "Doc", "a.dot")) +
               product("EF", "2007", "{R}", "EF", document("{F}", "Doc", "a.dot")));
    std::vector<std::string> told;
    treeState().progress = [&](int nDone, int nTotal) {
        std::string sLine = std::to_string(nDone);
        sLine.append("/").append(std::to_string(nTotal)).append(" ").append(std::to_string(tree.count()));
        told.push_back(sLine);
    };
    load();
    EXPECT_THAT(told, ElementsAre("1/4 4", "2/4 4", "3/4 6", "4/4 9"))
        << "each is told behind its nodes: group, nested group, product, document and so on";
}

TEST_F(LoadTreeTest, TellsNoProgressWhenNobodyAsks)
{
    setStatus(group("G", entry({.sKey = "AB"})));
    setLibrary(product("AB", "2007", "{P}", "AB", document("{D}", "Doc", "a.dot")));
    load();
    EXPECT_EQ(tree.count(), 3);
}

} // namespace
} // namespace zorvo
