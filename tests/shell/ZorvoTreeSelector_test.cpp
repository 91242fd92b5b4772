#include "shell/ZorvoTreeSelector.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "platform/machineAccess.h"
#include "shell/clsAbout.h"
#include "shell/eventMailbox.h"
#include "shell/session.h"
#include "tests/fakes/RecordingObjectService.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/shell/RecordingForms.h"
#include "window/MainFormGate.h"
#include "window/clsMousePointer.h"

#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

class ZorvoTreeSelectorTest : public testing::Test {
protected:
    ZorvoTreeSelectorTest()
    {
        sessionState() = SessionState();
        shellState() = ShellState();
        shellState().forms = &forms;
        platform().service = service;
    }
    ~ZorvoTreeSelectorTest() override { shellState() = ShellState(); }

    bool handOverFileExists() const { return bFileExists(sDFSMarkerPath()); }
    void leaveOldAnswer() { platform().files->write(sDFSMarkerPath(), "\"old\"\r\n"); }

    const FakePlatform fakes;
    std::shared_ptr<RecordingObjectService> service = std::make_shared<RecordingObjectService>();
    RecordingForms forms;
    ZorvoTreeSelector selector;
};

TEST_F(ZorvoTreeSelectorTest, ShowTreeDirectlyShowsTheSplashAndWaitsUntilItsTimerIsAtRest)
{
    forms.onEvents = [this] {
        if (forms.nEventRounds == 3)
            handleEventTimer(forms);
    };
    selector.ShowTreeDirectly();
    EXPECT_THAT(forms.journal, ElementsAre("show splash", "load main form", "tmEvent 2000", "tmEvent 0",
                                           "unload splash", "show main form"));
    EXPECT_EQ(forms.nEventRounds, 3);
}

TEST_F(ZorvoTreeSelectorTest, AClickOnTheSplashEndsTheWait)
{
    forms.onEvents = [this] {
        if (forms.nEventRounds == 1)
            forms.setTmEventInterval(kRequestEndSplash);
        else
            handleEventTimer(forms);
    };
    selector.ShowTreeDirectly();
    EXPECT_THAT(forms.journal, ElementsAre("show splash", "load main form", "tmEvent 2000", "tmEvent 1",
                                           "tmEvent 0", "unload splash", "show main form"));
}

TEST_F(ZorvoTreeSelectorTest, ARaiseThatTakesTheSplashsPlaceInTheTimerStillTakesTheSplashAway)
{
    forms.onEvents = [this] {
        if (forms.nEventRounds == 1)
            selector.ShowTreeDFS();
        else
            handleEventTimer(forms);
    };
    selector.ShowTreeDirectly();
    EXPECT_THAT(forms.journal, ElementsAre("show splash", "load main form", "tmEvent 2000", "tmEvent 252",
                                           "tmEvent 0", "topmost", "tmEvent 250", "tmEvent 0", "not topmost",
                                           "unload splash", "show main form"));
    EXPECT_TRUE(sessionState().bReturnSelection) << "the latest request is the session";
}

TEST_F(ZorvoTreeSelectorTest, AFailureDuringTheWaitGoesToTheClientAndTakesTheSplashAway)
{
    forms.onEvents = [] { throw RunTimeError(kOverflow); };
    EXPECT_THROW(selector.ShowTreeDirectly(), RunTimeError);
    EXPECT_FALSE(forms.bSplashUp);
    EXPECT_FALSE(forms.bShown);
}

TEST_F(ZorvoTreeSelectorTest, ShowTreeDirectlyWithoutSplashShowsTheMainFormAtOnce)
{
    fakes.settings->set("ZorvoBrendle", "Settings", "DisplaySplash", "False");
    selector.ShowTreeDirectly();
    EXPECT_THAT(forms.journal, ElementsAre("load main form", "show main form"));
}

TEST_F(ZorvoTreeSelectorTest, ASecondShowTreeDirectlyOnlyRaisesButReadsSettingsAndDropsTheOldAnswer)
{
    forms.load();
    forms.journal.clear();
    leaveOldAnswer();
    sessionState().bReturnSelection = true;
    sessionState().sSelectedDocuments = "<Documents></Documents>";
    fakes.settings->set("ZorvoBrendle", "Settings", "ShowCurrentOnly", "False");
    selector.ShowTreeDirectly();
    EXPECT_THAT(forms.journal, ElementsAre("tmEvent 252"));
    EXPECT_FALSE(sessionState().bShowCurrentOnly);
    EXPECT_FALSE(handOverFileExists());
    EXPECT_FALSE(sessionState().bReturnSelection) << "a raised partner window becomes a normal session";
    EXPECT_EQ(sessionState().sSelectedDocuments, "");
}

TEST_F(ZorvoTreeSelectorTest, ShowTreeDfsShowsNoSplashAndReadsNoSettings)
{
    fakes.settings->set("ZorvoBrendle", "Settings", "ShowCurrentOnly", "False");
    leaveOldAnswer();
    selector.ShowTreeDFS();
    EXPECT_THAT(forms.journal, ElementsAre("load main form", "show main form"));
    EXPECT_TRUE(sessionState().bShowCurrentOnly);
    EXPECT_TRUE(sessionState().bReturnSelection);
    EXPECT_FALSE(handOverFileExists());
}

TEST_F(ZorvoTreeSelectorTest, ShowTreeDfsRaisesALoadedMainForm)
{
    forms.load();
    forms.journal.clear();
    selector.ShowTreeDFS();
    EXPECT_THAT(forms.journal, ElementsAre("tmEvent 252"));
}

TEST_F(ZorvoTreeSelectorTest, ShowTreeForCompanyStoresTheTextExactlyAsItCame)
{
    forms.load();
    selector.ShowTreeForCompany(" OTR ");
    EXPECT_EQ(GetCompanyID(), " OTR ");
    selector.ShowTreeForCompany("");
    EXPECT_EQ(GetCompanyID(), "Zorvo");
}

TEST_F(ZorvoTreeSelectorTest, ShowEngagementListDfsWritesTheChoiceAndLeavesAProcessWithoutMainFormAlone)
{
    forms.sEngagement = " <selection path=\"C:\\T\"/> ";
    selector.ShowEngagementListDFS();
    EXPECT_THAT(forms.journal, ElementsAre("engagement list"));
    EXPECT_EQ(platform().files->read(sDFSMarkerPath()), "\"<selection path=|C:\\T|/>\"\r\n");
    EXPECT_EQ(service->nEnded, 0);
}

TEST_F(ZorvoTreeSelectorTest, ShowEngagementListDfsReadsTheSettingsAndDropsTheOldAnswerBeforeItIsUp)
{
    fakes.settings->set("ZorvoBrendle", "Settings", "ShowCurrentOnly", "False");
    leaveOldAnswer();
    sessionState().bReturnSelection = true;
    bool bListed = false;
    forms.onEngagementList = [&] {
        bListed = true;
        EXPECT_FALSE(sessionState().bShowCurrentOnly);
        EXPECT_FALSE(handOverFileExists());
        EXPECT_FALSE(sessionState().bReturnSelection);
    };
    selector.ShowEngagementListDFS();
    EXPECT_TRUE(bListed);
}

TEST_F(ZorvoTreeSelectorTest, ShowEngagementListDfsUnloadsALoadedMainFormByItsTimer)
{
    forms.load();
    forms.journal.clear();
    selector.ShowEngagementListDFS();
    EXPECT_THAT(forms.journal, ElementsAre("engagement list", "tmEvent 1500"));
}

TEST_F(ZorvoTreeSelectorTest, ACancelledEngagementListLeavesNoFileOfAnEarlierSession)
{
    leaveOldAnswer();
    selector.ShowEngagementListDFS();
    EXPECT_FALSE(handOverFileExists());
}

TEST_F(ZorvoTreeSelectorTest, MakeTopWindowWithoutMainFormCreatesNothingAndLeavesTheProcessAlone)
{
    selector.makeTopWindow();
    EXPECT_THAT(forms.journal, ElementsAre());
    EXPECT_EQ(service->nEnded, 0);
}

TEST_F(ZorvoTreeSelectorTest, MakeTopWindowLeavesAHiddenMainFormHiddenAndRaisesAShownOne)
{
    forms.load();
    forms.journal.clear();
    selector.makeTopWindow();
    EXPECT_THAT(forms.journal, ElementsAre());
    forms.bShown = true;
    selector.makeTopWindow();
    EXPECT_THAT(forms.journal, ElementsAre("tmEvent 252"));
}

TEST_F(ZorvoTreeSelectorTest, HelpWithoutMainFormShowsHelpAndEndsTheProcessInsideTheCall)
{
    EXPECT_THROW(selector.QBK_Help(), ProcessEnded);
    EXPECT_THAT(forms.journal, ElementsAre("help"));
    EXPECT_EQ(service->nEnded, 1);
}

TEST_F(ZorvoTreeSelectorTest, HelpBesideAShownMainFormLeavesTheProcessAlone)
{
    forms.load();
    forms.bShown = true;
    selector.QBK_Help();
    EXPECT_EQ(service->nEnded, 0);
    EXPECT_EQ(forms.nInterval, 0);
}

TEST_F(ZorvoTreeSelectorTest, AboutWithoutMainFormEndsTheProcess)
{
    EXPECT_THROW(selector.show_aboutDialog(), ProcessEnded);
    EXPECT_THAT(forms.journal, ElementsAre("about"));
}

TEST_F(ZorvoTreeSelectorTest, ASearchWhoseBusyPointerLoadedTheMainFormHiddenUnloadsItByTheTimer)
{
    forms.bSearchLoadsMainForm = true;
    selector.searchSWD();
    EXPECT_THAT(forms.journal, ElementsAre("search", "load main form", "tmEvent 1500"));
    EXPECT_EQ(service->nEnded, 0);
}

TEST_F(ZorvoTreeSelectorTest, ASearchBesideAShownMainFormLeavesTheProcessAlone)
{
    forms.load();
    forms.bShown = true;
    selector.searchSWD();
    EXPECT_EQ(service->nEnded, 0);
    EXPECT_EQ(forms.nInterval, 0);
}

TEST_F(ZorvoTreeSelectorTest, AFailureGoesBackToTheClientWithoutAnEndOfTheProcess)
{
    forms.searchFailure = [] { throw RunTimeError(kOverflow); };
    EXPECT_THROW(selector.searchSWD(), RunTimeError);
    EXPECT_EQ(service->nEnded, 0);
}

TEST_F(ZorvoTreeSelectorTest, AChoiceThatCannotBeWrittenFailsTheCallAndKeepsTheMainForm)
{
    forms.load();
    forms.journal.clear();
    forms.sEngagement = "<selection/>";
    fakes.files->failOn(FakeFiles::Operation::write, "", kPathOrFileAccess);
    EXPECT_THROW(selector.ShowEngagementListDFS(), RunTimeError);
    EXPECT_THAT(forms.journal, ElementsAre("engagement list"));
}

/// A main form's door that counts how often busy work reaches for it.
class CountingGate : public MainFormGate {
public:
    CountingGate() { mainFormGate() = this; }
    ~CountingGate() override { mainFormGate() = nullptr; }
    CountingGate(const CountingGate&) = delete;
    CountingGate& operator=(const CountingGate&) = delete;
    bool isEnabled() override
    {
        ++nAsked;
        return true;
    }
    void setEnabled(bool /*bEnabled*/) override {}

    int nAsked = 0;
};

void workForAMoment()
{
    goMousePointer().setMousePointer(11);
    goMousePointer().setMousePointer(0);
}

TEST_F(ZorvoTreeSelectorTest, BusyWorkReachesForTheMainFormAfterTheAboutBoxButNotDuringIt)
{
    const CountingGate gate;
    forms.onAbout = [] { workForAMoment(); };
    clsAbout().show_QBK_About();
    EXPECT_EQ(gate.nAsked, 0);
    workForAMoment();
    EXPECT_GT(gate.nAsked, 0);
}

TEST_F(ZorvoTreeSelectorTest, BusyWorkReachesForTheMainFormAfterAFailedAboutBoxToo)
{
    const CountingGate gate;
    forms.onAbout = [] { throw RunTimeError(kOverflow); };
    EXPECT_THROW(clsAbout().show_QBK_About(), RunTimeError);
    workForAMoment();
    EXPECT_GT(gate.nAsked, 0);
}

} // namespace
} // namespace zorvo
