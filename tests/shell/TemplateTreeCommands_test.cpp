#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "shell/forms/TemplateTree.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/shell/MainFormTest.h"
#include "tests/shell/modalForms.h"
#include "tree/treeState.h"
#include "window/LinkLabel.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanels.h"
#include "window/ToolBands.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QTest>
#include <QToolBar>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Does something in the middle of the making of a document.
class InterruptedOffice : public RecordingOffice {
public:
    std::shared_ptr<WordApplication> createWord() override
    {
        if (onWord)
            onWord();
        return RecordingOffice::createWord();
    }
    std::function<void()> onWord;
};

class TemplateTreeCommands : public MainFormTest {
protected:
    TemplateTreeCommands()
    {
        platform().help = help;
        office = interrupted;
        platform().office = office;
    }

    ToolBands& bands() { return *form().findChild<ToolBands*>(); }
    ListBar& listBar() { return *form().findChild<ListBar*>(); }
    TreeView& view() { return *form().findChild<TreeView*>(); }
    /// As the band tells it, for tools that stand in no band too.
    void clickTool(const char* id) { Q_EMIT bands().toolClicked(QLatin1String(id)); }
    QAction* action(const char* id)
    {
        for (QAction* each : bands().findChildren<QAction*>(QLatin1String(id)))
            return each;
        return nullptr;
    }
    TreeNode& node(const char* key) { return *form().tree().find(key); }
    void select(const char* key) { form().tree().setSelected(node(key), true); }
    std::vector<std::string> selected()
    {
        std::vector<std::string> keys;
        for (const TreeNode* each : form().tree().selectedNodes())
            keys.push_back(each->key());
        return keys;
    }
    std::string lastPage() const
    {
        const auto& opened = fakes.launcher->opened.back();
        return opened.sTarget + "|" + opened.sParameters + "|" + opened.sDirectory;
    }

    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
    std::shared_ptr<InterruptedOffice> interrupted = std::make_shared<InterruptedOffice>();
};

TEST_F(TemplateTreeCommands, AnIdIsComparedInUpperCase)
{
    shownForm();
    select("d1");
    clickTool("ID_New");
    EXPECT_THAT(office->calls(), Contains(HasSubstr("Word.Documents.Add")));
}

TEST_F(TemplateTreeCommands, AnUnknownIdAndTheToolWithoutACommandDoNothing)
{
    shownForm();
    clickTool("ID_NOWHERE");
    clickTool("ID_SHOWZORVOMENUFORNONZORVO");
    EXPECT_THAT(office->calls(), IsEmpty());
    EXPECT_THAT(messages.reports, IsEmpty());
    EXPECT_TRUE(sessionState().bMenuState);
}

TEST_F(TemplateTreeCommands, ExitEndsTheProcess)
{
    shownForm();
    bool bEnded = false;
    service->onEnd = [&bEnded] { bEnded = true; };
    clickTool("ID_EXIT");
    EXPECT_TRUE(bEnded);
}

TEST_F(TemplateTreeCommands, ExpandAndCollapseReachAllBelowTheSelectedNode)
{
    shownForm();
    select("p6");
    clickTool("ID_EXPAND");
    EXPECT_TRUE(node("p6").expanded() && node("f1").expanded());
    clickTool("ID_COLLAPSE");
    EXPECT_FALSE(node("p6").expanded() || node("f1").expanded());
    EXPECT_TRUE(node("Tessora").expanded()) << "what stands above stays";
}

TEST_F(TemplateTreeCommands, ExpandAndCollapseDoNothingWithNothingSelectedOrOnADocument)
{
    shownForm();
    clickTool("ID_COLLAPSE");
    EXPECT_TRUE(node("Tessora").expanded());
    select("d3");
    clickTool("ID_EXPAND");
    EXPECT_FALSE(node("d3").expanded());
}

TEST_F(TemplateTreeCommands, ACollapseIsNoSelectionForTheEvents)
{
    shownForm();
    form().tree().setSelected(node("p6"), true);
    form().tree().setExpanded(node("p6"), true);
    form().tree().setExpanded(node("f1"), true);
    select("d1");
    form().tree().makeCurrent(node("p6"));
    const auto& description = *child<MnemonicLabel>(form(), "lblDesc");
    EXPECT_EQ(description.text(), QStringLiteral("What we plan & why"));
    clickTool("ID_COLLAPSE");
    EXPECT_EQ(description.text(), QStringLiteral("What we plan & why"));
    select("d2");
    EXPECT_EQ(description.text(), QStringLiteral("The balances")) << "armed again behind the walk";
}

TEST_F(TemplateTreeCommands, OptionsEditsTheSettingsAndEveryOkReloadsTheTree)
{
    shownForm();
    const TreeNode* before = form().tree().roots().front();
    select("d1");
    whenModal("frmOptions", [](QWidget& shown) { click(shown, "cmdOK"); });
    clickTool("ID_OPTIONS");
    EXPECT_EQ(stored("ShowCurrentOnly"), "True");
    EXPECT_THAT(selected(), IsEmpty()) << before;
    EXPECT_TRUE(child<MnemonicLabel>(form(), "lblDesc")->text().isEmpty());
    EXPECT_FALSE(action("ID_NEW")->isEnabled());
}

TEST_F(TemplateTreeCommands, AboutShowsItsBoxAndNoOtherToolWorksMeanwhile)
{
    shownForm();
    select("d1");
    bool bShown = false;
    whenModal("frmAbout", [&](QWidget& shown) {
        bShown = true;
        clickTool("ID_NEW");
        clickTool("ID_ABOUT");
        click(shown, "cmdOK");
    });
    clickTool("ID_ABOUT");
    EXPECT_TRUE(bShown);
    EXPECT_THAT(office->calls(), IsEmpty());
    clickTool("ID_NEW");
    EXPECT_THAT(office->calls(), Contains(HasSubstr("Word.Documents.Add"))) << "the guard is clear again";
}

TEST_F(TemplateTreeCommands, ACommandThatFailsLeavesTheNextOnesOpen)
{
    shownForm();
    interrupted->bWordInstalled = false;
    clickTool("ID_WORD");
    interrupted->bWordInstalled = true;
    clickTool("ID_WORD");
    EXPECT_THAT(office->calls(), Contains(HasSubstr("Word.Documents.Add")));
}

TEST_F(TemplateTreeCommands, TheLibrarySearchOpensItsForm)
{
    fakes.files->addFile("C:\\Zorvo\\TreeData\\SWDXML.xml", "<SWDInformation group=\"Tessora\"/>");
    shownForm();
    bool bShown = false;
    whenModal("SearchSwdLib", [&](QWidget& shown) {
        bShown = true;
        shown.close();
    });
    clickTool("ID_SEARCHSABLEWOODLIBRARY");
    EXPECT_TRUE(bShown);
}

TEST_F(TemplateTreeCommands, TheTreeSearchSelectsAMatchInAClosedFolderAndKeepsItInView)
{
    shownForm();
    select("p7");
    whenModal("frmTreeSearch", [this](QWidget& first) {
        child<QLineEdit>(first, "Text1")->setText(QStringLiteral("BALANCE"));
        whenModal("frmTreeSearch", [this, &first](QWidget& second) {
            EXPECT_NE(&first, &second) << "each match shows another instance";
            EXPECT_EQ(child<QLineEdit>(second, "Text1")->text(), QStringLiteral("BALANCE"));
            EXPECT_THAT(selected(), ElementsAre("d2"));
            EXPECT_TRUE(node("f1").expanded() && node("p6").expanded());
            EXPECT_TRUE(view().viewport()->rect().contains(view().visualRect(view().currentIndex())));
            click(second, "cmdClose");
        });
        click(first, "cmdFind");
    });
    clickTool("ID_SEARCHTREE");
    EXPECT_THAT(selected(), ElementsAre("d2"));
    EXPECT_TRUE(form().tree().multiSelect());
    EXPECT_EQ(child<MnemonicLabel>(form(), "lblDesc")->text(), QStringLiteral("The balances"));
}

TEST_F(TemplateTreeCommands, AtTheEndOfTheTreeSearchOkAsksAgainWithAnEmptyText)
{
    shownForm();
    whenModal("frmTreeSearch", [](QWidget& first) {
        child<QLineEdit>(first, "Text1")->setText(QStringLiteral("nowhere"));
        whenModal("frmNoMoreSearch", [](QWidget& end) {
            whenModal("frmTreeSearch", [](QWidget& again) {
                EXPECT_EQ(child<QLineEdit>(again, "Text1")->text(), QString());
                click(again, "cmdClose");
            });
            click(end, "Command1");
        });
        click(first, "cmdFind");
    });
    clickTool("ID_SEARCHTREE");
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_TRUE(form().tree().multiSelect());
}

TEST_F(TemplateTreeCommands, HelpShowsItsContents)
{
    shownForm();
    clickTool("ID_BRENDLEHELP");
    ASSERT_EQ(help->shown.size(), 1U);
    EXPECT_EQ(help->shown[0].command, HelpViewer::kDisplayContents);
}

TEST_F(TemplateTreeCommands, TheWebCommandsOpenTheirPages)
{
    shownForm();
    const std::pair<const char*, const char*> pages[] = {
        {"ID_CONTACTUS", "http://contact.example|1|1"},
        {"ID_ZORVOMYACCOUNT", "http://account.example||C:\\"},
        {"ID_ZORVONETSUPPORT", "http://two.example||C:\\"},
        {"ID_ZORVOQUICKTOUR", "http://tour.example||C:\\"},
        {"ID_ZORVOFAQS", "http://faq.example||C:\\"},
    };
    for (const auto& [id, sPage] : pages) {
        clickTool(id);
        EXPECT_EQ(lastPage(), sPage) << id;
    }
    EXPECT_EQ(fakes.launcher->opened.size(), std::size(pages));
}

TEST_F(TemplateTreeCommands, TheContactLinkOpensTheSamePageForTheMainWindow)
{
    shownForm();
    QTest::mouseClick(form().findChild<LinkLabel*>(), Qt::LeftButton);
    EXPECT_EQ(lastPage(), "http://contact.example|1|1");
    EXPECT_EQ(fakes.launcher->opened.back().ownerWindow, static_cast<std::uintptr_t>(form().winId()));
    QTest::keyClick(form().findChild<LinkLabel*>(), Qt::Key_Space);
    EXPECT_EQ(fakes.launcher->opened.size(), 2U);
}

TEST_F(TemplateTreeCommands, WordShowsABlankDocumentAndKeepsRunning)
{
    shownForm();
    clickTool("ID_WORD");
    EXPECT_THAT(office->calls(),
                ElementsAre("Create Word.Application", "Word.Documents.Add", "Word.Visible = True"));
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(TemplateTreeCommands, ExcelIsVisibleAheadOfItsBlankWorkbook)
{
    shownForm();
    clickTool("ID_EXCEL");
    EXPECT_THAT(office->calls(),
                ElementsAre("Create Excel.Application", "Excel.Visible = True", "Excel.Workbooks.Add"));
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(TemplateTreeCommands, AnOfficeThatCannotBeStartedFailsTheEventAndIsTold)
{
    shownForm();
    interrupted->bWordInstalled = interrupted->bExcelInstalled = false;
    clickTool("ID_WORD");
    clickTool("ID_EXCEL");
    ASSERT_EQ(messages.reports.size(), 2U);
    EXPECT_EQ(messages.reports[0].nNumber, kCannotCreateObject);
    EXPECT_EQ(messages.reports[1].nNumber, kCannotCreateObject);
}

TEST_F(TemplateTreeCommands, AMenuTitleIsNoCommand)
{
    shownForm();
    for (const char* sTitle : {"&File", "&View", "&Tools", "&Help"})
        clickTool(sTitle);
    EXPECT_EQ(service->nEnded, 0);
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(TemplateTreeCommands, SetTBStateReadsTheSettingsOnlyOnRequest)
{
    shownForm();
    store("ShowCurrentOnly", "False");
    form().SetTBState(false, false);
    EXPECT_TRUE(action("ID_MYCURRENT_BRENDLE")->isChecked());
    form().SetTBState(true, false);
    EXPECT_FALSE(action("ID_MYCURRENT_BRENDLE")->isChecked());
    EXPECT_TRUE(action("ID_MYCURRENTANDPRIOR_BRENDLE")->isChecked());
    EXPECT_EQ(form().tree().find("p5"), nullptr) << "the tree is loaded on request alone";
    form().SetTBState(false, true);
    EXPECT_NE(form().tree().find("p5"), nullptr);
    EXPECT_FALSE(sessionState().gbLoading);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(TemplateTreeCommands, SetTBStateMirrorsTheOfferingsAndDisablesTheSearchWithoutALibrary)
{
    shownForm();
    EXPECT_FALSE(action("ID_ALLBRENDLEOFFERINGS")->isChecked());
    EXPECT_TRUE(action("ID_SEARCHSABLEWOODLIBRARY")->isEnabled());
    sessionState().bIncludeAllOfferings = true;
    treeState().objStatusDoc.reset();
    form().SetTBState(false, false);
    EXPECT_TRUE(action("ID_ALLBRENDLEOFFERINGS")->isChecked());
    EXPECT_FALSE(action("ID_SEARCHSABLEWOODLIBRARY")->isEnabled());
}

TEST_F(TemplateTreeCommands, AReloadShowsHonestProgressAndHidesItAtTheEnd)
{
    shownForm();
    auto* gauge = form().findChild<QProgressBar*>(QStringLiteral("gagZorvoBrendle"));
    EXPECT_FALSE(gauge->isVisible());
    std::vector<std::string> seen;
    fakes.files->onCall = [&](const FakeFiles::Call& /*call*/) {
        if (!gauge->isVisible())
            return;
        EXPECT_FALSE(gauge->visibleRegion().isEmpty());
        seen.push_back(std::to_string(gauge->value()) + "/" + std::to_string(gauge->maximum()));
    };
    // What the catalogue lacks is told by a box while the tree fills.
    messages.whileBoxIsUp = [&] {
        seen.push_back(std::to_string(gauge->value()) + "/" + std::to_string(gauge->maximum()) +
                       (gauge->isVisible() ? " shown" : " hidden"));
    };
    treeState().objStatusDoc = [] {
        XmlDocument status;
        status.loadXML("<ZorvoMSOfficeProductsStatus><ProductGroup><Title>Tessora</Title><IconSmall/>"
                       "<ProductRegistryNode Version='2006' Installed='True'><ProductKey>AUD</ProductKey>"
                       "<TemplatePath>C:\\T\\AUD2006\\</TemplatePath></ProductRegistryNode>"
                       "<ProductRegistryNode Version='1999' Installed='True'><ProductKey>GONE</ProductKey>"
                       "<TemplatePath>C:\\T\\</TemplatePath></ProductRegistryNode>"
                       "</ProductGroup></ZorvoMSOfficeProductsStatus>");
        return std::make_shared<StatusDocument>(std::move(status));
    }();
    form().SetTBState(false, true);
    EXPECT_THAT(seen, Contains("1/2 shown"));
    EXPECT_FALSE(gauge->isVisible());
    EXPECT_EQ(form().tree().find("Tessora")->children().size(), 1U);
    fakes.files->onCall = {};
}

TEST_F(TemplateTreeCommands, AClickInTheListBarSelectsItsGroupInPlaceOfTheNodeBefore)
{
    shownForm();
    select("d1");
    Q_EMIT listBar().clicked(2);
    EXPECT_THAT(selected(), ElementsAre("Sablewood Libraries"));
    EXPECT_TRUE(node("Sablewood Libraries").expanded());
}

TEST_F(TemplateTreeCommands, ASecondClickOnTheSameEntryTakesItsSelectionBack)
{
    // The node that was selected before is the group itself.
    shownForm();
    Q_EMIT listBar().clicked(2);
    Q_EMIT listBar().clicked(2);
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(TemplateTreeCommands, TheLastEntryOpensThePageAndLeavesTheTree)
{
    shownForm();
    select("d1");
    Q_EMIT listBar().clicked(3);
    EXPECT_EQ(lastPage(), "http://one.example||C:\\");
    EXPECT_THAT(selected(), ElementsAre("d1"));
}

TEST_F(TemplateTreeCommands, AClickInTheListBarIsLostWhileLoadingOrBusy)
{
    shownForm();
    sessionState().gbLoading = true;
    Q_EMIT listBar().clicked(1);
    sessionState().gbLoading = false;
    goMousePointer().SetModalDialogState(true);
    goMousePointer().setMousePointer(13);
    Q_EMIT listBar().clicked(1);
    goMousePointer().setMousePointer(0);
    goMousePointer().SetModalDialogState(false);
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(TemplateTreeCommands, AClickInTheListBarInsideAnotherIsLost)
{
    class InterruptedLauncher : public RecordingLauncher {
    public:
        int open(const std::string& target, const std::string& parameters, const std::string& directory,
                 Show show, std::uintptr_t ownerWindow) override
        {
            onOpen();
            return RecordingLauncher::open(target, parameters, directory, show, ownerWindow);
        }
        std::function<void()> onOpen;
    };
    const auto launcher = std::make_shared<InterruptedLauncher>();
    platform().launcher = launcher;
    shownForm();
    launcher->onOpen = [this] { Q_EMIT listBar().clicked(1); };
    Q_EMIT listBar().clicked(3);
    EXPECT_EQ(launcher->opened.size(), 1U);
    EXPECT_THAT(selected(), IsEmpty());
    Q_EMIT listBar().clicked(1);
    EXPECT_THAT(selected(), ElementsAre("Tessora"));
}

TEST_F(TemplateTreeCommands, AClickInTheListBarIgnoresAllErrors)
{
    shownForm();
    Q_EMIT listBar().clicked(99);
    EXPECT_THAT(messages.reports, IsEmpty());
    Q_EMIT listBar().clicked(1);
    EXPECT_THAT(selected(), ElementsAre("Tessora")) << "and the guard is clear again";
}

TEST_F(TemplateTreeCommands, ADoubleClickInsideAnotherIsLost)
{
    shownForm();
    select("d1");
    interrupted->onWord = [this] { Q_EMIT view().nodeDoubleClicked(&node("d1")); };
    Q_EMIT view().nodeDoubleClicked(&node("d1"));
    interrupted->onWord = {};
    const auto made = office->calls();
    EXPECT_EQ(std::count_if(made.begin(), made.end(),
                            [](const auto& sCall) { return sCall.starts_with("Word.Documents.Add"); }),
              1);
}

TEST_F(TemplateTreeCommands, ADoubleClickAheadOfTheFirstActivateIsLost)
{
    form();
    select("d1");
    Q_EMIT view().nodeDoubleClicked(&node("d1"));
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(TemplateTreeCommands, WithNothingSelectedThereIsNothingToMakeOrToRead)
{
    shownForm();
    select("d1");
    EXPECT_TRUE(action("ID_NEW")->isEnabled());
    const QPoint place = view().visualRect(view().currentIndex()).center();
    QTest::mouseClick(view().viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_FALSE(action("ID_NEW")->isEnabled());
    EXPECT_TRUE(child<MnemonicLabel>(form(), "lblDesc")->text().isEmpty());
}

TEST_F(TemplateTreeCommands, CtrlVOutsideTheTreeIsAKeyLikeAnyOther)
{
    shownForm();
    class Watcher : public QObject {
    public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_V)
                ++nKeys;
            return false;
        }
        int nKeys = 0;
    } watcher;
    auto* link = form().findChild<LinkLabel*>();
    link->setFocus();
    link->installEventFilter(&watcher);
    QTest::keyClick(link, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(watcher.nKeys, 1);
    view().setFocus();
    view().installEventFilter(&watcher);
    QTest::keyClick(&view(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(watcher.nKeys, 2) << "Ctrl alone is swallowed, with V";
}

} // namespace
} // namespace zorvo
