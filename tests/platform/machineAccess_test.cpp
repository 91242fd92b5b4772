#include "platform/machineAccess.h"

#include "base/RunTimeError.h"
#include "base/failure.h"
#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

class MachineAccess : public testing::Test {
protected:
    struct Report {
        std::optional<std::string> sTag;
        std::optional<std::string> sMessage;
        std::optional<bool> bQuiet;
    };

    MachineAccess()
    {
        before = setFailureReporter([this](const auto& sTag, const auto& sMessage, const auto& bQuiet) {
            reports.push_back({sTag, sMessage, bQuiet});
        });
        gnErrNumber = 0;
        gsErrDescription.clear();
    }
    ~MachineAccess() override { setFailureReporter(before); }

    std::vector<std::string> foldersMade() const
    {
        std::vector<std::string> made;
        for (const FakeFiles::Call& call : fakes.files->calls)
            if (call.operation == FakeFiles::Operation::makeFolder)
                made.push_back(call.sPath);
        return made;
    }

    const FakePlatform fakes;
    FailureReporter before;
    std::vector<Report> reports;
};

TEST_F(MachineAccess, TheProgramFolderHasABackslashWhenAskedFor)
{
    fakes.folders->sProgram = "C:\\Zorvo";
    EXPECT_EQ(GetZorvoPath(false), "C:\\Zorvo");
    EXPECT_EQ(GetZorvoPath(true), "C:\\Zorvo\\");
    fakes.folders->sProgram = "C:\\";
    EXPECT_EQ(GetZorvoPath(true), "C:\\");
    EXPECT_TRUE(reports.empty());
}

TEST_F(MachineAccess, TheProgramFolderEndsAtItsFirstZero)
{
    fakes.folders->sProgram = std::string("C:\\Zorvo\0   ", 12);
    EXPECT_EQ(GetZorvoPath(true), "C:\\Zorvo\\");
}

TEST_F(MachineAccess, AMissingProgramFolderIsReportedWithAdvice)
{
    fakes.folders->sProgram.clear();
    EXPECT_EQ(GetZorvoPath(true), "");
    EXPECT_EQ(gnErrNumber, 13);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].sTag, "basBranding.GetZorvoPath");
    EXPECT_EQ(reports[0].sMessage,
              "There is an error retrieving the Brendle Addins installation directory.\r\n\r\n"
              "Please first repair or then uninstall to re-install Zorvo's Brendle to fix.\r\n\r\n"
              "If this problem persists please contact Zorvo Support at (800) 555-0142.");
    EXPECT_FALSE(reports[0].bQuiet);
}

TEST_F(MachineAccess, TheDocumentsFolderIsJoinedWithWhatIsBelowIt)
{
    fakes.folders->sDocuments = "C:\\Docs";
    std::string sPath = "left over";
    EXPECT_TRUE(bGetDocsFolder(sPath));
    EXPECT_EQ(sPath, "C:\\Docs");
    EXPECT_TRUE(bGetDocsFolder(sPath, "\\Halvern House\\Brendle\\"));
    EXPECT_EQ(sPath, "C:\\Docs\\Halvern House\\Brendle\\");
    EXPECT_TRUE(foldersMade().empty());
}

TEST_F(MachineAccess, TheDocumentsFolderIsMadeWheneverTheChoiceIsGiven)
{
    for (const bool bCreate : {true, false}) {
        const std::string sSub = bCreate ? "Yes\\Deep" : "No";
        std::string sPath;
        EXPECT_TRUE(bGetDocsFolder(sPath, sSub, bCreate));
        EXPECT_TRUE(fakes.files->folderExists(sPath)) << sPath;
    }
}

TEST_F(MachineAccess, WithoutADocumentsFolderThePathIsEmpty)
{
    fakes.folders->sDocuments.clear();
    std::string sPath = "left over";
    EXPECT_FALSE(bGetDocsFolder(sPath, "Sub", true));
    EXPECT_EQ(sPath, "");
    EXPECT_TRUE(foldersMade().empty());
    EXPECT_TRUE(reports.empty());
}

TEST_F(MachineAccess, TheApplicationDataFolderIsAValueOfTheRegistry)
{
    EXPECT_EQ(sGetAppDataFolder(), "");
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kShellFolders, "AppData", "C:\\Other");
    EXPECT_EQ(sGetAppDataFolder(), "");
    fakes.registry->setText(HKEY_CURRENT_USER, kShellFolders, "AppData", "C:\\Data");
    EXPECT_EQ(sGetAppDataFolder(), "C:\\Data");
}

TEST_F(MachineAccess, ASpecialFolderThatIsNotKnownIsEmpty)
{
    fakes.folders->specials = {{5, "C:\\Docs"}, {32, std::string("C:\\Cache\0xx", 11)}};
    EXPECT_EQ(GetSpecialFolder(5), "C:\\Docs");
    EXPECT_EQ(GetSpecialFolder(32), "C:\\Cache");
    EXPECT_EQ(GetSpecialFolder(19), "");
}

TEST_F(MachineAccess, ARegistryValueThatCannotBeReadIsItsDefault)
{
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "v"), "");
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "v", "default"), "default");
    fakes.registry->addKey(HKEY_CURRENT_USER, "K");
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "v", "default"), "default");
    fakes.registry->setText(HKEY_CURRENT_USER, "K", "v", "");
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "v", "default"), "");
    EXPECT_EQ(sGetRegValue(kHiveNone, "K", "v", "default"), "default");
}

TEST_F(MachineAccess, ARegistryValueIsTextUpToItsFirstZeroWhateverItsType)
{
    fakes.registry->setBytes(HKEY_CURRENT_USER, "K", "v", RegistryType::multiString,
                             std::string("a\0b\0\0", 5));
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "v"), "a");
    fakes.registry->setBytes(HKEY_CURRENT_USER, "K", "v", RegistryType::dword, std::string("AB\0\0", 4));
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "v"), "AB");
    fakes.registry->setBytes(HKEY_CURRENT_USER, "K", "", RegistryType::expandString, "%A% no zero");
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", ""), "%A% no zero");
}

TEST_F(MachineAccess, ARegistryValueFitsItsBufferOrIsItsDefault)
{
    fakes.registry->setText(HKEY_CURRENT_USER, "K", "fits", std::string(2047, 'x'));
    fakes.registry->setText(HKEY_CURRENT_USER, "K", "too long", std::string(2048, 'x'));
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "fits").size(), 2047U);
    EXPECT_EQ(sGetRegValue(HKEY_CURRENT_USER, "K", "too long", "default"), "default");
}

TEST_F(MachineAccess, AFileExistsWhenItIsAPlainFile)
{
    fakes.files->addFile("C:\\dir\\.file");
    EXPECT_TRUE(bFileExists("C:\\DIR\\.FILE"));
    EXPECT_FALSE(bFileExists("C:\\dir"));
    EXPECT_FALSE(bFileExists("C:\\dir\\*"));
    EXPECT_FALSE(bFileExists(""));
}

TEST_F(MachineAccess, ANestedFolderIsMadeLevelByLevel)
{
    MakeNestedFolder("C:\\a\\b\\c");
    EXPECT_EQ(foldersMade(), (std::vector<std::string>{"C:\\a", "C:\\a\\b", "C:\\a\\b\\c"}));
    EXPECT_TRUE(fakes.files->folderExists("C:\\a\\b\\c"));
}

TEST_F(MachineAccess, AFolderThatIsThereIsNotMadeAgain)
{
    fakes.files->addFolder("C:\\a\\b");
    MakeNestedFolder("C:\\a\\b");
    EXPECT_TRUE(foldersMade().empty());
    MakeNestedFolder("C:\\a\\b\\c"); // its levels that are there just fail
    EXPECT_TRUE(fakes.files->folderExists("C:\\a\\b\\c"));
}

TEST_F(MachineAccess, AFolderThatCannotBeMadeIsNoFailure)
{
    fakes.files->failOn(FakeFiles::Operation::makeFolder, "", kPermissionDenied);
    MakeNestedFolder("C:\\a\\b");
    EXPECT_EQ(foldersMade().size(), 2U);
    MakeNestedFolder("");
    EXPECT_TRUE(reports.empty());
}

TEST_F(MachineAccess, ACopyMakesTheFolderOfItsTarget)
{
    fakes.files->addFile("C:\\from.txt", "x");
    CopyFileMakingFolder("C:\\from.txt", "C:\\new\\deep\\to.txt");
    EXPECT_EQ(fakes.files->content("C:\\new\\deep\\to.txt"), "x");
}

TEST_F(MachineAccess, ACopyThatFailsRaises)
{
    EXPECT_THROW(CopyFileMakingFolder("C:\\none.txt", "C:\\new\\to.txt"), RunTimeError);
    fakes.files->addFile("C:\\from.txt", "x");
    fakes.files->failOn(FakeFiles::Operation::copy, "C:\\to.txt", kDiskFull);
    EXPECT_THROW(CopyFileMakingFolder("C:\\from.txt", "C:\\to.txt"), RunTimeError);
}

TEST_F(MachineAccess, ADeletionClearsTheAttributesFirstAndBearsEverything)
{
    fakes.files->addFile("C:\\a.txt");
    fakes.files->setReadOnly("C:\\a.txt", true);
    DeleteFileQuietly("C:\\a.txt");
    ASSERT_EQ(fakes.files->calls.size(), 2U);
    EXPECT_EQ(fakes.files->calls[0].operation, FakeFiles::Operation::clearAttributes);
    EXPECT_EQ(fakes.files->calls[1].operation, FakeFiles::Operation::remove);
    EXPECT_FALSE(fakes.files->fileExists("C:\\a.txt"));
    DeleteFileQuietly("C:\\a.txt");
    fakes.files->addFile("C:\\b.txt");
    fakes.files->failOn(FakeFiles::Operation::clearAttributes, "", kPermissionDenied);
    DeleteFileQuietly("C:\\b.txt"); // the deletion is still tried
    EXPECT_FALSE(fakes.files->fileExists("C:\\b.txt"));
}

} // namespace
} // namespace zorvo
