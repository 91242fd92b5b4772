#include "support/supportReport.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "support/SupportHost.h"
#include "support/versionText.h"
#include "tests/fakes/installFakePlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFolder = "C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\";
constexpr const char* kHead = "The caption properties as of Tuesday, Mar 5 2024 02:07:09 PM\r\n\r\n"
                              "LOG REFERENCES -----\r\n";
constexpr const char* kViewerKey = "SOFTWARE\\Microsoft\\SharedTools\\MSInfo\\Path";
constexpr const char* kDocumentKey = "SOFTWARE\\Classes\\MSInfo.Document\\shell\\open\\command";

int failureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

class SupportReport : public testing::Test {
protected:
    SupportReport()
    {
        sessionState() = SessionState();
        supportHost().mainCaption = [] { return std::string("The caption"); };
    }
    ~SupportReport() override
    {
        supportHost() = SupportHost();
        sessionState() = SessionState();
    }

    void setLog(const std::string& sText)
    {
        fakes.files->addFile(std::string(kFolder) + "Brendle.err", sText);
    }
    std::string report(const std::string& sCompany = "Zorvo") const
    {
        return fakes.files->content(kFolder + sCompany + "SysOut.txt").value_or("(no report)");
    }
    /// What the report has below its heading.
    std::string body()
    {
        WriteSupportReport();
        const std::string sReport = report();
        EXPECT_THAT(sReport, testing::StartsWith(kHead));
        return sReport.substr(std::string(kHead).size());
    }

    FakePlatform fakes;
};

TEST_F(SupportReport, WithNoLogHasTitleBlankLineHeadingSentenceAndBlankLine)
{
    EXPECT_EQ(WriteSupportReport(), std::string(kFolder) + "ZorvoSysOut.txt");
    EXPECT_EQ(report(), std::string(kHead) + "There are no entries in the error log.\r\n\r\n");
}

TEST_F(SupportReport, MakesItsFolderAndReplacesTheLastReport)
{
    EXPECT_FALSE(fakes.files->folderExists(kFolder));
    WriteSupportReport();
    const std::string sFirst = report();
    WriteSupportReport();
    EXPECT_EQ(report(), sFirst);
}

TEST_F(SupportReport, TellsTheTimeOnTheTwelveHourClock)
{
    const auto title = [this](int nHour) {
        fakes.machine->time.hour = nHour;
        WriteSupportReport();
        return report().substr(0, report().find("\r\n"));
    };
    EXPECT_THAT(title(0), testing::EndsWith(" 12:07:09 AM"));
    EXPECT_THAT(title(1), testing::EndsWith(" 01:07:09 AM"));
    EXPECT_THAT(title(12), testing::EndsWith(" 12:07:09 PM"));
    EXPECT_THAT(title(23), testing::EndsWith(" 11:07:09 PM"));
}

TEST_F(SupportReport, CarriesTheCompanyInItsNameButNotInTheLogs)
{
    sessionState().gsCompanyID = "ABC";
    setLog("a,b");
    EXPECT_EQ(WriteSupportReport(), std::string(kFolder) + "ABCSysOut.txt");
    EXPECT_EQ(report("ABC"), std::string(kHead) + "a\r\n");
}

TEST_F(SupportReport, CopiesALogOf16383Bytes)
{
    setLog(std::string(16380, 'x') + ",\r\n");
    EXPECT_EQ(body(), std::string(16380, 'x') + "\r\n");
}

TEST_F(SupportReport, OnlyNamesALogOf16384Bytes)
{
    setLog(std::string(16384, 'x'));
    EXPECT_EQ(body(), "The entry log is too long to display. Use Notepad to review the file "
                      "\"C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\Brendle.err\".\r\n\r\n");
}

TEST_F(SupportReport, NeverWritesTheLastItemOfTheLog)
{
    setLog("a,b,c");
    EXPECT_EQ(body(), "a\r\nb\r\n");
    setLog("a,b,c\r\n");
    EXPECT_EQ(body(), "a\r\nb\r\n");
}

TEST_F(SupportReport, EndsAnItemAtACommaOrALineEnd)
{
    setLog("one, two\r\n\r\nthree\nfour\rfive\r\n");
    EXPECT_EQ(body(), "one\r\n two\r\n\r\nthree\r\nfour\r\n");
}

TEST_F(SupportReport, TakesTheQuotesOffAQuotedItemAndKeepsWhatTheyHold)
{
    setLog("\"a,b\",say \"c\"\r\n\"d\" ,e\r\nlast");
    EXPECT_EQ(body(), "a,b\r\nsay \"c\"\r\nd\r\ne\r\n");
}

TEST_F(SupportReport, BearsAQuoteThatIsNeverClosed)
{
    setLog("a,\"b,c");
    EXPECT_EQ(body(), "a\r\n");
}

TEST_F(SupportReport, FailsAtTheEndOfAnEmptyLogAndKeepsItsHead)
{
    setLog("");
    EXPECT_EQ(failureOf([] { WriteSupportReport(); }), kInputPastEnd);
    EXPECT_EQ(report(), kHead);
}

TEST_F(SupportReport, StaysEmptyWhenTheCaptionCantBeRead)
{
    WriteSupportReport();
    supportHost().mainCaption = []() -> std::string { throw RunTimeError(kOverflow); };
    EXPECT_EQ(failureOf([] { WriteSupportReport(); }), kOverflow);
    EXPECT_EQ(report(), "") << "the last report is gone: the new one was open by then";
}

TEST_F(SupportReport, DoesNotAskForTheCaptionWhenItCantBeWritten)
{
    supportHost().mainCaption = [] {
        ADD_FAILURE() << "reading it loads the main window";
        return std::string();
    };
    fakes.files->failOn(FakeFiles::Operation::write, std::string(kFolder) + "ZorvoSysOut.txt",
                        kPermissionDenied);
    EXPECT_EQ(failureOf([] { WriteSupportReport(); }), kPermissionDenied);
}

TEST_F(SupportReport, HasNothingOfALogThatIsOneHugeLine)
{
    setLog(std::string(16383, 'x'));
    EXPECT_EQ(body(), "") << "its one item is the last";
}

TEST_F(SupportReport, KeepsItsHeadWhenTheLogCantBeRead)
{
    setLog("a,b,c");
    fakes.files->failOn(FakeFiles::Operation::read, std::string(kFolder) + "Brendle.err", kPermissionDenied);
    EXPECT_EQ(failureOf([] { WriteSupportReport(); }), kPermissionDenied);
    EXPECT_EQ(report(), kHead);
}

TEST_F(SupportReport, TakesAFolderInTheLogsPlaceForNoLog)
{
    fakes.files->addFolder(std::string(kFolder) + "Brendle.err");
    EXPECT_EQ(body(), "There are no entries in the error log.\r\n\r\n");
}

TEST_F(SupportReport, CantBeWrittenWithoutADocumentsFolder)
{
    fakes.folders->sDocuments.clear();
    supportHost().mainCaption = [] {
        ADD_FAILURE() << "reading it loads the main window";
        return std::string();
    };
    EXPECT_NE(failureOf([] { WriteSupportReport(); }), 0);
}

TEST_F(SupportReport, MakesADocumentsFolderThatIsntThere)
{
    fakes.folders->sDocuments = "C:\\Users\\New\\Documents";
    EXPECT_EQ(WriteSupportReport(), "C:\\Users\\New\\Documents\\Halvern House\\Brendle\\ZorvoSysOut.txt");
}

TEST_F(SupportReport, TakesTheViewersCommandWhateverTheTypeOfItsValue)
{
    const std::string sCommand("%windir%\0", 9);
    fakes.registry->setBytes(HKEY_LOCAL_MACHINE, kViewerKey, "", RegistryType::expandString, sCommand);
    EXPECT_EQ(failureOf([] { StartInformationViewer(); }), kInvalidCall) << "it isn't expanded";
    fakes.registry->setBytes(HKEY_LOCAL_MACHINE, kViewerKey, "", RegistryType::dword,
                             std::string("A\0\0\0", 4));
    StartInformationViewer();
    EXPECT_THAT(fakes.launcher->started, ElementsAre("A"));
}

TEST_F(SupportReport, GoesToTheSecondKeyWhenTheFirstOnesValueDoesntFit)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kViewerKey, "", std::string(2048, 'v'));
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kDocumentKey, "", "other");
    StartInformationViewer();
    EXPECT_THAT(fakes.launcher->started, ElementsAre("other"));
}

TEST_F(SupportReport, StartsTheInformationViewerThatTheFirstKeyNames)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kViewerKey, "", "C:\\Info\\info.exe");
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kDocumentKey, "", "C:\\Other\\other.exe");
    StartInformationViewer();
    EXPECT_THAT(fakes.launcher->started, ElementsAre("C:\\Info\\info.exe"));
}

TEST_F(SupportReport, CutsTheArgumentOffTheViewersCommand)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kDocumentKey, "", "C:\\Info\\info.exe \"%1\" /x %2");
    StartInformationViewer();
    EXPECT_THAT(fakes.launcher->started, ElementsAre("C:\\Info\\info.exe"));
}

TEST_F(SupportReport, CutsThreeCharactersWhateverTheyAre)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kDocumentKey, "", " \xC3\xA4 \xC3\xB6\xC3\xBC%1");
    StartInformationViewer();
    EXPECT_THAT(fakes.launcher->started, ElementsAre("\xC3\xA4"));
}

TEST_F(SupportReport, FailsForAViewersCommandThatIsAllArgument)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, kDocumentKey, "", "\"%1\"");
    EXPECT_EQ(failureOf([] { StartInformationViewer(); }), kInvalidCall);
    EXPECT_THAT(fakes.launcher->started, IsEmpty());
}

TEST_F(SupportReport, StartsNothingWithNeitherKey)
{
    StartInformationViewer();
    EXPECT_THAT(fakes.launcher->started, IsEmpty());
}

TEST_F(SupportReport, GivesTheVersionAsTextAndStoresItWithoutACompanysPrefix)
{
    sessionState().gsCompanyID = "ABC";
    const std::string sText = GetVersionText();
    EXPECT_THAT(sText, testing::MatchesRegex("Version [0-9]+\\.[0-9]+\\.0\\.[0-9]+"));
    EXPECT_EQ(fakes.settings->get("ZorvoBrendle", "Settings", "Version"), sText);
}

TEST_F(SupportReport, GivesTheVersionAlsoWhenItCantBeStored)
{
    fakes.settings->nFailWrites = kPermissionDenied;
    EXPECT_THAT(GetVersionText(), testing::StartsWith("Version "));
}

} // namespace
} // namespace zorvo
