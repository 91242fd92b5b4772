#include "base/RunTimeError.h"
#include "base/XmlDocument.h"
#include "base/sessionState.h"
#include "tests/catalogue/CatalogueTest.h"

using namespace zorvo;

namespace {

class sGetProductStatusXMLTest : public CatalogueTest {
protected:
    void setCompany(const std::string& sCompany) { sessionState().gsCompanyID = sCompany; }
    void addPage(const std::string& sProduct)
    {
        fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\" + sProduct + ".htm");
    }
    /// The company `OTR` has a product in group "O", nobody's group is "N".
    void setMixedTree()
    {
        setTreeOrder(treeGroup("O", "<Acronymn companyID='OTR'>A</Acronymn>") +
                     treeGroup("Z", "<Acronymn>B</Acronymn>") +
                     treeGroup("E", "<Acronymn companyID='Zorvo'>C</Acronymn>") + treeGroup("N", ""));
    }
};

constexpr std::int16_t kTrue = -1;

} // namespace

TEST_F(sGetProductStatusXMLTest, IsAnEmptyRootWithoutATreeOrderFile)
{
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
}

TEST_F(sGetProductStatusXMLTest, IsAnEmptyRootWhenTheTreeOrderIsNotWellFormed)
{
    fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml", "<ZorvoTree Version='1'><ProductTreeGroup>");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
}

TEST_F(sGetProductStatusXMLTest, IsAnEmptyRootWhenTheTreeOrderFileCannotBeRead)
{
    setTreeOrder(treeGroup("G", "<Acronymn>P</Acronymn>"));
    fakes.files->failOn(FakeFiles::Operation::read, "C:\\Zorvo\\TreeData\\TreeOrder.xml", kPermissionDenied);
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
}

TEST_F(sGetProductStatusXMLTest, SelectsGroupsBelowARootOfTheRightNameOnly)
{
    fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml",
                         "<Tree Version='1'>" + treeGroup("G", "<Acronymn>P</Acronymn>") + "</Tree>");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
}

TEST_F(sGetProductStatusXMLTest, KeepsAGroupWithNoProductOnTheMachine)
{
    setTreeOrder(treeGroup("G", "<Acronymn>P</Acronymn>"));
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("G", "")));
}

TEST_F(sGetProductStatusXMLTest, KeepsAGroupWithNoOfflinePageInTheAllOfferingsMode)
{
    setTreeOrder(treeGroup("G", "<Acronymn>P</Acronymn>"));
    EXPECT_EQ(status.sGetProductStatusXML(0, kTrue), statusDocument(statusGroup("G", "")));
}

TEST_F(sGetProductStatusXMLTest, ListsTessoraAndThenQuillbookForEachProduct)
{
    setTreeOrder(treeGroup("G", "<Acronymn>B</Acronymn><Acronymn>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "A", "2005", "C:\\qa");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "C:\\ta");
    addYear(HKEY_CURRENT_USER, "Quillbook", "A", "2005", "C:\\ua");
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "B", "2005", "C:\\qb");
    EXPECT_EQ(status.sGetProductStatusXML(),
              statusDocument(
                  statusGroup("G", statusNode({.sVersion = "2005", .sKey = "B", .sPath = "C:\\qb"}) +
                                       statusNode({.sVersion = "2005", .sKey = "A", .sPath = "C:\\ta"}) +
                                       statusNode({.sVersion = "2005", .sKey = "A", .sPath = "C:\\ua"}) +
                                       statusNode({.sVersion = "2005", .sKey = "A", .sPath = "C:\\qa"}))));
}

TEST_F(sGetProductStatusXMLTest, LooksUpTheTessoraNodeFirstForAKeyOfBothGroups)
{
    setTreeOrder(treeGroup("G", "<Acronymn>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "A", "2005", "C:\\q");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "C:\\t");
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(status.sGetProductStatusXML()));
    EXPECT_EQ(
        document.selectSingleNode("//ProductRegistryNode[@Version=\"2005\" and child::ProductKey=\"A\"]")
            .childText("TemplatePath"),
        "C:\\t");
}

TEST_F(sGetProductStatusXMLTest, LeavesQuillbookOutForAnyOtherFlagThanZero)
{
    setTreeOrder(treeGroup("G", "<Acronymn>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "A", "2005", "C:\\q");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2006", "C:\\t");
    for (const std::int16_t bNoctaOnly : {std::int16_t(-1), std::int16_t(1), std::int16_t(256)}) {
        EXPECT_EQ(status.sGetProductStatusXML(bNoctaOnly),
                  statusDocument(
                      statusGroup("G", statusNode({.sVersion = "2006", .sKey = "A", .sPath = "C:\\t"}))));
    }
    for (const std::string& sOpened : fakes.registry->opened)
        EXPECT_FALSE(sOpened.starts_with("HKEY_CURRENT_USER\\Software\\Zorvo\\Quillbook")) << sOpened;
}

TEST_F(sGetProductStatusXMLTest, TakesAllProductsForTrueOnlyWhenAllSixteenBitsAreSet)
{
    setTreeOrder(treeGroup("G", "<Acronymn numProdClassID='7' Name='N'>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2006", "C:\\t");
    addPage("A");
    const std::string sInstalled =
        statusDocument(statusGroup("G", statusNode({.sVersion = "2006", .sKey = "A", .sPath = "C:\\t"})));
    for (const std::int16_t bAllProducts :
         {std::int16_t(0), std::int16_t(1), std::int16_t(-2), std::int16_t(255)})
        EXPECT_EQ(status.sGetProductStatusXML(0, bAllProducts), sInstalled) << bAllProducts;
    for (const std::int16_t bNoctaOnly : {std::int16_t(0), std::int16_t(-1)}) {
        EXPECT_EQ(
            status.sGetProductStatusXML(bNoctaOnly, kTrue),
            statusDocument(statusGroup(
                "G", statusNode(
                         {.sVersion = "2004", .sClassID = "7", .sKey = "A", .sName = "N", .sPath = "N/A"}))));
    }
}

TEST_F(sGetProductStatusXMLTest, LooksNothingUpInTheScannedKeysForAllOfferings)
{
    setTreeOrder(treeGroup("G", "<Acronymn numProdClassID='7' Name='N'>A</Acronymn>"));
    addPage("A");
    status.sGetProductStatusXML(0, kTrue);
    for (const std::string& sOpened : fakes.registry->opened)
        EXPECT_FALSE(sOpened.starts_with("HKEY_CURRENT_USER")) << sOpened;
}

TEST_F(sGetProductStatusXMLTest, YieldsNothingForAnOfferingWithoutAPageAndAsksItForNothing)
{
    setTreeOrder(treeGroup("G", "<Acronymn>A</Acronymn><Acronymn Name='N' numProdClassID=''>B</Acronymn>"));
    addPage("B");
    EXPECT_EQ(status.sGetProductStatusXML(0, kTrue),
              statusDocument(statusGroup(
                  "G", statusNode({.sVersion = "2004", .sKey = "B", .sName = "N", .sPath = "N/A"}))));
}

TEST_F(sGetProductStatusXMLTest, FailsForAnOfferingWithAPageThatLacksAnAttribute)
{
    addPage("A");
    for (const char* attributes : {"Name='N'", "numProdClassID='7'"}) {
        setTreeOrder(treeGroup("G", std::string("<Acronymn ") + attributes + ">A</Acronymn>"));
        EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(0, kTrue); }), kObjectNotSet)
            << attributes;
        EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(); }), 0) << attributes;
    }
}

TEST_F(sGetProductStatusXMLTest, TellsALibraryOfferingByItsKey)
{
    setTreeOrder(treeGroup("G", "<Acronymn numProdClassID='7' Name='N'>MySABLEWOOD</Acronymn>"));
    addPage("MySABLEWOOD");
    EXPECT_NE(status.sGetProductStatusXML(0, kTrue).find("SWDType=\"True\""), std::string::npos);
}

TEST_F(sGetProductStatusXMLTest, PutsNestedGroupsAheadOfTheParentsProducts)
{
    setTreeOrder(treeGroup("G", "<Acronymn>A</Acronymn>" + treeGroup("H", "<Acronymn>B</Acronymn>") +
                                    "<Acronymn>A</Acronymn>" + treeGroup("I", "<Acronymn>A</Acronymn>")));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "x");
    const std::string sA = statusNode({.sVersion = "2005", .sKey = "A", .sPath = "x"});
    EXPECT_EQ(status.sGetProductStatusXML(),
              statusDocument(statusGroup("G", statusGroup("H", "") + statusGroup("I", sA) + sA + sA)));
}

TEST_F(sGetProductStatusXMLTest, ReachesNestedProductsByTheExpressionForAnyDepthOnly)
{
    setTreeOrder(treeGroup("G", treeGroup("H", "<Acronymn>A</Acronymn>")));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "x");
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(status.sGetProductStatusXML()));
    EXPECT_TRUE(document.selectNodes("ZorvoMSOfficeProductsStatus/ProductGroup/ProductRegistryNode").empty());
    EXPECT_EQ(document.selectNodes("//ProductRegistryNode").size(), 1U);
}

TEST_F(sGetProductStatusXMLTest, AnswersTheConsumersExpressions)
{
    setTreeOrder(treeGroup("G", "<Acronymn>SablewoodLibrary</Acronymn><Acronymn>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2006", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "SablewoodLibrary", "2006", "x");
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(status.sGetProductStatusXML()));
    const std::string sNodes = "ZorvoMSOfficeProductsStatus/ProductGroup/ProductRegistryNode";
    EXPECT_EQ(document.selectNodes("ZorvoMSOfficeProductsStatus/ProductGroup").size(), 1U);
    EXPECT_EQ(document.selectNodes(sNodes).size(), 3U);
    EXPECT_EQ(document.selectNodes(sNodes + "[@LatestFlag=\"True\"]").size(), 2U);
    EXPECT_EQ(document.selectNodes(sNodes + "[child::ProductKey=\"A\"]").size(), 2U);
    EXPECT_EQ(document.selectNodes(sNodes + "[@Version=\"2005\" and child::ProductKey=\"A\"]").size(), 1U);
    EXPECT_EQ(document.selectNodes(sNodes + "[@SWDType=\"True\"]").size(), 1U);
}

TEST_F(sGetProductStatusXMLTest, LeavesAGroupOfAnotherCompanyOutForZorvo)
{
    setMixedTree();
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("Z", "") + statusGroup("E", "")));
}

TEST_F(sGetProductStatusXMLTest, ShowsAnotherCompanyItsOwnGroupsOnly)
{
    setMixedTree();
    setCompany("OTR");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("O", "")));
    setCompany("otr");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
}

TEST_F(sGetProductStatusXMLTest, ListsAllProductsOfAMixedGroupThoseOfTheOtherCompanyIncluded)
{
    setTreeOrder(treeGroup("G", "<Acronymn companyID='OTR'>A</Acronymn><Acronymn>B</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "x");
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "B", "2005", "x");
    const std::string sBoth =
        statusDocument(statusGroup("G", statusNode({.sVersion = "2005", .sKey = "A", .sPath = "x"}) +
                                            statusNode({.sVersion = "2005", .sKey = "B", .sPath = "x"})));
    EXPECT_EQ(status.sGetProductStatusXML(), sBoth);
    setCompany("OTR");
    EXPECT_EQ(status.sGetProductStatusXML(), sBoth);
    setCompany("ABC");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
}

TEST_F(sGetProductStatusXMLTest, CountsANestedGroupsProductForItsParent)
{
    setTreeOrder(
        treeGroup("G", treeGroup("H", "<Acronymn companyID='OTR'>A</Acronymn>") + treeGroup("I", "")));
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
    setCompany("OTR");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("G", statusGroup("H", ""))));
}

TEST_F(sGetProductStatusXMLTest, FailsForACompanyWithAnApostropheInItsId)
{
    setMixedTree();
    setCompany("O'Hara");
    EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(); }), kInvalidCall);
}

TEST_F(sGetProductStatusXMLTest, FailsForAGroupThatLacksATitleOrAnIconEvenOfAnotherCompany)
{
    const std::string sFull = "TreeTitle='a' TreeTitleShort='b' IconLarge='c' IconSmall='d'";
    for (const std::string sMissing : {"TreeTitle=", "TreeTitleShort=", "IconLarge=", "IconSmall="}) {
        std::string sAttributes = sFull;
        sAttributes.replace(sAttributes.find(sMissing), sMissing.size(), "Other=");
        setTreeOrder("<ProductTreeGroup " + sAttributes +
                     "><Acronymn companyID='OTR'>A</Acronymn></ProductTreeGroup>");
        EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(); }), kObjectNotSet) << sMissing;
    }
}

TEST_F(sGetProductStatusXMLTest, DoesNotLookIntoAGroupThatIsNotUsed)
{
    setTreeOrder(
        treeGroup("G", "<ProductTreeGroup><Acronymn companyID='OTR'>A</Acronymn></ProductTreeGroup>"));
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
    setCompany("OTR");
    EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(); }), kObjectNotSet);
}

TEST_F(sGetProductStatusXMLTest, ComparesTheProductNameExactlyAndUntrimmed)
{
    setTreeOrder(treeGroup("G", "<Acronymn>a</Acronymn><Acronymn> A</Acronymn><Acronymn>A </Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "x");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("G", "")));
}

TEST_F(sGetProductStatusXMLTest, GuardsNothingThatMakesTheDocumentUnparsable)
{
    setTreeOrder(treeGroup("G", "<Acronymn>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "x");
    setTitle(HKEY_LOCAL_MACHINE, "Tessora", "A", "T]]>U");
    const std::string sText = status.sGetProductStatusXML();
    EXPECT_NE(sText.find("<![CDATA[T]]>U]]>"), std::string::npos);
    EXPECT_FALSE(XmlDocument().loadXML(sText));

    setTitle(HKEY_LOCAL_MACHINE, "Tessora", "A", "T");
    setTreeOrder(treeGroup("G", "<Acronymn Name='N' numProdClassID='7\"8'>A</Acronymn>"));
    addPage("A");
    EXPECT_FALSE(XmlDocument().loadXML(status.sGetProductStatusXML(0, kTrue)));
}

TEST_F(sGetProductStatusXMLTest, ScansAfreshWithEachCall)
{
    setTreeOrder(treeGroup("G", "<Acronymn>A</Acronymn>"));
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("G", "")));
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "A", "2005", "x");
    EXPECT_EQ(status.sGetProductStatusXML(),
              statusDocument(statusGroup("G", statusNode({.sVersion = "2005", .sKey = "A", .sPath = "x"}))));
}

TEST_F(sGetProductStatusXMLTest, UsesTheTreeOrderFileThatTheProductsBring)
{
    setTreeOrder(treeGroup("Own", "<Acronymn>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "A", "2005", "C:\\Q");
    fakes.files->addFile("C:\\Q\\TreeOrder.xml", "<ZorvoTree Version='2'>" +
                                                     treeGroup("Newer", "<Acronymn>B</Acronymn>") +
                                                     "</ZorvoTree>");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("Newer", "")));
}

TEST_F(sGetProductStatusXMLTest, FailsWithATreeOrderFileThatHasNoVersion)
{
    fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml", "<ZorvoTree/>");
    EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(); }), kObjectNotSet);
}
