#include "catalogue/clsHTMLHelp.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "catalogue/basHTMLHelp.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/RecordingHelpViewer.h"

#include <QCoreApplication>
#include <QTimer>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

constexpr const char* kOwnFile = "C:\\Zorvo\\Images\\QBK_HELP.chm";
constexpr const char* kCompanyFile = "C:\\Zorvo\\ABC\\QBK_HELP.chm";
constexpr const char* kCopy = "C:\\Data\\Zorvo\\ABCQBK_HELP.chm";

class HelpTest : public CatalogueTest {
protected:
    HelpTest()
    {
        ReleaseHTMLHelp();
        platform().help = viewer;
        fakes.registry->setText(HKEY_CURRENT_USER,
                                "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                                "AppData", "C:\\Data");
        fakes.files->addFile(kOwnFile, "house");
    }
    ~HelpTest() override { ReleaseHTMLHelp(); }

    std::size_t copies() const
    {
        std::size_t nCopies = 0;
        for (const FakeFiles::Call& call : fakes.files->calls)
            nCopies += call.operation == FakeFiles::Operation::copy ? 1 : 0;
        return nCopies;
    }

    std::shared_ptr<RecordingHelpViewer> viewer = std::make_shared<RecordingHelpViewer>();
};

TEST_F(HelpTest, EachMemberSendsItsCommandAndData)
{
    clsHTMLHelp help;
    help.setHWnd(77);
    help.HTMLHelpContext(5);
    help.HTMLHelpDisplayContentsAndIndex();
    help.HTMLHelpDisplayTOC();
    help.HTMLHelpDisplayTopic();
    ASSERT_THAT(viewer->shown, SizeIs(4));
    const std::pair<int, unsigned> expected[] = {{15, 5}, {2, 0}, {1, 0}, {0, 0}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(viewer->shown[i].command, expected[i].first);
        EXPECT_EQ(viewer->shown[i].nData, expected[i].second);
        EXPECT_EQ(viewer->shown[i].owner, 77U);
        EXPECT_EQ(viewer->shown[i].sHelpFile, kOwnFile);
    }
}

TEST_F(HelpTest, TheViewerComesToTheFrontAndStaysThereForAQuarterOfASecond)
{
    viewer->window = 9;
    clsHTMLHelp help;
    help.HTMLHelpDisplayTOC();
    EXPECT_THAT(viewer->raised, ElementsAre(Pair(9U, true), Pair(9U, false)));
    EXPECT_THAT(fakes.machine->sleeps, ElementsAre(250));
}

TEST_F(HelpTest, PendingEventsRunWhileTheViewerIsTopmost)
{
    clsHTMLHelp help;
    std::size_t nRaised = 0;
    QTimer::singleShot(0, qApp, [&] { nRaised = viewer->raised.size(); });
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(nRaised, 1U);
}

TEST_F(HelpTest, AViewerThatShowsNothingIsNeitherRaisedNorClosed)
{
    viewer->window = 0;
    {
        clsHTMLHelp help;
        help.HTMLHelpDisplayTOC();
    }
    EXPECT_THAT(viewer->shown, SizeIs(1));
    EXPECT_THAT(viewer->raised, IsEmpty());
}

TEST_F(HelpTest, TheEndOfAnInstanceThatShowedHelpClosesAllWindows)
{
    {
        clsHTMLHelp help;
        help.setHWnd(77);
        help.HTMLHelpDisplayTOC();
    }
    ASSERT_THAT(viewer->shown, SizeIs(2));
    EXPECT_EQ(viewer->shown[1].command, HelpViewer::kCloseAll);
    EXPECT_EQ(viewer->shown[1].owner, 0U);
    EXPECT_EQ(viewer->shown[1].sHelpFile, "");
    EXPECT_EQ(viewer->shown[1].nData, 0U);
}

TEST_F(HelpTest, AnInstanceThatShowedNothingClosesNothing)
{
    {
        const clsHTMLHelp help;
        EXPECT_EQ(help.hWnd(), 0U);
    }
    EXPECT_THAT(viewer->shown, IsEmpty());
}

TEST_F(HelpTest, WithNoFileAnywhereTheOneInTheProgramFolderIsAskedFor)
{
    fakes.files->remove(kOwnFile);
    clsHTMLHelp help;
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(viewer->shown.at(0).sHelpFile, "C:\\Zorvo\\QBK_HELP.chm");
}

TEST_F(HelpTest, TheDefaultCompanyReadsTheFileWhereItLiesAndWritesNothing)
{
    clsHTMLHelp help;
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(copies(), 0U);
    EXPECT_FALSE(fakes.files->folderExists("C:\\Data"));
}

TEST_F(HelpTest, AnotherCompanyReadsACopyWithItsNameAsPrefix)
{
    sessionState().gsCompanyID = "ABC";
    fakes.files->addFile(kCompanyFile, "theirs");
    fakes.files->addFile(kCopy, "stale");
    clsHTMLHelp help;
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(viewer->shown.at(0).sHelpFile, kCopy);
    EXPECT_EQ(fakes.files->content(kCopy), "theirs");
}

TEST_F(HelpTest, AnotherCompanyWithoutAFileOfItsOwnReadsACopyOfTheHouses)
{
    sessionState().gsCompanyID = "ABC";
    clsHTMLHelp help;
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(fakes.files->content(kCopy), "house");
}

TEST_F(HelpTest, TwoRequestsInARowCopyOnce)
{
    sessionState().gsCompanyID = "ABC";
    clsHTMLHelp help;
    help.HTMLHelpDisplayTOC();
    help.HTMLHelpContext(1);
    EXPECT_EQ(copies(), 1U);
    EXPECT_EQ(viewer->shown.at(1).sHelpFile, kCopy);
}

TEST_F(HelpTest, AnotherSourceIsCopiedAgain)
{
    clsHTMLHelp help;
    sessionState().gsCompanyID = "ABC";
    help.HTMLHelpDisplayTOC();
    sessionState().gsCompanyID = "DEF";
    fakes.files->addFile("C:\\Zorvo\\DEF\\QBK_HELP.chm", "others");
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(viewer->shown.at(1).sHelpFile, "C:\\Data\\Zorvo\\DEFQBK_HELP.chm");
    EXPECT_EQ(copies(), 2U);
}

TEST_F(HelpTest, TheSameSourceIsntCopiedForANewCompany)
{
    clsHTMLHelp help;
    sessionState().gsCompanyID = "ABC";
    help.HTMLHelpDisplayTOC();
    sessionState().gsCompanyID = "DEF";
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(viewer->shown.at(1).sHelpFile, kCopy);
    EXPECT_EQ(copies(), 1U);
}

TEST_F(HelpTest, AFailedCopyStillGivesTheCopysPathAndIsntTriedAgain)
{
    sessionState().gsCompanyID = "ABC";
    fakes.files->failOn(FakeFiles::Operation::copy, kCopy, kPermissionDenied);
    clsHTMLHelp help;
    help.HTMLHelpDisplayTOC();
    help.HTMLHelpDisplayTOC();
    EXPECT_EQ(viewer->shown.at(0).sHelpFile, kCopy);
    EXPECT_EQ(viewer->shown.at(1).sHelpFile, kCopy);
    EXPECT_EQ(copies(), 1U);
}

TEST_F(HelpTest, ASecondEnsureLeavesTheOwnerAsItWas)
{
    EXPECT_TRUE(EnsureHTMLHelp(11));
    EXPECT_FALSE(EnsureHTMLHelp(22));
    ShowHelpContents();
    EXPECT_EQ(viewer->shown.at(0).owner, 11U);
}

TEST_F(HelpTest, HelpAskedForWithoutAMainWindowNeverGetsAnOwner)
{
    ShowHelpContext(1);
    EnsureHTMLHelp(22);
    ShowHelpContents();
    EXPECT_EQ(viewer->shown.at(0).command, HelpViewer::kContext);
    EXPECT_EQ(viewer->shown.at(0).nData, 1U);
    EXPECT_EQ(viewer->shown.at(0).owner, 0U);
    EXPECT_EQ(viewer->shown.at(1).command, HelpViewer::kDisplayContents);
    EXPECT_EQ(viewer->shown.at(1).owner, 0U);
}

TEST_F(HelpTest, ReleaseClosesTheWindowsAndTheNextRequestMakesANewInstance)
{
    EnsureHTMLHelp(11);
    ShowHelpContents();
    ReleaseHTMLHelp();
    EXPECT_EQ(viewer->shown.at(1).command, HelpViewer::kCloseAll);
    ShowHelpContents();
    EXPECT_EQ(viewer->shown.at(2).owner, 0U);
}

TEST_F(HelpTest, AReleaseWhileTheHelpComesToTheFrontWaitsForTheRequestToEnd)
{
    QTimer::singleShot(0, qApp, [] { ReleaseHTMLHelp(); });
    ShowHelpContents();
    EXPECT_THAT(viewer->raised, ElementsAre(Pair(1U, true), Pair(1U, false)));
    ASSERT_THAT(viewer->shown, SizeIs(2));
    EXPECT_EQ(viewer->shown[1].command, HelpViewer::kCloseAll);
}

} // namespace
} // namespace zorvo
