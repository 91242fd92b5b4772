#include "catalogue/OfferingPages.h"

#include "branding/xmlCaptionLoaderManager.h"
#include "tests/catalogue/CatalogueTest.h"

namespace zorvo {
namespace {

TEST(OfferingKey, IsPartedAtItsFirstGraveAccent)
{
    EXPECT_EQ(sPageCode("AUD`301"), "AUD");
    EXPECT_EQ(sPageClassID("AUD`301"), "301");
    EXPECT_EQ(sPageCode("AUD`30`1"), "AUD");
    EXPECT_EQ(sPageClassID("AUD`30`1"), "30`1");
}

TEST(OfferingKey, WithoutAGraveAccentIsAllPageName)
{
    EXPECT_EQ(sPageCode("Tessora"), "Tessora");
    EXPECT_EQ(sPageClassID("Tessora"), "");
    EXPECT_FALSE(bIsOffering("Tessora"));
    EXPECT_TRUE(bIsOffering("AUD`"));
}

TEST(OfferingKey, ConBecomesCncAndNoOtherNameDoes)
{
    EXPECT_EQ(sPageCode("CON`123"), "CNC");
    EXPECT_EQ(sPageClassID("CON`123"), "123");
    EXPECT_EQ(sPageCode("CON"), "CNC");
    EXPECT_EQ(sPageCode("Con`1"), "Con");
    EXPECT_EQ(sPageCode("CONS`1"), "CONS");
    EXPECT_EQ(sPageCode("PRN`1"), "PRN");
    EXPECT_EQ(sPageCode("`1"), "");
}

TEST(OfferingClassID, IsANumberOfAtLeastOne)
{
    EXPECT_TRUE(bValidClassID("1"));
    EXPECT_TRUE(bValidClassID("301"));
    EXPECT_TRUE(bValidClassID("32767"));
    EXPECT_TRUE(bValidClassID(" 12 "));
    EXPECT_TRUE(bValidClassID("0.6")) << "rounds to 1";
    EXPECT_FALSE(bValidClassID("0.5")) << "rounds to the even 0";
    EXPECT_FALSE(bValidClassID(""));
    EXPECT_FALSE(bValidClassID("0"));
    EXPECT_FALSE(bValidClassID("-5"));
    EXPECT_FALSE(bValidClassID("abc"));
    EXPECT_FALSE(bValidClassID("12a"));
    EXPECT_FALSE(bValidClassID("-32768"));
}

TEST(OfferingClassID, PastSixteenBitsFails)
{
    EXPECT_EQ(numberOfFailure([] { bValidClassID("32768"); }), 6);
    EXPECT_EQ(numberOfFailure([] { bValidClassID("-40000"); }), 6);
    EXPECT_EQ(numberOfFailure([] { bValidClassID("1e9"); }), 6);
}

class OfferingPagesTest : public CatalogueTest {
protected:
    OfferingPagesTest() { captionState() = CaptionState(); }
    ~OfferingPagesTest() override { captionState() = CaptionState(); }

    std::string url(const std::string& sCode)
    {
        pages.readProductPaths();
        return pages.sOfflinePageURL(sCode);
    }
    static void setSite(const std::string& sAddress)
    {
        XmlDocument captions;
        captions.loadXML("<Captions><Web><OnTheWeb2>" + sAddress + "</OnTheWeb2></Web></Captions>");
        captionState().setDocument(std::move(captions));
    }

    OfferingPages pages;
};

constexpr const char* kQuery =
    "&txtFuse=dspShellProductDetail&numSiteID=2&numTaxonomyTypeID=29&numTaxonomyID=232";

TEST_F(OfferingPagesTest, TheWebAddressIsOnThePublishersSite)
{
    setSite("https://www.zorvo.example/");
    EXPECT_EQ(sWebPageURL("301"),
              std::string("https://www.zorvo.example/sitecomposer/Index.cfm?numProdClassID=301") + kQuery);
    setSite("http://127.0.0.1:8080/start/page.htm?a=b");
    EXPECT_EQ(sWebPageURL("7"),
              std::string("http://127.0.0.1:8080/sitecomposer/Index.cfm?numProdClassID=7") + kQuery);
    setSite("https://www.zorvo.example");
    EXPECT_EQ(sWebPageURL("7"),
              std::string("https://www.zorvo.example/sitecomposer/Index.cfm?numProdClassID=7") + kQuery);
}

TEST_F(OfferingPagesTest, WithoutCaptionsTheWebAddressHasNoSite)
{
    EXPECT_EQ(sWebPageURL("301"), std::string("/sitecomposer/Index.cfm?numProdClassID=301") + kQuery);
}

TEST_F(OfferingPagesTest, AnInstalledProductsPageWinsOverTheProgramsOwn)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "AUD", "2006", "C:\\T\\AUD2006\\");
    fakes.files->addFile("C:\\T\\AUD2006\\HTML\\AUD.htm", "x");
    fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\AUD.htm", "x");
    EXPECT_EQ(url("AUD"), "file://C:\\T\\AUD2006\\HTML\\AUD.htm");
}

TEST_F(OfferingPagesTest, AFolderWithoutABackslashGetsOne)
{
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "AUQ", "2006", "C:\\Q\\AUQ2006");
    fakes.files->addFile("C:\\Q\\AUQ2006\\HTML\\AUQ.htm", "x");
    EXPECT_EQ(url("AUQ"), "file://C:\\Q\\AUQ2006\\HTML\\AUQ.htm");
}

TEST_F(OfferingPagesTest, TheFirstFolderFoundWinsAndQuillbookIsReadAheadOfTessora)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "AAA", "2006", "C:\\T\\AAA\\");
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "ZZZ", "2005", "C:\\Q\\ZZZ5\\");
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "ZZZ", "2006", "C:\\Q\\ZZZ6\\");
    for (const char* sFolder : {"C:\\T\\AAA\\", "C:\\Q\\ZZZ6\\"})
        fakes.files->addFile(std::string(sFolder) + "HTML\\P.htm", "x");
    EXPECT_EQ(url("P"), "file://C:\\Q\\ZZZ6\\HTML\\P.htm");
    fakes.files->addFile("C:\\Q\\ZZZ5\\HTML\\P.htm", "x");
    EXPECT_EQ(url("P"), "file://C:\\Q\\ZZZ5\\HTML\\P.htm");
}

TEST_F(OfferingPagesTest, ProductsOfTheUsersHiveAreNotRead)
{
    addYear(HKEY_CURRENT_USER, "Tessora", "AUD", "2006", "C:\\U\\AUD\\");
    fakes.files->addFile("C:\\U\\AUD\\HTML\\AUD.htm", "x");
    EXPECT_EQ(url("AUD"), "file://C:\\Zorvo\\TreeData\\HTML\\AUD.htm");
}

TEST_F(OfferingPagesTest, TheProgramsOwnCopyIsTheAddressThoughItIsntThere)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "AUD", "2006", "C:\\T\\AUD2006\\");
    EXPECT_EQ(url("NIX"), "file://C:\\Zorvo\\TreeData\\HTML\\NIX.htm");
}

TEST_F(OfferingPagesTest, ReadingAnewForgetsWhatWasReadBefore)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "AUD", "2006", "C:\\T\\AUD2006\\");
    fakes.files->addFile("C:\\T\\AUD2006\\HTML\\AUD.htm", "x");
    pages.readProductPaths();
    EXPECT_EQ(url("AUD"), "file://C:\\T\\AUD2006\\HTML\\AUD.htm");
}

} // namespace
} // namespace zorvo
