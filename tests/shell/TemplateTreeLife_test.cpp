#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "creation/creationState.h"
#include "shell/forms/TemplateTree.h"
#include "shell/forms/formInstances.h"
#include "shell/session.h"
#include "shell/shellState.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/shell/MainFormTest.h"
#include "tests/support/pictureBytes.h"
#include "tree/treeState.h"
#include "window/LinkLabel.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanels.h"
#include "window/ToolBands.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

#include <QAction>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// What the main form does in its life, looked at from the ports that it calls.
class TemplateTreeLife : public MainFormTest {
protected:
    TemplateTreeLife()
    {
        platform().help = help;
        for (const char* sPicture : {"Brendle.ico", "Sidebar.bmp", "Treelist Background White.bmp"})
            fakes.files->addFile(std::string("C:\\Zorvo\\Images\\") + sPicture,
                                 pictureBytes(16, "PNG", Qt::white));
    }
    ~TemplateTreeLife() override
    {
        fakes.files->onCall = {};
        fakes.settings->onRead = fakes.settings->onWrite = {};
    }

    /// The form while its load event runs.
    static TemplateTree& loading() { return *templateTree().ifLoaded(); }
    static QString labelText(const char* name)
    {
        return loading().findChild<MnemonicLabel*>(QLatin1String(name))->caption();
    }
    static QAction* menuTitle() { return loading().findChild<QMenuBar*>()->actions().back(); }
    QAction* tool(const char* id)
    {
        for (QAction* action : form().findChild<ToolBands*>()->toolBar()->actions())
            if (action->objectName() == QLatin1String(id))
                return action;
        return nullptr;
    }
    QAction* menuTool(const char* id)
    {
        for (const QMenu* menu : form().findChildren<QMenu*>())
            for (QAction* action : menu->actions())
                if (action->objectName() == QLatin1String(id))
                    return action;
        return nullptr;
    }
    void note(const std::string& sEvent)
    {
        if (journal.empty() || journal.back() != sEvent)
            journal.push_back(sEvent);
    }
    void expectPlace(const QRect& place, bool bMaximised)
    {
        EXPECT_EQ(form().isMaximized(), bMaximised);
        if (!bMaximised) {
            EXPECT_EQ(form().geometry(), place);
        }
    }
    void storePlace()
    {
        store("MainLeft", "300");
        store("MainTop", "450");
        store("MainWidth", "13500");
        store("MainHeight", "9000");
    }

    const QRect kStoredPlace{20, 30, 900, 600};
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
    std::vector<std::string> journal;
};

TEST_F(TemplateTreeLife, TheLoadEventTakesItsStepsInTheirOrder)
{
    sessionState().gsCompanyID = "ABC";
    fakes.files->addFile("C:\\Zorvo\\Qbk.xla", "add-in");
    fakes.files->addFile("C:\\AppData\\Microsoft\\AddIns\\Qbk.xla", "add-in");
    fakes.registry->setText(HKEY_CURRENT_USER,
                            "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                            "AppData", "C:\\AppData");
    store("ABCMainState", "0");
    store("ABCMainWidth", "13500");
    store("ABCMainHeight", "9000");
    fakes.files->onCall = [this](const FakeFiles::Call& call) {
        if (call.sPath == "C:\\Zorvo\\Qbk.xla" && call.operation == FakeFiles::Operation::lastModified) {
            EXPECT_EQ(shellState().gfrmMain, templateTree().ifLoaded());
            EXPECT_EQ(goMousePointer().MousePointer(), 11);
            note("add-in copy");
        } else if (call.sPath == "C:\\Zorvo\\xmlCaptions.xml") {
            note("captions");
        } else if (call.sPath == "C:\\Zorvo\\TreeData\\Zorvo Library.xml") {
            EXPECT_EQ(loading().caption(), "Title of the document") << "set as soon as it is known";
            EXPECT_EQ(loading().findChild<StatusPanels*>()->count(), 1);
            note("tree");
        } else if (call.sPath == "C:\\Zorvo\\Images\\Brendle.ico" && !shellState().sActXCaption.empty()) {
            const bool bFirst = labelText("lblContactUsMessage").contains(QStringLiteral("Zorvo"));
            EXPECT_EQ(menuTitle()->text(), QStringLiteral("&Help"));
            EXPECT_EQ(shellState().sActXCaption, "ABC's Brendle");
            note(bFirst ? "branding" : "task list");
        } else if (call.sPath == "C:\\Zorvo\\Images\\Sidebar.bmp") {
            EXPECT_TRUE(labelText("lblContactUsMessage").contains(QStringLiteral("contact ABC")));
            note("tool bands");
        }
    };
    fakes.settings->onRead = [this](const std::string& sKey) {
        if (sKey == "ABCShowCurrentOnly") {
            note("settings");
        } else if (sKey == "ABCMainState") {
            EXPECT_EQ(loading().findChild<StatusPanels*>()->count(), 6);
            EXPECT_TRUE(sessionState().gbLoading);
            EXPECT_EQ(loading().caption(), "Title of the document");
            note("geometry");
        }
    };
    objects->provideRunning("Brendle.ActXManager", [this]() -> LateBoundPtr {
        EXPECT_EQ(loading().caption(), "ABC's Brendle");
        EXPECT_EQ(loading().width(), 900);
        EXPECT_TRUE(sessionState().gbLoading);
        EXPECT_EQ(goMousePointer().MousePointer(), 11);
        note("framework");
        return std::make_shared<FakeLateBoundObject>();
    });
    form();
    EXPECT_THAT(journal, ElementsAre("add-in copy", "settings", "captions", "tree", "geometry", "framework",
                                     "branding", "tool bands", "task list"));
    EXPECT_FALSE(sessionState().gbLoading);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_EQ(form().findChild<LinkLabel*>()->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(TemplateTreeLife, TheFormHasACaptionOfItsOwnAheadOfTheLoad)
{
    const TemplateTree designed;
    EXPECT_EQ(designed.caption(), "Zorvo's Brendle");
}

TEST_F(TemplateTreeLife, CaptionsThatAreLoadedAreNotReadAgain)
{
    xmlCaptionLoader();
    fakes.files->calls.clear();
    form();
    for (const FakeFiles::Call& call : fakes.files->calls)
        EXPECT_NE(call.sPath, "C:\\Zorvo\\xmlCaptions.xml");
}

TEST_F(TemplateTreeLife, AFailureInTheMiddleOfTheLoadReachesTheCallerOfTheShow)
{
    fakes.files->addFile("C:\\Zorvo\\Qbk.xla", "new");
    fakes.files->addFile("C:\\AppData\\Microsoft\\AddIns\\Qbk.xla", "old");
    fakes.files->setLastModified("C:\\AppData\\Microsoft\\AddIns\\Qbk.xla", 1);
    fakes.registry->setText(HKEY_CURRENT_USER,
                            "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                            "AppData", "C:\\AppData");
    fakes.files->failOn(FakeFiles::Operation::copy, "", kPermissionDenied);
    try {
        form();
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), kPermissionDenied);
    }
    EXPECT_EQ(shellState().gfrmMain, nullptr);
    EXPECT_FALSE(sessionState().gbLoading);
}

TEST_F(TemplateTreeLife, TheStatusBarsPanelsAreDateTimeAndTheThreeKeys)
{
    auto* bar = form().findChild<StatusPanels*>();
    const PanelStyle styles[] = {PanelStyle::text, PanelStyle::date, PanelStyle::time,
                                 PanelStyle::caps, PanelStyle::num,  PanelStyle::insert};
    for (int nPanel = 1; nPanel <= 6; ++nPanel) {
        const StatusPanel& panel = bar->panel(nPanel);
        EXPECT_EQ(panel.panelStyle(), styles[nPanel - 1]);
        EXPECT_TRUE(panel.alignment() & (nPanel == 1 ? Qt::AlignLeft : Qt::AlignHCenter));
        if (nPanel > 1) {
            EXPECT_EQ(panel.autoSize(), PanelAutoSize::contents);
            EXPECT_EQ(bar->panelWidth(nPanel), 240);
        }
    }
}

TEST_F(TemplateTreeLife, TheHelpBelongsToTheForm)
{
    shownForm();
    form().ShowHelpContents();
    ASSERT_EQ(help->shown.size(), 1U);
    EXPECT_EQ(help->shown[0].owner, static_cast<std::uintptr_t>(form().winId()));
    EXPECT_EQ(help->shown[0].command, HelpViewer::kDisplayContents);
}

TEST_F(TemplateTreeLife, TheReportOfTheLatestVersionsCanBeSeen)
{
    form();
    EXPECT_TRUE(menuTool("ID_PRODVERSION")->isVisible());
}

TEST_F(TemplateTreeLife, AStoredMinimisedStateOpensNormalInItsPlace)
{
    store("MainState", "1");
    storePlace();
    expectPlace(kStoredPlace, false);
}

TEST_F(TemplateTreeLife, AHeightOf199OpensMaximisedWhateverTheOtherNumbers)
{
    store("MainState", "0");
    storePlace();
    store("MainHeight", "199");
    expectPlace({}, true);
}

TEST_F(TemplateTreeLife, AMaximisedFormStaysMaximised)
{
    store("MainState", "2");
    storePlace();
    expectPlace({}, true);
}

TEST_F(TemplateTreeLife, ClosingWhileMinimisedKeepsTheStoredPlace)
{
    store("MainState", "0");
    storePlace();
    shownForm();
    form().setGeometry(100, 100, 700, 500);
    form().setWindowState(Qt::WindowMinimized);
    closeForm();
    EXPECT_EQ(stored("MainState"), "1");
    EXPECT_EQ(stored("MainLeft"), "300");
    EXPECT_EQ(stored("MainWidth"), "13500");
}

TEST_F(TemplateTreeLife, ClosingWhileMaximisedStoresTheMaximisedSize)
{
    storePlace();
    store("MainState", "2");
    shownForm();
    const int nWidth = form().width();
    closeForm();
    EXPECT_EQ(stored("MainState"), "2");
    EXPECT_EQ(stored("MainWidth"), std::to_string(nWidth * 15));
}

TEST_F(TemplateTreeLife, EachCompanyComesBackInItsOwnPlace)
{
    sessionState().gsCompanyID = "ABC";
    store("MainState", "2");
    store("ABCMainState", "0");
    store("ABCMainHeight", "9000");
    store("ABCMainWidth", "13500");
    expectPlace({0, 0, 900, 600}, false);
}

TEST_F(TemplateTreeLife, InARemoteSessionTheFirstActivateGivesTheTreeAPlainPicture)
{
    fakes.machine->bRemoteSession = true;
    form();
    fakes.files->calls.clear();
    const auto nReads = [this] {
        return std::count_if(fakes.files->calls.begin(), fakes.files->calls.end(), [](const auto& call) {
            return call.sPath == "C:\\Zorvo\\Images\\Treelist Background White.bmp";
        });
    };
    shownForm();
    EXPECT_EQ(nReads(), 1);
    EXPECT_FALSE(form().findChild<TreeView*>()->palette().brush(QPalette::Base).texture().isNull());
    form().hide();
    shownForm();
    EXPECT_EQ(nReads(), 1) << "the first time only";
}

TEST_F(TemplateTreeLife, OnTheMachineItselfTheTreeKeepsItsColours)
{
    shownForm();
    EXPECT_TRUE(form().findChild<TreeView*>()->palette().brush(QPalette::Base).texture().isNull());
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(TemplateTreeLife, TheUnloadEventTakesItsStepsInTheirOrder)
{
    sessionState().bReturnSelection = true;
    sessionState().sSelectedDocuments = "<Documents/>";
    const std::string sMarker = sDFSMarkerPath();
    store("MainState", "0");
    storePlace();
    shownForm();
    form().ShowHelpContents();
    // The application as it is let go: the catalogue has gone by then, the captions have not.
    creationState().objWordApp = {office->createWord().get(), [this](const WordApplication* /*word*/) {
                                      EXPECT_EQ(treeState().objLibraryDoc, nullptr);
                                      EXPECT_EQ(treeState().objStatusDoc, nullptr);
                                      EXPECT_TRUE(bCaptionsLoaded());
                                      note("Word");
                                  }};
    creationState().objExcelApp = {office->createExcel().get(), [this](const ExcelApplication* /*excel*/) {
                                       EXPECT_TRUE(bCaptionsLoaded());
                                       note("Excel");
                                   }};
    fakes.settings->onWrite = [this](const std::string& sKey) {
        EXPECT_FALSE(form().isVisible()) << "the close box hides the form ahead of all";
        note(sKey);
    };
    fakes.files->onCall = [this, sMarker](const FakeFiles::Call& call) {
        if (call.sPath != sMarker)
            return;
        EXPECT_NE(treeState().objStatusDoc, nullptr);
        note("hand-over");
    };
    class ClosingViewer : public RecordingHelpViewer {
    public:
        std::uintptr_t show(std::uintptr_t owner, const std::string& helpFile, Command command,
                            std::uint32_t data) override
        {
            onShow(command);
            return RecordingHelpViewer::show(owner, helpFile, command, data);
        }
        std::function<void(Command)> onShow;
    };
    const auto closing = std::make_shared<ClosingViewer>();
    closing->onShow = [this](HelpViewer::Command command) {
        EXPECT_EQ(command, HelpViewer::kCloseAll);
        EXPECT_FALSE(bCaptionsLoaded());
        EXPECT_EQ(shellState().gfrmMain, nullptr);
        note("help");
    };
    platform().help = closing;
    service->onEnd = [this] { note("end"); };
    closeForm();
    EXPECT_THAT(journal, ElementsAre("MainLeft", "MainTop", "MainWidth", "MainHeight", "MainState",
                                     "hand-over", "Word", "Excel", "help", "end"));
    EXPECT_THAT(office->calls(), testing::Not(Contains(testing::HasSubstr("Quit"))))
        << "the office is let go, not ended";
}

TEST_F(TemplateTreeLife, TheFrameworkGoesWithItsForm)
{
    form();
    closeForm();
    EXPECT_NE(shellState().objActXManager, nullptr) << "the unload event itself leaves it";
    templateTree().unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(shellState().objActXManager, nullptr);
}

TEST_F(TemplateTreeLife, AFormThatFailedToLoadTakesNoFrameworkFromTheNextOne)
{
    store("MainState", "99999");
    EXPECT_THROW(form(), RunTimeError);
    store("MainState", "2");
    form();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the first one goes only now
    EXPECT_EQ(shellState().gfrmMain, &form());
    EXPECT_NE(shellState().objActXManager, nullptr);
}

TEST_F(TemplateTreeLife, AnUnloadByCommandSavesAheadOfTheHiding)
{
    shownForm();
    bool bShown = false;
    fakes.settings->onWrite = [&](const std::string& /*sKey*/) { bShown = form().isVisible(); };
    EXPECT_THROW(form().ExitProgram(), ProcessEnded);
    EXPECT_TRUE(bShown);
    EXPECT_EQ(service->nEnded, 1);
}

TEST_F(TemplateTreeLife, SettingsThatCannotBeWrittenDoNotKeepTheProcess)
{
    shownForm();
    fakes.settings->nFailWrites = kPathOrFileAccess;
    closeForm();
    EXPECT_EQ(service->nEnded, 1);
    EXPECT_EQ(treeState().objStatusDoc, nullptr);
}

TEST_F(TemplateTreeLife, AnotherCompanysBandsCarryItsWordingAndItsSideStrip)
{
    sessionState().gsCompanyID = "ABC";
    form();
    EXPECT_EQ(tool("ID_BRENDLEHELP")->text(), QStringLiteral("ABC's Brendle Help"));
    EXPECT_EQ(menuTool("ID_BRENDLEHELP")->text(), QStringLiteral("ABC's Brendle &Help"));
    EXPECT_EQ(menuTool("ID_ABOUT")->text(), QStringLiteral("&About ABC's Brendle..."));
    EXPECT_EQ(tool("ID_ALLBRENDLEOFFERINGS")->text(), QStringLiteral("View &All ABC's Brendle..."));
    EXPECT_EQ(menuTool("ID_ALLBRENDLEOFFERINGS")->text(),
              QStringLiteral("All of ABC's Brendle &Offerings..."));
    EXPECT_NE(form().findChild<ToolBands*>()->pool().sideStrip(), nullptr);
    EXPECT_EQ(tool("ID_BRENDLEHELP")->statusTip(), QStringLiteral("ABC Brendle Help."));
    EXPECT_EQ(tool("ID_SEARCHSABLEWOODLIBRARY")->toolTip(), QStringLiteral("Search ABC's Sablewood Library"));
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(TemplateTreeLife, TheDefaultCompanyReadsNoPictureForItsBands)
{
    form();
    for (const FakeFiles::Call& call : fakes.files->calls)
        EXPECT_NE(call.sPath, "C:\\Zorvo\\Images\\Sidebar.bmp");
    EXPECT_EQ(form().findChild<ToolBands*>()->pool().sideStrip(), nullptr);
    EXPECT_EQ(menuTool("ID_ABOUT")->text(), QStringLiteral("&About Zorvo's Brendle..."));
}

TEST_F(TemplateTreeLife, UnderOtrTheContactMessageCarriesItsAmpersand)
{
    sessionState().gsCompanyID = "OTR";
    const auto& message = *form().findChild<MnemonicLabel*>(QStringLiteral("lblContactUsMessage"));
    EXPECT_TRUE(message.text().contains(QStringLiteral("contact OT&R to offer")))
        << message.text().toStdString();
    EXPECT_EQ(tool("ID_MYCURRENT_BRENDLE"), nullptr);
    EXPECT_TRUE(menuTool("ID_MYCURRENT_BRENDLE")->isChecked());
    EXPECT_FALSE(menuTool("ID_ALLBRENDLEOFFERINGS")->isVisible());
}

} // namespace
} // namespace zorvo
