#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "platform/Launcher.h"
#include "tests/shell/MainFormTest.h"
#include "tests/shell/modalForms.h"
#include "tree/treeState.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanels.h"
#include "window/ToolBands.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The tools' states, and what the commands ask of the machine beside their pages and documents.
class TemplateTreeTools : public MainFormTest {
protected:
    ~TemplateTreeTools() override
    {
        fakes.files->onCall = {};
        fakes.settings->onRead = fakes.settings->onWrite = {};
    }

    ToolBands& bands() { return *form().findChild<ToolBands*>(); }
    const Tool& tool(const char* id) { return bands().pool().tool(id); }
    void clickTool(const char* id) { Q_EMIT bands().toolClicked(QLatin1String(id)); }
    void select(const char* key) { form().tree().setSelected(*form().tree().find(key), true); }
    std::string firstPanel() { return form().findChild<StatusPanels*>()->panel(1).text().toStdString(); }
    std::vector<int> mirroredStates()
    {
        std::vector<int> states;
        for (const char* id : {"ID_MYCURRENT_BRENDLE", "ID_MYCURRENTANDPRIOR_BRENDLE",
                               "ID_ALLBRENDLEOFFERINGS", "ID_SHOWZORVOMENUFORNONZORVO"})
            states.push_back(tool(id).state.value_or(-1));
        return states;
    }
    void note(const std::string& sStep)
    {
        if (journal.empty() || journal.back() != sStep)
            journal.push_back(sStep);
    }

    std::vector<std::string> journal;
};

TEST_F(TemplateTreeTools, FourToolsMirrorTheSessionForEveryCompany)
{
    form();
    for (const char* sCompany : {"Zorvo", "ABC", "OTR"}) {
        SCOPED_TRACE(sCompany);
        sessionState().gsCompanyID = sCompany;
        SessionState& session = sessionState();
        session.bShowCurrentOnly = true;
        session.bIncludeAllOfferings = session.bMenuState = false;
        form().SetTBState(false, false);
        EXPECT_THAT(mirroredStates(), ElementsAre(1, 0, 0, 0));
        session.bShowCurrentOnly = false;
        session.bIncludeAllOfferings = session.bMenuState = true;
        form().SetTBState(false, false);
        EXPECT_THAT(mirroredStates(), ElementsAre(0, 1, 1, 1));
    }
}

TEST_F(TemplateTreeTools, OneCompanyLosesTwoToolsAndTheOthersKeepThem)
{
    sessionState().gsCompanyID = "ABC";
    form();
    EXPECT_TRUE(tool("ID_SEARCHSABLEWOODLIBRARY").bVisible && tool("ID_ALLBRENDLEOFFERINGS").bVisible);
    sessionState().gsCompanyID = "OTR";
    form().SetTBState(false, false);
    EXPECT_FALSE(tool("ID_SEARCHSABLEWOODLIBRARY").bVisible || tool("ID_ALLBRENDLEOFFERINGS").bVisible);
}

TEST_F(TemplateTreeTools, SetTBStateIsBusyAndLoadingFromItsFirstStepToItsLast)
{
    shownForm();
    store("ShowCurrentOnly", "False");
    treeState().objLibraryDoc.reset();
    const auto expectLocked = [] {
        EXPECT_TRUE(sessionState().gbLoading);
        EXPECT_EQ(goMousePointer().MousePointer(), kHourglass);
    };
    fakes.settings->onRead = [&](const std::string& /*sKey*/) {
        expectLocked();
        EXPECT_EQ(mirroredStates()[0], 1) << "the settings are read ahead of the tools";
        note("settings");
    };
    fakes.files->onCall = [&](const FakeFiles::Call& /*call*/) {
        expectLocked();
        EXPECT_EQ(mirroredStates()[0], 0) << "the tools are set ahead of the tree";
        note("tree");
    };
    form().SetTBState(true, true);
    EXPECT_THAT(journal, ElementsAre("settings", "tree"));
    EXPECT_FALSE(sessionState().gbLoading);
    EXPECT_EQ(goMousePointer().MousePointer(), kDefaultPointer);
}

TEST_F(TemplateTreeTools, ASetTBStateThatFailsLeavesTheCommandsOpen)
{
    shownForm();
    fakes.settings->onRead = [](const std::string& /*sKey*/) { throw RunTimeError(kPathOrFileAccess); };
    EXPECT_THROW(form().SetTBState(true, false), RunTimeError);
    EXPECT_FALSE(sessionState().gbLoading);
    EXPECT_EQ(goMousePointer().MousePointer(), kDefaultPointer);
    EXPECT_TRUE(form().isEnabled());
}

TEST_F(TemplateTreeTools, TheActiveViewIsNeitherSavedNorLoadedAgain)
{
    shownForm();
    const auto expectNothingDone = [this](const char* id) {
        fakes.settings->written.clear();
        select("d1");
        clickTool(id);
        EXPECT_THAT(fakes.settings->written, IsEmpty()) << id;
        EXPECT_TRUE(form().tree().find("d1")->selected()) << id << ": a reload selects nothing";
    };
    expectNothingDone("ID_MYCURRENT_BRENDLE");
    clickTool("ID_MYCURRENTANDPRIOR_BRENDLE");
    expectNothingDone("ID_MYCURRENTANDPRIOR_BRENDLE");
}

TEST_F(TemplateTreeTools, AnotherViewIsSavedAheadOfTheReload)
{
    shownForm();
    std::vector<bool> priorYearsAtSave;
    fakes.settings->onWrite = [&](const std::string& sKey) {
        if (sKey == "ShowCurrentOnly")
            priorYearsAtSave.push_back(form().tree().find("p5") != nullptr);
    };
    clickTool("ID_MYCURRENTANDPRIOR_BRENDLE");
    EXPECT_NE(form().tree().find("p5"), nullptr);
    EXPECT_EQ(stored("ShowCurrentOnly"), "False");
    clickTool("ID_MYCURRENT_BRENDLE");
    EXPECT_EQ(form().tree().find("p5"), nullptr);
    EXPECT_EQ(stored("ShowCurrentOnly"), "True");
    EXPECT_THAT(priorYearsAtSave, ElementsAre(false, true));
}

TEST_F(TemplateTreeTools, AViewCommandReadsNoSettings)
{
    shownForm();
    store("IncludeAllOfferings", "True");
    clickTool("ID_MYCURRENTANDPRIOR_BRENDLE");
    EXPECT_EQ(tool("ID_ALLBRENDLEOFFERINGS").state, 0);
}

TEST_F(TemplateTreeTools, AWalkThatFailsIsToldAndLeavesTheTreesEventsArmed)
{
    shownForm();
    select("p6");
    auto* model = qobject_cast<TreeModel*>(form().findChild<TreeView*>()->model());
    const auto failing = QObject::connect(model, &TreeModel::nodeExpandedChanged,
                                          [](TreeNode* /*node*/) { throw RunTimeError(kOverflow); });
    clickTool("ID_EXPAND");
    QObject::disconnect(failing);
    ASSERT_EQ(messages.reports.size(), 1U);
    EXPECT_EQ(messages.reports[0].nNumber, kOverflow);
    select("d2");
    EXPECT_EQ(child<MnemonicLabel>(form(), "lblDesc")->text(), QStringLiteral("The balances"));
}

TEST_F(TemplateTreeTools, TheMainWindowAsksForItsOwnPagesAndNoWindowForTheOthers)
{
    shownForm();
    const auto nMain = static_cast<std::uintptr_t>(form().winId());
    const std::pair<const char*, std::uintptr_t> pages[] = {
        {"ID_CONTACTUS", nMain}, {"ID_ZORVOMYACCOUNT", nMain}, {"ID_ZORVOQUICKTOUR", nMain},
        {"ID_ZORVOFAQS", 0},     {"ID_ZORVONETSUPPORT", 0},
    };
    for (const auto& [id, nWindow] : pages) {
        clickTool(id);
        EXPECT_EQ(fakes.launcher->opened.back().ownerWindow, nWindow) << id;
        EXPECT_EQ(fakes.launcher->opened.back().show, Launcher::Show::normal) << id;
    }
}

TEST_F(TemplateTreeTools, ALauncherThatFailsIsToldOnceAndLeavesTheNextClickOpen)
{
    shownForm();
    fakes.launcher->nFailOpen = kPermissionDenied;
    clickTool("ID_CONTACTUS");
    EXPECT_THAT(messages.tags(), ElementsAre("TemplateTree.linkContactUs_Click"));
    fakes.launcher->nFailOpen = 0;
    clickTool("ID_CONTACTUS");
    EXPECT_EQ(fakes.launcher->opened.size(), 1U);
}

TEST_F(TemplateTreeTools, ATreeThatWasFilledAnewHasNothingToMakeOrToRead)
{
    shownForm();
    select("d1");
    EXPECT_TRUE(tool("ID_NEW").bEnabled);
    form().SetTBState(false, true);
    EXPECT_FALSE(tool("ID_NEW").bEnabled);
    EXPECT_TRUE(child<MnemonicLabel>(form(), "lblDesc")->text().isEmpty());
}

TEST_F(TemplateTreeTools, TheDialogOfTheTreeSearchHidesNoMatch)
{
    store("MainState", "0");
    store("MainWidth", "9600");
    store("MainHeight", "6300");
    shownForm();
    auto& view = *form().findChild<TreeView*>();
    for (int i = 0; i < 30; ++i) // down to the lower edge and beyond
        form().tree().add("p7", "more" + std::to_string(i), "One more document", -1, 3);
    std::vector<bool> standsLow;
    const std::function<void(QWidget&)> look = [&](QWidget& dialog) {
        const QRect row = view.visualRect(view.currentIndex());
        const QRect match(view.viewport()->mapToGlobal(row.topLeft()), row.size());
        EXPECT_TRUE(view.viewport()->rect().contains(row.center()));
        EXPECT_FALSE(dialog.frameGeometry().intersects(match)) << match.top();
        standsLow.push_back(dialog.geometry().center().y() > form().geometry().center().y());
        if (form().tree().selectedNode() == &form().tree().item(form().tree().count()))
            whenModal("frmNoMoreSearch", [](QWidget& end) { click(end, "Command2"); });
        else
            whenModal("frmTreeSearch", look);
        click(dialog, "cmdFind");
    };
    whenModal("frmTreeSearch", [&](QWidget& first) {
        whenModal("frmTreeSearch", look);
        click(first, "cmdFind"); // an empty text: every node in its turn
    });
    clickTool("ID_SEARCHTREE");
    EXPECT_EQ(standsLow.size(), static_cast<std::size_t>(form().tree().count()));
    EXPECT_THAT(standsLow, testing::Contains(true));
    EXPECT_THAT(standsLow, testing::Contains(false))
        << "at a match in the lower corner it goes to the upper one";
}

TEST_F(TemplateTreeTools, TheLastEntryIsKnownByTheCompanysOwnName)
{
    sessionState().gsCompanyID = "ABC";
    shownForm();
    auto& bar = *form().findChild<ListBar*>();
    const int nLast = bar.groups().count();
    ASSERT_EQ(bar.groups().item(nLast).sKey, "ABCnet");
    Q_EMIT bar.clicked(nLast);
    ASSERT_EQ(fakes.launcher->opened.size(), 1U);
    EXPECT_EQ(fakes.launcher->opened[0].sTarget, "http://one.example");
    // Filled for a company that isn't the running one any more: the key is a node's, and none has it.
    sessionState().gsCompanyID = "Zorvo";
    Q_EMIT bar.clicked(nLast);
    EXPECT_EQ(fakes.launcher->opened.size(), 1U);
    EXPECT_THAT(form().tree().selectedNodes(), IsEmpty());
}

TEST_F(TemplateTreeTools, AClickDuringWorkIsLostWithoutAWord)
{
    shownForm();
    sessionState().gbLoading = true;
    clickTool("ID_CONTACTUS");
    sessionState().gbLoading = false;
    for (const std::int16_t nPointer : {std::int16_t{11}, std::int16_t{13}}) {
        goMousePointer().setMousePointer(nPointer);
        clickTool("ID_CONTACTUS");
        goMousePointer().setMousePointer(kDefaultPointer);
    }
    EXPECT_THAT(fakes.launcher->opened, IsEmpty());
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(TemplateTreeTools, TheFirstPanelTellsWhatTheToolUnderTheMouseDoes)
{
    shownForm();
    form().setStatusText(QStringLiteral("own"));
    Q_EMIT bands().statusTextChanged(QStringLiteral("Exits the application."));
    EXPECT_EQ(firstPanel(), "Exits the application.");
    Q_EMIT bands().statusTextChanged({});
    EXPECT_EQ(firstPanel(), "own");
}

} // namespace
} // namespace zorvo
