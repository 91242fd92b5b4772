#include "shell/ReportError.h"

#include "base/failure.h"
#include "base/failureLog.h"
#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "tests/fakes/installFakePlatform.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

constexpr const char* kLogFile = "C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\Brendle.err";
constexpr const char* kStamp = "Zorvo 3/5/2024 14:07:09 ";

class ReportErrorTest : public testing::Test {
protected:
    struct Box {
        std::string sPrompt;
        int nStyle;
        std::string sTitle;
        std::int16_t nPointer;
    };

    ReportErrorTest()
        : reporterBefore_(setFailureReporter({}))
        , handlerBefore_(
              setMessageBoxHandler([this](const std::string& sPrompt, int nStyle, const std::string& sTitle) {
                  boxes.push_back({sPrompt, nStyle, sTitle, screenPointer()});
                  if (whileShown)
                      whileShown();
                  return static_cast<int>(kMsgResultOk);
              }))
    {
        installErrorReporter();
        sessionState() = SessionState();
        captionState() = CaptionState();
        setFailure(0, "");
    }
    ~ReportErrorTest() override
    {
        setMessageBoxHandler(handlerBefore_);
        setFailureReporter(reporterBefore_);
        setFailureLog({});
        setScreenPointer(0);
        sessionState() = SessionState();
        captionState() = CaptionState();
    }

    static void setFailure(std::int32_t nNumber, const std::string& sDescription)
    {
        gnErrNumber = nNumber;
        gsErrDescription = sDescription;
    }

    /// The log's only line without its stamp and its end.
    std::string logged() const
    {
        const std::string sLog = fakes.files->content(kLogFile).value_or("(no log)");
        const std::string sStamp = kStamp;
        EXPECT_TRUE(sLog.starts_with(sStamp) && sLog.ends_with("\r\n")) << sLog;
        return sLog.substr(sStamp.size(), sLog.size() - sStamp.size() - 2);
    }

    void expectBox(const std::string& sPrompt, const std::string& sTitle)
    {
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].sPrompt, sPrompt);
        EXPECT_EQ(boxes[0].sTitle, sTitle);
        EXPECT_EQ(boxes[0].nStyle, kMsgInformation);
    }

    const FakePlatform fakes;
    std::vector<Box> boxes;
    std::function<void()> whileShown;

private:
    FailureReporter reporterBefore_;
    MessageBoxHandler handlerBefore_;
};

TEST_F(ReportErrorTest, AFailureForTheLogAloneIsALineThereAndNoBox)
{
    LogFailure("TreeSupport.ProcessOneDoc Error 61 - Disk full");
    EXPECT_EQ(logged(), "TreeSupport.ProcessOneDoc Error 61 - Disk full");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ReportErrorTest, ATagStandsInTheLogAndInTheTitleBesideTheRawError)
{
    setFailure(5, "Invalid procedure call");
    ReportError("Module.Procedure");
    EXPECT_EQ(logged(), "Module.Procedure Error 5 - Invalid procedure call");
    expectBox("Error 5 - Invalid procedure call", "Zorvo's Brendle:  Module.Procedure");
}

TEST_F(ReportErrorTest, WithoutATagTheLogHasTheRawErrorAlone)
{
    setFailure(5, "Invalid procedure call");
    ReportError();
    EXPECT_EQ(logged(), "Error 5 - Invalid procedure call");
    expectBox("Error 5 - Invalid procedure call", "Zorvo's Brendle");
}

TEST_F(ReportErrorTest, AMessageReplacesTheErrorInTheBoxUnderThePlainTitleButNotInTheLog)
{
    setFailure(53, "File not found");
    ReportError("Module.Procedure", "The picture is gone.");
    EXPECT_EQ(logged(), "Module.Procedure Error 53 - File not found");
    expectBox("The picture is gone.", "Zorvo's Brendle");
}

TEST_F(ReportErrorTest, AnEmptyMessageKeepsTheRawErrorUnderThePlainTitle)
{
    setFailure(53, "File not found");
    ReportError("Module.Procedure", "");
    expectBox("Error 53 - File not found", "Zorvo's Brendle");
}

TEST_F(ReportErrorTest, AMessageWithoutATagIsShownUnderThePlainTitle)
{
    ReportError({}, "Message");
    EXPECT_EQ(logged(), "");
    expectBox("Message", "Zorvo's Brendle");
}

TEST_F(ReportErrorTest, WithoutAnyFailureTheLogTextIsEmptyAndTheBoxSaysSo)
{
    ReportError();
    EXPECT_EQ(fakes.files->content(kLogFile), std::string(kStamp) + "\r\n");
    expectBox("There is no error number and description available.", "Zorvo's Brendle");
}

TEST_F(ReportErrorTest, WithoutAnyFailureATagStandsInTheLogWithABlankBehindIt)
{
    ReportError("Module.Procedure");
    EXPECT_EQ(logged(), "Module.Procedure ");
    expectBox("There is no error number and description available.", "Zorvo's Brendle:  Module.Procedure");
}

TEST_F(ReportErrorTest, ANumberWithoutADescriptionEndsInADashInLogAndBox)
{
    setFailure(5, "");
    ReportError("Module.Procedure");
    EXPECT_EQ(logged(), "Module.Procedure Error 5 - ");
    expectBox("Error 5 - ", "Zorvo's Brendle:  Module.Procedure");
}

TEST_F(ReportErrorTest, ANegativeNumberKeepsItsSign)
{
    setFailure(-2147024894, "Gone");
    ReportError();
    EXPECT_EQ(logged(), "Error -2147024894 - Gone");
}

TEST_F(ReportErrorTest, QuietWhateverItsValueLogsAndShowsNothing)
{
    setFailure(5, "Invalid procedure call");
    ReportError("Module.Procedure", {}, true);
    ReportError("Module.Procedure", {}, false);
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(fakes.files->content(kLogFile), std::nullopt);
    ReportError("Module.Procedure");
    EXPECT_EQ(boxes.size(), 1U) << "a quiet report leaves no report running";
}

TEST_F(ReportErrorTest, AReportDuringAReportIsDroppedWhole)
{
    setFailure(5, "First");
    whileShown = [] {
        setFailure(6, "Second");
        ReportError("Other.Procedure");
    };
    ReportError("Module.Procedure");
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_EQ(logged(), "Module.Procedure Error 5 - First");
}

TEST_F(ReportErrorTest, TheNextReportAfterTheBoxIsTold)
{
    ReportError("One");
    ReportError("Two");
    EXPECT_EQ(boxes.size(), 2U);
    EXPECT_EQ(fakes.files->content(kLogFile), std::string(kStamp) + "One \r\n" + kStamp + "Two \r\n");
}

TEST_F(ReportErrorTest, TheBoxStandsUnderTheDefaultPointerAndTheBusyOneComesBack)
{
    setScreenPointer(11);
    ReportError("Module.Procedure");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].nPointer, 0);
    EXPECT_EQ(screenPointer(), 11);
}

TEST_F(ReportErrorTest, TheFailureIsNotClearedByItsReport)
{
    setFailure(5, "Invalid procedure call");
    ReportError("Module.Procedure");
    EXPECT_EQ(gnErrNumber, 5);
    EXPECT_EQ(gsErrDescription, "Invalid procedure call");
}

class ReportWithoutALog : public ReportErrorTest, public testing::WithParamInterface<int> {};

TEST_P(ReportWithoutALog, StillShowsTheBox)
{
    fakes.files->failOn(FakeFiles::Operation::append, "", GetParam());
    fakes.files->failOn(FakeFiles::Operation::makeFolder, "", GetParam());
    setFailure(5, "Invalid procedure call");
    ReportError("Module.Procedure");
    expectBox("Error 5 - Invalid procedure call", "Zorvo's Brendle:  Module.Procedure");
}

INSTANTIATE_TEST_SUITE_P(FullOrReadOnly, ReportWithoutALog,
                         testing::Values(kDiskFull, kPermissionDenied, kPathOrFileAccess));

TEST_F(ReportErrorTest, AFailingBoxIsIgnoredAndEndsTheReport)
{
    setScreenPointer(13);
    whileShown = [] { throw RunTimeError(kInvalidCall); };
    EXPECT_NO_THROW(ReportError("One"));
    EXPECT_EQ(screenPointer(), 13);
    whileShown = nullptr;
    ReportError("Two");
    EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(ReportErrorTest, TheBoxIsInTheCompanysWordingAndTheLogIsNot)
{
    StoreCompanyID("ABC");
    setFailure(5, "Zorvo can't be reached");
    ReportError("TemplateTree.ZorvoQuickTour");
    EXPECT_EQ(fakes.files->content(kLogFile),
              "ABC 3/5/2024 14:07:09 TemplateTree.ZorvoQuickTour Error 5 - Zorvo can't be reached\r\n");
    expectBox("Error 5 - ABC can't be reached", "ABC's Brendle:  TemplateTree.ZorvoQuickTour");
}

} // namespace
} // namespace zorvo
