#include "catalogue/TreeOrder.h"

#include "base/RunTimeError.h"
#include "tests/catalogue/CatalogueTest.h"

using namespace zorvo;

namespace {

const std::string kOwnCopy = "C:\\Zorvo\\TreeData\\TreeOrder.xml";

class TreeOrderTest : public CatalogueTest {
protected:
    void addCopy(const std::string& sFolder, const std::string& sVersion)
    {
        fakes.files->addFile(sFolder + "\\TreeOrder.xml", "<ZorvoTree Version='" + sVersion + "'/>");
    }
    void addProduct(const std::string& sGroup, const std::string& sProduct, const std::string& sFolder,
                    const std::string& sVersion)
    {
        addYear(HKEY_LOCAL_MACHINE, sGroup, sProduct, "2005", sFolder);
        addCopy(sFolder, sVersion);
    }
};

using nTreeOrderVersionTest = TreeOrderTest;
using sGetTreeOrderXMLTest = TreeOrderTest;

} // namespace

TEST_F(nTreeOrderVersionTest, IsTheRootsVersionAsAnInteger)
{
    addCopy("C:\\T", "12");
    EXPECT_EQ(nTreeOrderVersion("C:\\T"), 12);
    EXPECT_EQ(nTreeOrderVersion("C:\\T\\"), 12);
    addCopy("C:\\T", " 2.5 ");
    EXPECT_EQ(nTreeOrderVersion("C:\\T"), 2);
    addCopy("C:\\T", "-7");
    EXPECT_EQ(nTreeOrderVersion("C:\\T"), -7);
}

TEST_F(nTreeOrderVersionTest, IsMinusOneForAFileThatIsMissingOrNotWellFormed)
{
    EXPECT_EQ(nTreeOrderVersion("C:\\None"), -1);
    fakes.files->addFile("C:\\T\\TreeOrder.xml", "<ZorvoTree Version='5'>");
    EXPECT_EQ(nTreeOrderVersion("C:\\T"), -1);
    fakes.files->addFile("C:\\T\\TreeOrder.xml", "<Other Version='5'/>");
    EXPECT_EQ(nTreeOrderVersion("C:\\T"), -1);
}

TEST_F(nTreeOrderVersionTest, IsMinusOneForAVersionThatIsNotNumeric)
{
    for (const char* version : {"", "two", "1.2.3", "0x10"}) {
        addCopy("C:\\T", version);
        EXPECT_EQ(nTreeOrderVersion("C:\\T"), -1) << version;
    }
}

TEST_F(nTreeOrderVersionTest, FailsForARootWithoutAVersion)
{
    fakes.files->addFile("C:\\T\\TreeOrder.xml", "<ZorvoTree/>");
    EXPECT_EQ(numberOfFailure([] { nTreeOrderVersion("C:\\T"); }), kObjectNotSet);
}

TEST_F(nTreeOrderVersionTest, FailsForAVersionPastThirtyTwoBits)
{
    addCopy("C:\\T", "3000000000");
    EXPECT_EQ(numberOfFailure([] { nTreeOrderVersion("C:\\T"); }), kOverflow);
}

TEST_F(sGetTreeOrderXMLTest, IsTheProgramsOwnCopyWithNoInstalledProduct)
{
    addCopy("C:\\Zorvo\\TreeData", "1");
    EXPECT_EQ(status.sGetTreeOrderXML(), kOwnCopy);
}

TEST_F(sGetTreeOrderXMLTest, MayNameAFileThatDoesNotExist)
{
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "Q", "2005", "C:\\Q");
    EXPECT_EQ(status.sGetTreeOrderXML(), kOwnCopy);
}

TEST_F(sGetTreeOrderXMLTest, IsTheHighestEdition)
{
    addCopy("C:\\Zorvo\\TreeData", "3");
    addProduct("Quillbook", "A", "C:\\A", "2");
    addProduct("Quillbook", "B", "C:\\B", "10");
    addProduct("Tessora", "C", "C:\\C", "9");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\B\\TreeOrder.xml");
}

TEST_F(sGetTreeOrderXMLTest, IsTheProgramsOwnCopyOverAllEquals)
{
    addCopy("C:\\Zorvo\\TreeData", "5");
    addProduct("Quillbook", "A", "C:\\A", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), kOwnCopy);
}

TEST_F(sGetTreeOrderXMLTest, IsTheFirstFoundOfEqualsQuillbookAheadOfTessora)
{
    addCopy("C:\\Zorvo\\TreeData", "1");
    addProduct("Tessora", "A", "C:\\TA", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\TA\\TreeOrder.xml");
    addProduct("Quillbook", "C", "C:\\QC", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\QC\\TreeOrder.xml");
    addProduct("Quillbook", "B", "C:\\QB", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\QB\\TreeOrder.xml");
}

TEST_F(sGetTreeOrderXMLTest, LosesAnOwnCopyBelowMinusOneToACandidateThatCannotBeRead)
{
    addCopy("C:\\Zorvo\\TreeData", "-2");
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "Q", "2005", "C:\\Q");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\Q\\TreeOrder.xml");
}

TEST_F(sGetTreeOrderXMLTest, AddsABackslashOnlyWhereThePathHasNone)
{
    addProduct("Quillbook", "A", "C:\\A", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\A\\TreeOrder.xml");
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "A", "2005", "C:\\A\\");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\A\\TreeOrder.xml");
}

TEST_F(sGetTreeOrderXMLTest, FindsAProductOfTheYear2002)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\Old\\InstallDefaults", "AppPath2",
                            "C:\\Old");
    addCopy("C:\\Old", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\Old\\TreeOrder.xml");
}

TEST_F(sGetTreeOrderXMLTest, LooksAtTheMachinesProductsOnly)
{
    addYear(HKEY_CURRENT_USER, "Quillbook", "A", "2005", "C:\\A");
    addCopy("C:\\A", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), kOwnCopy);
}

TEST_F(sGetTreeOrderXMLTest, FailsWhenOneCopyHasNoVersion)
{
    addCopy("C:\\Zorvo\\TreeData", "9");
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "A", "2005", "C:\\A");
    fakes.files->addFile("C:\\A\\TreeOrder.xml", "<ZorvoTree/>");
    EXPECT_EQ(numberOfFailure([&] { status.sGetTreeOrderXML(); }), kObjectNotSet);
}

TEST_F(sGetTreeOrderXMLTest, ReadsEveryCandidateAlsoBeyondTheEditionsThatItKeeps)
{
    addCopy("C:\\Zorvo\\TreeData", "1");
    for (int n = 10; n < 60; ++n)
        addProduct("Quillbook", "P" + std::to_string(n), "C:\\P" + std::to_string(n), std::to_string(n));
    addProduct("Tessora", "Same", "C:\\Same", "59");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\P59\\TreeOrder.xml");
}

TEST_F(sGetTreeOrderXMLTest, PicksAnewWithEachCall)
{
    addCopy("C:\\Zorvo\\TreeData", "1");
    EXPECT_EQ(status.sGetTreeOrderXML(), kOwnCopy);
    addProduct("Quillbook", "A", "C:\\A", "5");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\A\\TreeOrder.xml");
}
