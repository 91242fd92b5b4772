#include "support/versionReport.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "support/reportValues.h"
#include "tests/fakes/OddRegistry.h"
#include "tests/fakes/installFakePlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvo {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* kNoProducts = "<tr><td>There are no products installed in this category.</td></tr>";
constexpr const char* kPage = "C:\\Users\\Test\\Temp\\\\VersionReport.htm";

constexpr std::uintptr_t kMainWindow = 77;

class VersionReport : public testing::Test {
protected:
    VersionReport() { sessionState() = SessionState(); }
    ~VersionReport() override { sessionState() = SessionState(); }

    static std::string familyKey(const std::string& sProduct)
    {
        return "Software\\Zorvo\\Quillbook\\" + sProduct;
    }
    void setTitle(const std::string& sProduct, const std::string& sTitle)
    {
        fakes.registry->setText(HKEY_LOCAL_MACHINE, familyKey(sProduct), "Title", sTitle);
    }
    void setCompany(const std::string& sProduct, const std::string& sCompany)
    {
        fakes.registry->setText(HKEY_LOCAL_MACHINE, familyKey(sProduct), "Zorvo_Company_Acronym", sCompany);
    }
    void addYear(const std::string& sProduct, const std::string& sYear, const std::string& sVersion)
    {
        fakes.registry->setText(HKEY_LOCAL_MACHINE, familyKey(sProduct) + "\\" + sYear + "\\CurrentVersion",
                                "", sVersion);
    }
    void setVersionBytes(const std::string& sProduct, RegistryType type, const std::string& sData)
    {
        fakes.registry->setBytes(HKEY_LOCAL_MACHINE, familyKey(sProduct) + "\\2006\\CurrentVersion", "", type,
                                 sData);
    }
    static std::string rows() { return sGetFamilyRows("Quillbook"); }
    static std::string row(const std::string& sTitle, const std::string& sVersion)
    {
        return "<tr><td>" + sTitle + "</td><td>" + sVersion + "</td></tr>";
    }
    std::string page()
    {
        ShowVersionReport(kMainWindow);
        return fakes.files->content(kPage).value_or("(no page)");
    }

    FakePlatform fakes;
};

TEST_F(VersionReport, TakesTheGreatestNameThatBeginsWithTwo)
{
    setTitle("P", "Product");
    for (const char* sYear : {"1999", "2004", "2006", "Setup", "3000"})
        addYear("P", sYear, sYear);
    EXPECT_EQ(rows(), row("Product", "2006"));
}

TEST_F(VersionReport, ComparesYearsAsTexts)
{
    addYear("P", "2007", "plain");
    addYear("P", "2007a", "reissued");
    addYear("P", "20", "short");
    EXPECT_EQ(rows(), row("", "reissued"));
}

TEST_F(VersionReport, ComparesYearsByCodeSoThatASmallLetterIsGreater)
{
    addYear("P", "2007B", "capital");
    addYear("P", "2007a", "small");
    EXPECT_EQ(rows(), row("", "small"));
}

TEST_F(VersionReport, HidesAnotherCompanysProductFromTheHouseAndShowsItToThatCompany)
{
    setTitle("P", "Product");
    setCompany("P", "ABC");
    EXPECT_EQ(rows(), kNoProducts);
    sessionState().gsCompanyID = "ABC";
    EXPECT_EQ(rows(), row("Product", ""));
    sessionState().gsCompanyID = "abc";
    EXPECT_EQ(rows(), kNoProducts) << "a company's letters are exact";
}

TEST_F(VersionReport, ShowsAProductWithoutACompanyToTheHouseAlone)
{
    setTitle("P", "Product");
    setTitle("Q", "Own");
    setCompany("Q", "Zorvo");
    EXPECT_EQ(rows(), row("Own", "") + row("Product", ""));
    sessionState().gsCompanyID = "ABC";
    EXPECT_EQ(rows(), kNoProducts);
}

TEST_F(VersionReport, HasOneRowForAFamilyWithNothingToShowAndNoneForAMissingFamily)
{
    EXPECT_EQ(rows(), "");
    fakes.registry->addKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Quillbook");
    EXPECT_EQ(rows(), kNoProducts);
    EXPECT_THAT(page(), HasSubstr("<td><b>Quillbook</b></td><td/></tr>" + std::string(kNoProducts) +
                                  "<tr/><tr><td><b>Tessora</b></td><td/></tr></table>"));
}

TEST_F(VersionReport, ReadsTheMachinesHiveAlone)
{
    fakes.registry->setText(HKEY_CURRENT_USER, familyKey("P"), "Title", "User's");
    EXPECT_EQ(rows(), "");
}

TEST_F(VersionReport, NotesTheOldProductsForTheHouseAlone)
{
    constexpr const char* kNote =
        "</table><p><b>Note: Products not updated since 2003 will not be listed.<b></p></body></html>\r\n";
    EXPECT_THAT(page(), EndsWith(kNote));
    sessionState().gsCompanyID = "ABC";
    EXPECT_THAT(page(), EndsWith("</table></body></html>\r\n"));
}

TEST_F(VersionReport, SortsByTitleWithoutRegardToCaseAndByCodeInATie)
{
    setTitle("A", "beta");
    setTitle("B", "Gamma");
    setTitle("C", "alpha");
    setTitle("D", "Beta");
    setTitle("E", "\u00E4rger");
    setTitle("F", "Zebra");
    EXPECT_EQ(rows(), row("alpha", "") + row("Beta", "") + row("beta", "") + row("Gamma", "") +
                          row("Zebra", "") + row("\u00E4rger", ""));
}

TEST_F(VersionReport, SortsEqualTitlesByTheirVersions)
{
    setTitle("A", "Same");
    addYear("A", "2007", "7");
    setTitle("B", "Same");
    addYear("B", "2006", "6");
    EXPECT_EQ(rows(), row("Same", "6") + row("Same", "7"));
}

TEST_F(VersionReport, KeepsTheYearOfTheProductBeforeForOneThatCantBeOpened)
{
    addYear("A", "2005", "5");
    setTitle("A", "First");
    addYear("B", "2005", "kept");
    setTitle("B", "Second");
    fakes.registry->failOn(HKEY_LOCAL_MACHINE, familyKey("B"), kRegistryAccessDenied);
    EXPECT_EQ(rows(), row("", "kept") + row("First", "5")) << "neither its title nor its years can be read";
}

TEST_F(VersionReport, BeginsWithNoYearForAProductWithNone)
{
    addYear("A", "2005", "5");
    setTitle("A", "First");
    setTitle("B", "Second");
    fakes.registry->addKey(HKEY_LOCAL_MACHINE, familyKey("B") + "\\Setup");
    EXPECT_EQ(rows(), row("First", "5") + row("Second", ""));
}

TEST_F(VersionReport, PutsNamesInAsTheyStand)
{
    setTitle("P", "Bread & <b>Butter</b> \"2007\"");
    addYear("P", "2007", "<7>");
    EXPECT_EQ(rows(), row("Bread & <b>Butter</b> \"2007\"", "<7>"));
}

TEST_F(VersionReport, PassesOverAnEntryThatTheStoreCantNameAndGoesOn)
{
    auto odd = std::make_shared<OddRegistry>(fakes.registry);
    setTitle("A", "First");
    setTitle("B", "Second");
    odd->enumerate(HKEY_LOCAL_MACHINE, "SOFTWARE\\Zorvo\\Quillbook",
                   {{kRegistrySuccess, "A"}, {kRegistryMoreData, "left over"}, {kRegistrySuccess, "B"}});
    platform().registry = odd;
    EXPECT_EQ(rows(), row("First", "") + row("Second", ""));
    for (const std::uint32_t nAccess : {odd->accesses[0], odd->accesses[1]})
        EXPECT_EQ(nAccess, kKeyReadAccess);
}

TEST_F(VersionReport, PassesOverAProductWhoseNameIsTooLong)
{
    setTitle(std::string(2048, 'x'), "Too long");
    setTitle(std::string(2047, 'x'), "Just fits");
    EXPECT_EQ(rows(), row("Just fits", ""));
}

TEST_F(VersionReport, GivesATextWithoutItsLastCharacterWhateverThatIs)
{
    addYear("P", "2006", "6.1");
    EXPECT_EQ(rows(), row("", "6.1"));
    setVersionBytes("P", RegistryType::string, "6.1\u00E4");
    EXPECT_EQ(rows(), row("", "6.1")) << "without a terminator a letter goes, and goes whole";
    setVersionBytes("P", RegistryType::string, std::string(1, '\0'));
    EXPECT_EQ(rows(), row("", ""));
    setVersionBytes("P", RegistryType::string, "");
    EXPECT_EQ(rows(), row("", "")) << "nothing has no last character";
}

TEST_F(VersionReport, GivesALongTextWhole)
{
    const std::string sVersion(70000, 'v');
    addYear("P", "2006", sVersion);
    EXPECT_EQ(rows(), row("", sVersion));
}

TEST_F(VersionReport, GivesANumberAsASignedOne)
{
    setVersionBytes("P", RegistryType::dword, std::string("\x39\x30\0\0", 4));
    EXPECT_EQ(rows(), row("", "12345"));
    setVersionBytes("P", RegistryType::dword, "\xFE\xFF\xFF\xFF");
    EXPECT_EQ(rows(), row("", "-2"));
    setVersionBytes("P", RegistryType::dword, "\x07");
    EXPECT_EQ(rows(), row("", "7")) << "a short number's other bytes are zero";
    setVersionBytes("P", RegistryType::dword, "\x07\x01\x01\x01\x01");
    EXPECT_EQ(rows(), row("", "")) << "a long one doesn't fit";
}

TEST_F(VersionReport, GivesNothingForAValueOfAnotherType)
{
    for (const RegistryType type : {RegistryType::expandString, RegistryType::multiString,
                                    RegistryType::binary, RegistryType::none, RegistryType::qword}) {
        setVersionBytes("P", type, std::string("6.1\0\0\0\0\0", 8));
        EXPECT_EQ(rows(), row("", "")) << static_cast<int>(type);
    }
}

TEST_F(VersionReport, TellsHowAValueFailed)
{
    fakes.registry->setBytes(HKEY_LOCAL_MACHINE, "K", "bytes", RegistryType::binary, "x");
    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(fakes.registry->openKey(HKEY_LOCAL_MACHINE, "K", kKeyReadAccess, key), kRegistrySuccess);
    ReportValue vValue = std::string("before");
    EXPECT_EQ(nGetValueAny(*key, "missing", vValue), kRegistryFileNotFound);
    EXPECT_EQ(nGetValueAny(*key, "bytes", vValue), kOtherValueType);
    EXPECT_EQ(std::get<std::string>(vValue), "before");
}

TEST_F(VersionReport, GivesNothingForAValueOfAKeyThatIsntThere)
{
    EXPECT_EQ(sGetHklmValue("Quillbook\\Gone", "Title"), "");
    EXPECT_EQ(sGetHklmValue("Quillbook\\", "Title"), "");
}

TEST_F(VersionReport, OpensThePageMaximisedFromTheTemporaryFolder)
{
    EXPECT_THAT(page(), StartsWith("<html><title>Latest Version Report</title>"));
    ASSERT_THAT(fakes.launcher->opened, SizeIs(1));
    const auto& opened = fakes.launcher->opened[0];
    EXPECT_EQ(opened.sTarget, kPage) << "the separator is added whatever the folder ends with";
    EXPECT_EQ(opened.sParameters, "0");
    EXPECT_EQ(opened.sDirectory, "C:\\Users\\Test\\Temp\\");
    EXPECT_EQ(opened.show, Launcher::Show::maximised);
    EXPECT_EQ(opened.ownerWindow, kMainWindow);
}

TEST_F(VersionReport, ReplacesThePageAtEachRun)
{
    setTitle("P", "Bulletins");
    EXPECT_THAT(page(), HasSubstr("Bulletins"));
    fakes.registry->removeKey(HKEY_LOCAL_MACHINE, familyKey("P"));
    EXPECT_THAT(page(), Not(HasSubstr("Bulletins")));
}

TEST_F(VersionReport, CutsTheTemporaryFolderAtAZeroCharacter)
{
    fakes.folders->sTemporary = std::string("C:\\Temp\0rest", 12);
    fakes.files->addFolder("C:\\Temp");
    ShowVersionReport(kMainWindow);
    EXPECT_TRUE(fakes.files->content("C:\\Temp\\VersionReport.htm"));
}

TEST_F(VersionReport, OpensNothingThatItCouldntWrite)
{
    fakes.files->failOn(FakeFiles::Operation::write, "", kDiskFull);
    EXPECT_THROW(ShowVersionReport(kMainWindow), RunTimeError);
    EXPECT_THAT(fakes.launcher->opened, IsEmpty());
}

TEST_F(VersionReport, GivesNoMessageForAPageThatCantBeOpened)
{
    fakes.launcher->nOpenResult = 31;
    EXPECT_NO_THROW(ShowVersionReport(kMainWindow));
}

} // namespace
} // namespace zorvo
