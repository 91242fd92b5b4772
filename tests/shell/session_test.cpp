#include "shell/session.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "platform/machineAccess.h"
#include "shell/shellState.h"
#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

class SessionTest : public testing::Test {
protected:
    SessionTest()
    {
        sessionState() = SessionState();
        shellState() = ShellState();
    }

    const FakePlatform fakes;
};

TEST_F(SessionTest, TheHandOverFileLiesBelowTheDocumentsFolderAndItsFolderIsMade)
{
    std::string sDocuments;
    ASSERT_TRUE(bGetDocsFolder(sDocuments));
    EXPECT_EQ(sDFSMarkerPath(), sDocuments + "\\Halvern House\\Brendle\\DFS_DFK.txt");
    EXPECT_TRUE(platform().files->folderExists(sDocuments + "\\Halvern House\\Brendle"));
}

TEST_F(SessionTest, ThePathIsBuiltOnceForTheLifeOfTheProcess)
{
    const std::string sFirst = sDFSMarkerPath();
    fakes.folders->sDocuments = "D:\\Elsewhere";
    EXPECT_EQ(sDFSMarkerPath(), sFirst);
}

TEST_F(SessionTest, InitSessionDropsAReadOnlyAnswerOfAnEarlierSession)
{
    fakes.files->addFile(sDFSMarkerPath(), "\"old\"\r\n");
    fakes.files->setReadOnly(sDFSMarkerPath(), true);
    InitSession(true);
    EXPECT_FALSE(bFileExists(sDFSMarkerPath()));
    EXPECT_TRUE(sessionState().bReturnSelection);
    InitSession(false);
    EXPECT_FALSE(sessionState().bReturnSelection);
}

TEST_F(SessionTest, TheTextIsWrittenAsOneQuotedLine)
{
    std::string sText = "<Documents></Documents>";
    WriteDFSResult(sText);
    EXPECT_EQ(platform().files->read(sDFSMarkerPath()), "\"<Documents></Documents>\"\r\n");
}

TEST_F(SessionTest, ApostropheDashAndDoubleQuoteAreReplacedInTheWholeText)
{
    std::string sText = "a\u2019b\u2019 c\u2014d \"e\"";
    WriteDFSResult(sText);
    EXPECT_EQ(platform().files->read(sDFSMarkerPath()), "\"a'b' c-d |e|\"\r\n");
}

TEST_F(SessionTest, TheCallersTextIsTrimmed)
{
    std::string sText = "  x  ";
    WriteDFSResult(sText);
    EXPECT_EQ(sText, "x");
    EXPECT_EQ(platform().files->read(sDFSMarkerPath()), "\"x\"\r\n");
}

TEST_F(SessionTest, ATextOfBlanksOnlyWritesNoFile)
{
    std::string sText = "    ";
    WriteDFSResult(sText);
    EXPECT_FALSE(bFileExists(sDFSMarkerPath()));
}

TEST_F(SessionTest, TheFileIsReplacedNotAppendedTo)
{
    std::string sText = "a much longer first answer";
    WriteDFSResult(sText);
    sText = "b";
    WriteDFSResult(sText);
    EXPECT_EQ(platform().files->read(sDFSMarkerPath()), "\"b\"\r\n");
}

TEST_F(SessionTest, AFailureToWriteReachesTheCaller)
{
    std::string sText = "x";
    sDFSMarkerPath();
    fakes.files->failOn(FakeFiles::Operation::write, "", kPathOrFileAccess);
    EXPECT_THROW(WriteDFSResult(sText), RunTimeError);
}

TEST_F(SessionTest, AHandOverFileThatCannotBeDeletedIsIgnored)
{
    platform().files->write(sDFSMarkerPath(), "\"old\"\r\n");
    fakes.files->failOn(FakeFiles::Operation::remove, "", kPermissionDenied);
    EXPECT_NO_THROW(InitSession(false));
}

} // namespace
} // namespace zorvo
