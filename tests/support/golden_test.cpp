#include "base/sessionState.h"
#include "base/text.h"
#include "support/SupportHost.h"
#include "support/supportReport.h"
#include "support/versionReport.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/testFolders.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

constexpr const char* kFamilies = "SOFTWARE\\Zorvo\\";

/// As the log is written: each company's own lines, a text with commas, one with quotes.
constexpr const char* kLog =
    "Zorvo 3/4/2024 9:15:02 AM TemplateTree.ZorvoQuickTour Error 5 - Invalid procedure call or argument\r\n"
    "OTR 3/4/2024 9:20:41 AM TreeSupport.ProcessOneDoc Error 5174 - Letter, draft.dot, and 2 others\r\n"
    "\"quoted, as a tool wrote it\",behind\r\n"
    "MRL 3/5/2024 8:00:00 AM \r\n";

/// A machine and a clock that never change, with a case of every kind for both reports. What they must read
/// stands in golden/, worked out from the rules by hand.
class GoldenMachine {
public:
    GoldenMachine();
    ~GoldenMachine();
    GoldenMachine(const GoldenMachine&) = delete;
    GoldenMachine& operator=(const GoldenMachine&) = delete;

    /// A file of golden/.
    static std::string goldenText(const std::string& sName);

    FakePlatform fakes;

private:
    void addProducts();
    void addYear(const std::string& sProduct, const std::string& sYear, const std::string& sVersion);
};

GoldenMachine::GoldenMachine()
{
    sessionState() = SessionState();
    supportHost().mainCaption = [] {
        const std::string& sCompany = sessionState().gsCompanyID;
        return (sCompany == "OTR" ? "OT&R" : sCompany) + "'s Brendle";
    };
    fakes.files->addFile("C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\Brendle.err", kLog);
    addProducts();
}

GoldenMachine::~GoldenMachine()
{
    supportHost() = SupportHost();
    sessionState() = SessionState();
}

void GoldenMachine::addProducts()
{
    FakeRegistry& registry = *fakes.registry;
    const auto product = [&](const char* sKey, const char* sTitle, const char* sCompany) {
        registry.setText(HKEY_LOCAL_MACHINE, kFamilies + std::string(sKey), "Title", sTitle);
        if (sCompany)
            registry.setText(HKEY_LOCAL_MACHINE, kFamilies + std::string(sKey), "Zorvo_Company_Acronym",
                             sCompany);
    };
    product("Quillbook\\NPQ", "nonprofit Organizations", nullptr);
    addYear("Quillbook\\NPQ", "2006", "6.1");
    product("Quillbook\\AUQ", "Zinc & Copper <Mining>", "Zorvo");
    addYear("Quillbook\\AUQ", "1999", "1.9");
    addYear("Quillbook\\AUQ", "2004", "4.0");
    addYear("Quillbook\\AUQ", "20071101", "7.2");
    addYear("Quillbook\\AUQ", "Setup", "none");
    product("Quillbook\\EBQ", "Employee Benefit Plans", nullptr);
    addYear("Quillbook\\EBQ", "2007", "7.0");
    addYear("Quillbook\\EBQ", "2007a", "7.0 reissued");
    product("Quillbook\\OTQ", "Partner Manual", "OTR");
    addYear("Quillbook\\OTQ", "2006", "6.0");
    product("Tessora\\MRLW", "Audit Workbook", "MRL");
    addYear("Tessora\\MRLW", "2007", "2007.1");
    product("Tessora\\MRLA", "\u00C4nderungen", "MRL");
    registry.setBytes(HKEY_LOCAL_MACHINE, kFamilies + std::string("Tessora\\MRLA\\2006\\CurrentVersion"), "",
                      RegistryType::dword, std::string("\x06\0\0\0", 4));
    product("Tessora\\MRLZ", "Ledger", "MRL");
}

void GoldenMachine::addYear(const std::string& sProduct, const std::string& sYear,
                            const std::string& sVersion)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kFamilies + sProduct + "\\" + sYear + "\\CurrentVersion", "",
                            sVersion);
}

std::string GoldenMachine::goldenText(const std::string& sName)
{
    std::string sText = fileBytes((sourceFolder() / "tests/support/golden" / sName).string());
    EXPECT_FALSE(sText.empty()) << sName;
    return sText;
}

class GoldenReports : public testing::TestWithParam<const char*> {
protected:
    GoldenReports() { sessionState().gsCompanyID = GetParam(); }

    GoldenMachine machine;
};

/// The page is one line; its golden file has an element to a line.
TEST_P(GoldenReports, TheVersionReportReadsAsItMust)
{
    ShowVersionReport(0);
    const std::string sPage =
        replaceAll(GoldenMachine::goldenText(std::string("version-report-") + GetParam() + ".htm"), "\n", "");
    EXPECT_EQ(machine.fakes.files->content("C:\\Users\\Test\\Temp\\VersionReport.htm"), sPage + "\r\n");
}

TEST_P(GoldenReports, TheSupportReportReadsAsItMust)
{
    const std::string sFile = WriteSupportReport();
    const std::string sReport =
        GoldenMachine::goldenText(std::string("support-report-") + GetParam() + ".txt");
    EXPECT_EQ(machine.fakes.files->content(sFile), replaceAll(sReport, "\n", "\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Companies, GoldenReports, testing::Values("Zorvo", "OTR", "MRL"),
                         [](const auto& company) { return std::string(company.param); });

} // namespace
} // namespace zorvo
