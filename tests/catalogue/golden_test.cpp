#include "base/sessionState.h"
#include "base/text.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/support/testFolders.h"

#include <fstream>
#include <iterator>

using namespace zorvo;

namespace {

/// One small machine with a case of every kind; the files in golden/ were worked out from the rules by hand,
/// an element to a line.
class GoldenMachineTest : public CatalogueTest {
protected:
    GoldenMachineTest()
    {
        FakeRegistry& registry = *fakes.registry;
        // A product of the year 2002 with both marks of it, and a folder that isn't trimmed.
        const std::string sAudit = "Software\\Zorvo\\Quillbook\\ALG";
        registry.setText(HKEY_LOCAL_MACHINE, sAudit, "Title", "Local Governments");
        registry.addKey(HKEY_LOCAL_MACHINE, sAudit + "\\CurrentVersion");
        registry.setText(HKEY_LOCAL_MACHINE, sAudit + "\\InstallDefaults", "AppPath2",
                         " C:\\Products\\ALG\\");
        // Years in both hives and in both groups; the highest isn't installed; one key isn't a year.
        addYear(HKEY_CURRENT_USER, "Tessora", "QSF", "2005", " C:\\Users\\QSF 2005\\ ");
        addYear(HKEY_LOCAL_MACHINE, "Tessora", "QSF", "2005", "C:\\Products\\QSF 2005\\");
        registry.addKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\QSF\\2006");
        registry.addKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\QSF\\Setup");
        setTitle(HKEY_LOCAL_MACHINE, "Tessora", "QSF", " Small Firms ");
        addYear(HKEY_LOCAL_MACHINE, "Quillbook", "QSF", "2004", "C:\\Products\\QSF 2004");
        setTitle(HKEY_LOCAL_MACHINE, "Quillbook", "QSF", "Small Firms, Quillbook");
        // A key whose name differs in case is another product's.
        addYear(HKEY_LOCAL_MACHINE, "Tessora", "NiL", "2006", "C:\\Products\\NIL");
        addYear(HKEY_LOCAL_MACHINE, "Tessora", "OSF", "2006", "C:\\Products\\OSF");
        setTitle(HKEY_LOCAL_MACHINE, "Tessora", "OSF", "Other's Small Firms");
        for (const char* year : {"2007", "2006"})
            addYear(HKEY_LOCAL_MACHINE, "Tessora", "SablewoodLibrary", std::string(year) + "1101",
                    std::string("C:\\Products\\SWL\\") + year + "\\");
        setTitle(HKEY_LOCAL_MACHINE, "Tessora", "SablewoodLibrary", "Sablewood Library");

        const std::string sTreeOrder = fileText("TreeOrder.xml");
        const auto editionOf = [&](const std::string& sVersion) {
            return replaceAll(sTreeOrder, "Version=\"12\"", "Version=\"" + sVersion + "\"");
        };
        fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml", editionOf("3"));
        fakes.files->addFile("C:\\Products\\OSF\\TreeOrder.xml", editionOf("12"));
        fakes.files->addFile("C:\\Products\\QSF 2004\\TreeOrder.xml", sTreeOrder);
        fakes.files->addFile("C:\\Products\\QSF 2005\\TreeOrder.xml", editionOf("eleven"));
        fakes.files->addFile("C:\\Users\\QSF 2005\\TreeOrder.xml", editionOf("99"));
        for (const char* page : {"QSF", "OSF", "SablewoodLibrary"})
            fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\" + std::string(page) + ".htm");
    }

    static std::string fileText(const std::string& sName)
    {
        std::ifstream file(sourceFolder() / "tests/catalogue/golden" / sName, std::ios::binary);
        EXPECT_TRUE(file.is_open()) << sName;
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static std::string expected(const std::string& sName) { return replaceAll(fileText(sName), "\n", ""); }
};

constexpr std::int16_t kTrue = -1;

} // namespace

TEST_F(GoldenMachineTest, HasThisTreeOrder)
{
    EXPECT_EQ(status.sGetTreeOrderXML(), expected("treeorder.txt"));
}

TEST_F(GoldenMachineTest, HasTheseProducts)
{
    EXPECT_EQ(status.sGetProductStatusXML(), expected("status.txt"));
}

TEST_F(GoldenMachineTest, HasTheseTessoraProducts)
{
    EXPECT_EQ(status.sGetProductStatusXML(kTrue), expected("status-tessora.txt"));
}

TEST_F(GoldenMachineTest, HasTheseOfferings)
{
    EXPECT_EQ(status.sGetProductStatusXML(0, kTrue), expected("status-all.txt"));
}

TEST_F(GoldenMachineTest, HasTheseProductsForAnotherCompany)
{
    sessionState().gsCompanyID = "OTR";
    EXPECT_EQ(status.sGetProductStatusXML(), expected("status-other-company.txt"));
}
