#include "base/RunTimeError.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/linux/LibreOffice.h"
#include "tests/office/TestDesk.h"
#include "tests/office/officeProcesses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

/// The stand-in of the products' add-in, loaded into the office because the registry names it.
namespace zorvo {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

/// Both classes are one; that of Word is taken on the desk by an extension.
constexpr const char* kProgId = "ZorvoTSR.ExcelConnect";
constexpr const char* kClassId = "{C6A7C3C7-77DF-40FF-BBD6-875288691224}";

void setDefaultValue(const std::string& sKey, const std::string& sValue)
{
    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(platform().registry->createKey(HKEY_CLASSES_ROOT, sKey, key), kRegistrySuccess);
    ASSERT_EQ(key->setValue("", RegistryType::string, sValue + '\0'), kRegistrySuccess);
}

void registerLibrary(const std::string& sLibrary)
{
    setDefaultValue(std::string(kProgId) + "\\CLSID", kClassId);
    setDefaultValue(std::string("CLSID\\") + kClassId + "\\InprocServer32", sLibrary);
}

class ProfileAddIn : public testing::Test {
protected:
    TestDesk& desk = TestDesk::instance();
    std::shared_ptr<Office> office = makeLibreOffice();
    std::shared_ptr<WordApplication> word = office->createWord();
    const fs::path folder = desk.newFolder();

    void SetUp() override
    {
        registerLibrary(ZORVO_ADDIN);
        word->documentsAdd(templateNamed("CLIENT.DOT"));
    }

    std::string templateNamed(const std::string& sName) const { return dos(desk.templates() / sName); }
    LateBoundPtr connection() const { return word->comAddIn(kProgId); }
    AutomationObjectPtr text() const { return word->activeDocument(); }
};

const std::string kProfile = "ClientName=Fröhlich & Söhne\nPeriodEnd=31.12.2026\n";

} // namespace

TEST_F(ProfileAddIn, ATextThatIsSavedShowsTheClient)
{
    const LateBoundPtr addIn = connection();
    addIn->call("SetCompanyID", {std::string("Zorvo")});
    addIn->call("SuppressSaveAs");
    addIn->call("SetSaveFlag");
    addIn->call("StuffProperties", {text(), kProfile});
    word->activeDocument()->saveAs(dos(folder / "Client.doc"), 0);
    addIn->call("RefreshFields", {text()});
    word->activeDocument()->close();
    EXPECT_THAT(textOf(folder / "Client.doc"), HasSubstr("For Fröhlich & Söhne"));
    const std::string sXml = flatXmlOf(folder / "Client.doc");
    EXPECT_THAT(sXml, HasSubstr("meta:name=\"ClientName\">Fröhlich &amp; Söhne<"));
    EXPECT_THAT(sXml, HasSubstr("meta:name=\"PeriodEnd\""));
    EXPECT_THAT(sXml, Not(HasSubstr("meta:name=\"Shared\"")));
}

TEST_F(ProfileAddIn, AWorkbookThatIsSavedShowsTheClient)
{
    const auto excel = office->createExcel();
    excel->workbooksAdd(templateNamed("CLIENT.XLT"));
    const LateBoundPtr addIn = connection();
    addIn->call("StuffProperties", {AutomationObjectPtr(excel->activeWorkbook()), kProfile});
    addIn->call("ProtectExcelDoc", {AutomationObjectPtr(excel->activeWorkbook()), false});
    excel->activeWorkbook()->saveAs(dos(folder / "Client.xls"), 56, 1);
    excel->activeWorkbook()->close();
    EXPECT_THAT(flatXmlOf(folder / "Client.xls"), HasSubstr("<text:p>Fröhlich &amp; Söhne</text:p>"));
    EXPECT_THAT(flatXmlOf(folder / "Client.xls"),
                HasSubstr("meta:name=\"ClientName\">Fröhlich &amp; Söhne<"));
}

TEST_F(ProfileAddIn, ProtectsAWorkbookWithItsSheetsAndStillShowsTheClientThere)
{
    const auto excel = office->createExcel();
    excel->workbooksAdd(templateNamed("CLIENT.XLT"));
    const AutomationObjectPtr workbook = excel->activeWorkbook();
    const LateBoundPtr addIn = connection();
    addIn->call("ProtectExcelDoc", {workbook, true});
    addIn->call("StuffProperties", {workbook, kProfile});
    excel->activeWorkbook()->saveAs(dos(folder / "Protected.xls"), 56, 1);
    addIn->call("ProtectExcelDoc", {workbook, false});
    excel->activeWorkbook()->saveAs(dos(folder / "Open.xls"), 56, 1);
    EXPECT_THAT(flatXmlOf(folder / "Protected.xls"), HasSubstr("<text:p>Fröhlich &amp; Söhne</text:p>"));
    EXPECT_THAT(flatXmlOf(folder / "Protected.xls"), HasSubstr("table:protected=\"true\""));
    EXPECT_THAT(flatXmlOf(folder / "Open.xls"), Not(HasSubstr("table:protected=\"true\"")));
}

TEST_F(ProfileAddIn, ASharedDocumentIsMarkedAndTheNextOneIsNot)
{
    const LateBoundPtr addIn = connection();
    addIn->call("SetForceShareFlag");
    addIn->call("StuffProperties", {text(), kProfile});
    word->activeDocument()->saveAs(dos(folder / "Shared.doc"), 0);
    word->activeDocument()->close();
    word->documentsAdd(templateNamed("CLIENT.DOT"));
    addIn->call("StuffProperties", {text(), kProfile});
    word->activeDocument()->saveAs(dos(folder / "Other.doc"), 0);
    EXPECT_THAT(flatXmlOf(folder / "Shared.doc"), HasSubstr("meta:name=\"Shared\""));
    EXPECT_THAT(flatXmlOf(folder / "Other.doc"), Not(HasSubstr("meta:name=\"Shared\"")));
}

TEST_F(ProfileAddIn, AnEmptyProfileLeavesTheDocumentAsItIs)
{
    connection()->call("StuffProperties", {text(), std::string()});
    word->activeDocument()->saveAs(dos(folder / "Client.doc"), 0);
    EXPECT_THAT(textOf(folder / "Client.doc"), HasSubstr("For [Client]"));
}

TEST_F(ProfileAddIn, RefusesWhatItDoesNotTakeAndTheOfficeLivesOn)
{
    const LateBoundPtr addIn = connection();
    EXPECT_EQ(numberOf([&] { addIn->call("NoSuchMember"); }), kMemberNotFound);
    EXPECT_EQ(numberOf([&] { addIn->call("TreeSelectProfileDataForm"); }), kMemberNotFound);
    EXPECT_EQ(numberOf([&] { addIn->call("StuffProperties", {kProfile, kProfile}); }), kTypeMismatch);
    EXPECT_EQ(numberOf([&] { addIn->call("StuffProperties", {text()}); }), kTypeMismatch);
    EXPECT_EQ(numberOf([&] { addIn->call("StuffProperties", {text(), true}); }), kTypeMismatch);
    EXPECT_EQ(numberOf([&] { addIn->call("RefreshFields"); }), kTypeMismatch);
    EXPECT_EQ(numberOf([&] { addIn->call("ProtectExcelDoc", {text(), true}); }), kTypeMismatch);
    EXPECT_EQ(numberOf([&] { addIn->call("SetCompanyID", {true}); }), kTypeMismatch);
    EXPECT_EQ(numberOf([&] { addIn->call("SuppressSaveAs"); }), 0);
}

TEST_F(ProfileAddIn, IsThereAgainInTheOfficeThatFollowsACrash)
{
    EXPECT_EQ(numberOf([&] { connection(); }), 0);
    kill(officeChildren().at(0), SIGKILL);
    word->documentsAdd(templateNamed("CLIENT.DOT"));
    EXPECT_EQ(numberOf([&] { connection()->call("StuffProperties", {text(), kProfile}); }), 0);
}

TEST_F(ProfileAddIn, ALibraryThatIsNotThereOrNoneIsAMissingAddIn)
{
    const auto another = makeLibreOffice();
    const auto other = another->createWord();
    other->documentsAdd(templateNamed("CLIENT.DOT"));
    for (const std::string& sLibrary :
         {std::string("/no/such/library.so"), std::string("Z:\\no\\library.so"),
          std::string(ZORVO_TEST_ADDIN), (desk.templates() / "LETTER.DOT").string()}) {
        registerLibrary(sLibrary);
        EXPECT_EQ(numberOf([&] { other->comAddIn(kProgId); }), kCannotCreateObject) << sLibrary;
    }
    EXPECT_EQ(other->activeDocument()->fullName(), "");
}

} // namespace zorvo
