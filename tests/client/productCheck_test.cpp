#include "client/doctor/ProductCheck.h"

#include "tests/client/CreateTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The machine of `brendle create`: AUDT of two years, and AUQ.
class ProductCheckTest : public CreateTest {
protected:
    ProductCheckTest()
    {
        for (const char* sProduct : {"AUDT", "AUQ"})
            fakes.registry->setText(HKEY_LOCAL_MACHINE, std::string("Software\\Zorvo\\Tessora\\") + sProduct,
                                    "Title", sProduct);
        for (const char* sFile :
             {"AUDT\\2007\\Letter.dot", "AUDT\\2007\\Budget.xlt", "AUDT\\2007\\Income.xlt",
              "AUDT\\2006\\Letter.dot", "AUQ\\2007\\One.dot", "AUQ\\2007\\Two.dot"})
            files->addFile(std::string("C:\\T\\") + sFile, "template");
        putCentral(product("AUDT", "2007", "{P7}", doc("{1}", "Letter.dot")) +
                   product("AUDT", "2006", "{P6}", doc("{2}", "Letter.dot")) +
                   product("AUQ", "2007", "{Q}", doc("{3}", "One.dot")));
    }

    static std::string doc(const std::string& sGuid, const std::string& sFile)
    {
        return "<Document Guid='" + sGuid + "'><Name>" + sGuid + "</Name><File>" + sFile +
               "</File></Document>\n";
    }
    static std::string product(const std::string& sKey, const std::string& sYear, const std::string& sGuid,
                               const std::string& sBelow)
    {
        return "<Product Acronym='" + sKey + "' Year='" + sYear + "' Guid='" + sGuid +
               "' Type='T'><Name>P</Name>\n" + sBelow + "</Product>\n";
    }
    void putCentral(const std::string& sProducts)
    {
        files->addFile("C:\\Zorvo\\TreeData\\Zorvo Library.xml", "<Library>\n" + sProducts + "</Library>");
    }
    void putOwn(const std::string& sFolder, const std::string& sProducts)
    {
        files->addFile("C:\\T\\" + sFolder + "\\Zorvo Library.xml", "<Library>\n" + sProducts + "</Library>");
    }
    /// "item: code" of each fault.
    static std::vector<std::string> faults()
    {
        std::vector<std::string> found;
        for (const DiagnosisItem& item : checkProducts().items) {
            for (const Fault& fault : item.faults)
                found.push_back(item.sName + ": " + fault.sCode);
        }
        return found;
    }
};

TEST_F(ProductCheckTest, FindsNothingWrongWithAMachineInOrder)
{
    EXPECT_THAT(faults(), IsEmpty());
    const auto items = checkProducts().items;
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].sName, "Tessora\\AUDT 2006");
    EXPECT_EQ(items[2].sName, "Tessora\\AUQ 2007");
}

TEST_F(ProductCheckTest, FindsAGuidThatTwoProductsOfOneCatalogueShare)
{
    putCentral(product("AUDT", "2007", "{P7}", doc("{1}", "Letter.dot")) +
               product("AUDT", "2006", "{P6}", doc("{1}", "Letter.dot")) +
               product("AUQ", "2007", "{Q}", doc("{q}", "One.dot") + doc("{Q}", "Two.dot")));
    EXPECT_THAT(faults(), ElementsAre("Tessora\\AUDT 2007: document.duplicateGuid",
                                      "Tessora\\AUQ 2007: document.duplicateGuid"))
        << "small letters and capitals are different keys";
}

TEST_F(ProductCheckTest, LetsAProductsOwnCatalogueUseTheGuidsOfAnother)
{
    putOwn("AUQ\\2007", product("AUQ", "2007", "{P7}", doc("{1}", "One.dot")));
    EXPECT_THAT(faults(), IsEmpty());
    putOwn("AUQ\\2007", product("AUQ", "2007", "{P7}", doc("{1}", "One.dot") + doc("{1}", "Two.dot")));
    EXPECT_THAT(faults(), ElementsAre("Tessora\\AUQ 2007: document.duplicateGuid"));
}

TEST_F(ProductCheckTest, LooksForAnEntryInTheOwnCatalogueAlone)
{
    putOwn("AUQ\\2007", product("AUQ", "2006", "{P7}", ""));
    const auto items = checkProducts().items;
    ASSERT_EQ(items[2].faults.size(), 1U);
    EXPECT_EQ(items[2].faults[0].sCode, "product.catalogue");
    EXPECT_THAT(items[2].faults[0].sFile, HasSubstr("/T/AUQ/2007/Zorvo Library.xml"));
}

TEST_F(ProductCheckTest, LooksIntoFoldersWhateverTheCaseOfTheirElements)
{
    putCentral(product("AUDT", "2007", "{P7}",
                       "<folder Guid='{F}'><Name>F</Name><FOLDER><Name>G</Name>" + doc("{1}", "Gone.dot") +
                           "</FOLDER></folder>") +
               product("AUDT", "2006", "{P6}", "") + product("AUQ", "2007", "{Q}", ""));
    EXPECT_THAT(faults(), ElementsAre("Tessora\\AUDT 2007: document.incomplete",
                                      "Tessora\\AUDT 2007: template.missing"));
}

TEST_F(ProductCheckTest, TellsTheLinesOfWhatIsIncomplete)
{
    putCentral(
        product("AUDT", "2007", "{P7}", "\n\n<Document Guid='{1}'><File>Letter.dot</File></Document>") +
        product("AUDT", "2006", "{P6}", "") + product("AUQ", "2007", "{Q}", ""));
    const auto items = checkProducts().items;
    ASSERT_EQ(items[1].faults.size(), 1U);
    EXPECT_EQ(items[1].faults[0].sCode, "document.incomplete");
    EXPECT_EQ(items[1].faults[0].nLine, 5);
}

TEST_F(ProductCheckTest, BearsAKeyThatNoQuestionToACatalogueCanHold)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\A\"B'C", "Title", "Odd");
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\A\"B'C\\2007\\InstallDefaults",
                            "AppPath2", "C:\\T\\AUQ\\2007\\");
    EXPECT_THAT(faults(), ElementsAre("Tessora\\A\"B'C 2007: product.treeOrder",
                                      "Tessora\\A\"B'C 2007: product.catalogue"));
}

TEST_F(ProductCheckTest, TellsAnUnreadableTemplate)
{
    files->failOn(FakeFiles::Operation::size, "C:\\T\\AUQ\\2007\\One.dot", 70);
    EXPECT_THAT(faults(), ElementsAre("Tessora\\AUQ 2007: template.missing"));
}

TEST_F(ProductCheckTest, WritesNothing)
{
    files->calls.clear();
    checkProducts();
    for (const FakeFiles::Call& call : files->calls)
        EXPECT_TRUE(call.operation == FakeFiles::Operation::read ||
                    call.operation == FakeFiles::Operation::size)
            << call.sPath;
}

} // namespace
} // namespace zorvo
