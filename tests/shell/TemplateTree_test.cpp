#include "shell/forms/TemplateTree.h"

#include "base/RunTimeError.h"
#include "base/failure.h"
#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "creation/creationState.h"
#include "platform/Files.h"
#include "platform/machineAccess.h"
#include "shell/ZorvoTreeSelector.h"
#include "shell/eventMailbox.h"
#include "shell/session.h"
#include "shell/shellState.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/shell/MainFormTest.h"
#include "tree/treeState.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanels.h"
#include "window/ToolBands.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class TemplateTreeTest : public MainFormTest {
protected:
    std::vector<std::string> treeTexts()
    {
        std::vector<std::string> texts;
        for (int i = 1; i <= form().tree().count(); ++i)
            texts.push_back(form().tree().item(i).text());
        return texts;
    }
    QAction* toolbarAction(const char* id)
    {
        for (QAction* action : form().findChild<ToolBands*>()->toolBar()->actions()) {
            if (action->objectName() == QLatin1String(id))
                return action;
        }
        return nullptr;
    }
    void select(const char* sKey) { form().tree().setSelected(*form().tree().find(sKey), true); }
    QString description() { return form().findChild<MnemonicLabel*>(QStringLiteral("lblDesc"))->text(); }
};

TEST_F(TemplateTreeTest, LoadingFillsTreeAndListBarWithTheCurrentYears)
{
    EXPECT_EQ(shellState().gfrmMain, nullptr);
    EXPECT_EQ(shellState().gfrmMain, &form());
    EXPECT_THAT(treeTexts(), ElementsAre("Tessora", "Audit", "Planning", "Planning memo", "Trial balance",
                                         "Letter", "Sablewood Libraries", "Library 2006", "Guide"));
    EXPECT_EQ(form().findChild<ListBar*>()->groups().count(), 3);
}

TEST_F(TemplateTreeTest, TheCompanysCaptionReplacesThatOfTheCaptionDocument)
{
    EXPECT_EQ(form().caption(), "Zorvo's Brendle");
}

TEST_F(TemplateTreeTest, TheFrameworkIsConnectedWithTheFormsOwnCaption)
{
    form();
    EXPECT_EQ(shellState().sActXCaption, "Zorvo's Brendle");
    EXPECT_NE(shellState().objActXManager, nullptr);
}

TEST_F(TemplateTreeTest, SixPanelsStandInTheStatusBarAndNoneIsAddedTwice)
{
    EXPECT_EQ(form().findChild<StatusPanels*>()->count(), 6);
}

TEST_F(TemplateTreeTest, LoadingEndsWithNothingBusyAndCommandsOpen)
{
    form();
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_FALSE(sessionState().gbLoading);
    EXPECT_TRUE(form().isEnabled());
}

TEST_F(TemplateTreeTest, ABusyPointerLoadsTheMainFormHidden)
{
    goMousePointer().setMousePointer(11);
    ASSERT_NE(shellState().gfrmMain, nullptr);
    EXPECT_FALSE(form().isVisible());
    EXPECT_FALSE(form().isEnabled());
    goMousePointer().setMousePointer(0);
    EXPECT_TRUE(form().isEnabled());
}

TEST_F(TemplateTreeTest, UnderTheModalStateABusyPointerLoadsNoForm)
{
    goMousePointer().SetModalDialogState(true);
    goMousePointer().setMousePointer(11);
    EXPECT_EQ(shellState().gfrmMain, nullptr);
    goMousePointer().setMousePointer(0);
    goMousePointer().SetModalDialogState(false);
}

TEST_F(TemplateTreeTest, AFailedLoadReachesItsCallerAndLeavesNoMainForm)
{
    store("MainState", "99999");
    EXPECT_THROW(form(), RunTimeError);
    EXPECT_EQ(shellState().gfrmMain, nullptr);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(TemplateTreeTest, AFailedLoadLeavesTheHelpWithoutItsWindow)
{
    const auto viewer = std::make_shared<RecordingHelpViewer>();
    platform().help = viewer;
    store("MainState", "99999");
    EXPECT_THROW(form(), RunTimeError);
    ShowHelpContents();
    ASSERT_EQ(viewer->shown.size(), 1U);
    EXPECT_EQ(viewer->shown[0].owner, 0U);
    ReleaseHTMLHelp();
}

TEST_F(TemplateTreeTest, AFailedLoadLeavesHelpThatWasOpenBefore)
{
    const auto viewer = std::make_shared<RecordingHelpViewer>();
    platform().help = viewer;
    ShowHelpContents();
    store("MainState", "99999");
    EXPECT_THROW(form(), RunTimeError);
    EXPECT_EQ(viewer->shown.size(), 1U) << "nothing is closed";
    ReleaseHTMLHelp();
}

TEST_F(TemplateTreeTest, AMissingFrameworkEndsTheProcessInTheMiddleOfTheLoad)
{
    platform().objects = std::make_shared<FakeObjectCreator>();
    EXPECT_THROW(form(), ProcessEnded);
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("The Brendle application cannot be created."));
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle");
}

TEST_F(TemplateTreeTest, AFirstStartOpensMaximised)
{
    EXPECT_TRUE(form().isMaximized());
}

TEST_F(TemplateTreeTest, AStoredPlaceComesBackAndGoesBackUnchanged)
{
    store("MainState", "0");
    store("MainLeft", "1500");
    store("MainTop", "1200");
    store("MainWidth", "12000");
    store("MainHeight", "9000");
    shownForm();
    EXPECT_FALSE(form().isMaximized());
    EXPECT_EQ(form().width(), 800);
    EXPECT_EQ(form().height(), 600);
    closeForm();
    EXPECT_EQ(stored("MainLeft"), "1500");
    EXPECT_EQ(stored("MainTop"), "1200");
    EXPECT_EQ(stored("MainWidth"), "12000");
    EXPECT_EQ(stored("MainHeight"), "9000");
    EXPECT_EQ(stored("MainState"), "0");
}

TEST_F(TemplateTreeTest, SelectionEventsAreArmedByTheFirstActivate)
{
    form();
    select("d1");
    EXPECT_TRUE(description().isEmpty());
    shownForm();
    select("d2");
    EXPECT_EQ(description(), QStringLiteral("The balances"));
}

TEST_F(TemplateTreeTest, ADescriptionShowsItsAmpersandAsItIs)
{
    shownForm();
    select("d1");
    EXPECT_EQ(form().findChild<MnemonicLabel*>(QStringLiteral("lblDesc"))->caption(),
              QStringLiteral("What we plan && why"));
}

TEST_F(TemplateTreeTest, NewDocumentIsEnabledOnDocumentsAlone)
{
    shownForm();
    select("d1");
    EXPECT_TRUE(toolbarAction("ID_NEW")->isEnabled());
    form().tree().clearSelection();
    select("p6");
    EXPECT_FALSE(toolbarAction("ID_NEW")->isEnabled());
    EXPECT_TRUE(description().isEmpty());
}

TEST_F(TemplateTreeTest, NewDocumentMakesTheSelectedDocumentVisibleAndUnsaved)
{
    shownForm();
    select("d1");
    toolbarAction("ID_NEW")->trigger();
    EXPECT_THAT(office->calls(),
                testing::Contains(HasSubstr("Word.Documents.Add \"C:\\T\\AUD2006\\MEMO.DOT\"")));
    EXPECT_THAT(office->calls(), testing::Not(testing::Contains(HasSubstr("SaveAs"))));
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(TemplateTreeTest, ADoubleClickOnADocumentMakesItAndOnAFolderDoesNot)
{
    shownForm();
    auto* view = form().findChild<TreeView*>();
    Q_EMIT view->nodeDoubleClicked(form().tree().find("f1"));
    EXPECT_TRUE(office->calls().empty());
    select("d2");
    Q_EMIT view->nodeDoubleClicked(form().tree().find("d2"));
    EXPECT_THAT(office->calls(),
                testing::Contains(HasSubstr("Excel.Workbooks.Add \"C:\\T\\AUD2006\\BALANCE.XLT\"")));
}

TEST_F(TemplateTreeTest, WithoutAnOfficeSuiteTheStatusBarSaysWhatIsMissing)
{
    office->bWordInstalled = false;
    shownForm();
    select("d1");
    toolbarAction("ID_NEW")->trigger();
    EXPECT_TRUE(messages.boxes.empty());
    EXPECT_FALSE(form().findChild<StatusPanels*>()->text(1).isEmpty());
}

TEST_F(TemplateTreeTest, AToolClickWhileLoadingOrBusyIsLost)
{
    shownForm();
    select("d1");
    sessionState().gbLoading = true;
    toolbarAction("ID_NEW")->trigger();
    sessionState().gbLoading = false;
    EXPECT_TRUE(office->calls().empty());
    goMousePointer().SetModalDialogState(true);
    goMousePointer().setMousePointer(11);
    toolbarAction("ID_NEW")->trigger();
    goMousePointer().setMousePointer(0);
    goMousePointer().SetModalDialogState(false);
    EXPECT_TRUE(office->calls().empty());
}

TEST_F(TemplateTreeTest, InAPartnersSessionNewDocumentHandsTheSelectionOverAndEndsTheProcess)
{
    ZorvoTreeSelector().ShowTreeDFS();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
    select("d1");
    select("d2");
    EXPECT_THROW(form().OKbtn_Click(), ProcessEnded);
    EXPECT_TRUE(office->calls().empty());
    EXPECT_EQ(
        platform().files->read(sDFSMarkerPath()),
        "\"<Documents><Document><Title><![CDATA[Planning memo]]></Title><FileName>"
        "<![CDATA[C:\\T\\AUD2006\\Memo.dot]]></FileName><Type><![CDATA[TSR]]></Type><Year><![CDATA[2006]]></"
        "Year>"
        "</Document><Document><Title><![CDATA[Trial balance]]></Title><FileName>"
        "<![CDATA[C:\\T\\AUD2006\\Balance.xlt]]></FileName><Type><![CDATA[TSR]]></Type><Year><![CDATA[2006]]>"
        "</Year></Document></Documents>\"\r\n");
}

TEST_F(TemplateTreeTest, ClosingDropsWhatTheFormHeldAndEndsTheProcess)
{
    shownForm();
    closeForm();
    EXPECT_EQ(service->nEnded, 1);
    EXPECT_EQ(shellState().gfrmMain, nullptr);
    EXPECT_EQ(treeState().objLibraryDoc, nullptr);
    EXPECT_EQ(treeState().objStatusDoc, nullptr);
    EXPECT_FALSE(bCaptionsLoaded());
    EXPECT_FALSE(bFileExists(sDFSMarkerPath())) << "only a partner's session hands anything over";
}

TEST_F(TemplateTreeTest, AnAnswerThatCannotBeWrittenIsToldAndTheProcessEndsAllTheSame)
{
    ZorvoTreeSelector().ShowTreeDFS();
    sessionState().sSelectedDocuments = "<Documents/>";
    fakes.files->failOn(FakeFiles::Operation::write, sDFSMarkerPath(), kPathOrFileAccess);
    std::vector<std::int32_t> told;
    const FailureReporter before =
        setFailureReporter([&told](const auto& /*sTag*/, const auto& /*sMessage*/, const auto& /*bQuiet*/) {
            told.push_back(gnErrNumber);
        });
    closeForm();
    setFailureReporter(before);
    EXPECT_THAT(told, ElementsAre(kPathOrFileAccess));
    EXPECT_EQ(service->nEnded, 1);
    EXPECT_EQ(shellState().gfrmMain, nullptr);
    EXPECT_EQ(treeState().objStatusDoc, nullptr);
}

TEST_F(TemplateTreeTest, TheTimersRequestToUnloadEndsTheProcess)
{
    form().setTmEventInterval(kRequestUnload);
    EXPECT_EQ(form().tmEventInterval(), 1500);
    EXPECT_THROW(handleEventTimer(form()), ProcessEnded);
}

TEST_F(TemplateTreeTest, CtrlVInTheTreeDoesNothingAndIsSwallowed)
{
    shownForm();
    auto* view = form().findChild<TreeView*>();
    view->setFocus();
    class Watcher : public QObject {
    public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() != Qt::Key_Control)
                bSeen = true;
            return false;
        }
        bool bSeen = false;
    } watcher;
    view->installEventFilter(&watcher);
    QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(watcher.bSeen);
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_TRUE(watcher.bSeen);
}

TEST_F(TemplateTreeTest, TheViewCommandsRebuildTheTreeOnlyOnAChange)
{
    shownForm();
    const TreeNode* first = form().tree().roots().front();
    QAction* all = nullptr;
    QAction* current = nullptr;
    for (QAction* action : form().findChildren<QAction*>()) {
        if (action->objectName() == QLatin1String("ID_MYCURRENTANDPRIOR_BRENDLE"))
            all = action;
        if (action->objectName() == QLatin1String("ID_MYCURRENT_BRENDLE"))
            current = action;
    }
    ASSERT_TRUE(all && current);
    EXPECT_TRUE(current->isChecked());
    current->trigger();
    EXPECT_EQ(form().tree().roots().front(), first) << "the active view rebuilds nothing";
    EXPECT_TRUE(current->isChecked());
    all->trigger();
    EXPECT_THAT(treeTexts(), testing::Contains("Audit before"));
    EXPECT_EQ(stored("ShowCurrentOnly"), "False");
    EXPECT_TRUE(all->isChecked());
    EXPECT_FALSE(current->isChecked());
}

TEST_F(TemplateTreeTest, TheLatestVersionReportIsACommandAndOpensItsPage)
{
    shownForm();
    auto* action = form().findChild<QAction*>(QStringLiteral("ID_PRODVERSION"));
    ASSERT_NE(action, nullptr);
    EXPECT_TRUE(action->isEnabled());
    action->trigger();
    ASSERT_EQ(fakes.launcher->opened.size(), 1U);
    EXPECT_THAT(fakes.launcher->opened[0].sTarget, testing::EndsWith("\\VersionReport.htm"));
    EXPECT_EQ(fakes.launcher->opened[0].ownerWindow, static_cast<std::uintptr_t>(form().winId()));
    EXPECT_THAT(fakes.files->content(fakes.launcher->opened[0].sTarget).value_or(""),
                HasSubstr("<tr><td>SablewoodLibrary</td><td></td></tr>"));
}

TEST_F(TemplateTreeTest, ALatestVersionReportThatCantBeWrittenIsToldAndOpensNothing)
{
    shownForm();
    fakes.folders->sTemporary.clear();
    form().findChild<QAction*>(QStringLiteral("ID_PRODVERSION"))->trigger();
    EXPECT_EQ(messages.reports.size(), 1U);
    EXPECT_TRUE(fakes.launcher->opened.empty());
}

TEST_F(TemplateTreeTest, TheLibrarySearchIsEnabledWhenALibraryProductIsThere)
{
    EXPECT_TRUE(toolbarAction("ID_SEARCHSABLEWOODLIBRARY") != nullptr);
    form();
    EXPECT_TRUE(toolbarAction("ID_SEARCHSABLEWOODLIBRARY")->isEnabled());
}

TEST_F(TemplateTreeTest, UnderOtrTwoToolsAreGoneAndTheCaptionReadsWithItsAmpersand)
{
    sessionState().gsCompanyID = "OTR";
    EXPECT_EQ(form().caption(), "OT&R's Brendle");
    EXPECT_FALSE(toolbarAction("ID_SEARCHSABLEWOODLIBRARY")->isVisible());
    EXPECT_FALSE(toolbarAction("ID_ALLBRENDLEOFFERINGS")->isVisible());
}

} // namespace
} // namespace zorvo
