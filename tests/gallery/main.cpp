// zorvo-gallery FOLDER COMPANY [main]: pictures of all forms of the program, or of the main window alone, as
// the company shows them, into FOLDER. tools/gallery gives it a display and the sample products.

#include "base/failure.h"
#include "branding/BrandedMsgBox.h"
#include "catalogue/basHTMLHelp.h"
#include "catalogue/forms/frmAllProducts.h"
#include "companions/ProfileForm.h"
#include "creation/CreationForms.h"
#include "creation/ProcessSelectedDocs.h"
#include "help/viewer/HelpDesk.h"
#include "platform/HelpViewer.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/PageProcess.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/linuxPlatform.h"
#include "search/DisclosureProgress.h"
#include "search/ShowSearchForm.h"
#include "search/forms/SWDSearchHelpText.h"
#include "search/forms/SWDSearchMessage.h"
#include "search/forms/searchFormInstances.h"
#include "shell/ReportError.h"
#include "shell/ShellForms.h"
#include "shell/ZorvoTreeSelector.h"
#include "shell/forms/QtShellForms.h"
#include "shell/forms/TemplateTree.h"
#include "shell/forms/formInstances.h"
#include "shell/forms/frmNoMoreSearch.h"
#include "shell/forms/frmSingleInstance.h"
#include "shell/shellState.h"
#include "tests/fakes/FakeObjectCreator.h"
#include "tests/fakes/RecordingObjectService.h"
#include "tests/gallery/Photographer.h"
#include "window/ToolBands.h"
#include "window/TreeView.h"
#include "window/accessKey.h"
#include "window/messageBox.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace zorvo {

namespace {

constexpr int kPageMs = 1500;

/// The viewer's own windows, in this process.
class HelpHere : public HelpViewer {
public:
    HelpHere()
        : paths_(userDataFolder())
        , desk_(QCoreApplication::applicationDirPath() + QStringLiteral("/brendle-help-reader"), {},
                *platform().settings)
    {
    }
    std::uintptr_t show(std::uintptr_t owner, const std::string& helpFile, Command command,
                        std::uint32_t data) override
    {
        return desk_.show(owner, QString::fromStdString(paths_.toNative(helpFile)), command, data,
                          QStringLiteral("gallery"));
    }
    void setTopMost(std::uintptr_t window, bool bTop) override { desk_.setTopMost(window, bTop); }

private:
    DosPaths paths_;
    help::HelpDesk desk_;
};

TemplateTree& mainForm()
{
    return templateTree().get();
}

template <typename Widget>
Widget& control(const QWidget& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QLatin1String(name));
    if (!found)
        qFatal("no control %s", name);
    return *found;
}

/// Done with a window by pressing a button of it.
std::function<void(QWidget&)> press(const char* button)
{
    return [button](QWidget& window) { control<QPushButton>(window, button).click(); };
}

void leaveOpen(QWidget& /*window*/) {}

ProfileData sampleProfile()
{
    return {{kClientName, "Larkspur Orchards Ltd"},
            {kPeriodEnd, "31 December 2007"},
            {kPreparedBy, "M. Ostrova"},
            {kReviewedBy, "J. Abernathy"},
            {kEngagementType, "Audit"}};
}

/// The products' add-in, which brings its form up for a batch.
Value askProfile(std::vector<Value>& arguments)
{
    DosPaths paths(userDataFolder());
    auto& sFolder = std::get<std::string>(arguments.front());
    ProfileForm form({sampleProfile()}, paths.toNative(sFolder));
    if (form.exec() != QDialog::Accepted)
        return std::string();
    sFolder += "\\";
    return profileText(form.profile());
}

void installMachine()
{
    installLinuxPlatform();
    const auto objects = std::make_shared<FakeObjectCreator>();
    objects->provideObject("Brendle.ActXManager");
    objects->provideObject("ZorvoTSR.Connect")
        ->answer("SetCompanyID", [](std::vector<Value>&) { return Value(); })
        .answer("TreeSelectProfileDataForm", askProfile);
    platform().objects = objects;
    platform().service = std::make_shared<RecordingObjectService>();
    platform().office = makeLibreOffice();
    platform().office->setIdleWork(
        [] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
    platform().help = std::make_shared<HelpHere>();
    platform().pages = std::make_shared<PageProcesses>(DosPaths(userDataFolder()));
    installErrorReporter();
    installSelectionConsumer();
    installQtForms();
}

void showMainWindow(Photographer& photographer, const std::string& sCompany)
{
    const auto click = [](QWidget& splash) {
        QTest::mouseClick(&control<QWidget>(splash, "picSplash"), Qt::LeftButton);
    };
    photographer.take({{.window = QStringLiteral("frmSplash"),
                        .picture = QStringLiteral("frmSplash"),
                        .then = click,
                        .nStillMs = 100},
                       {.window = QStringLiteral("TemplateTree"), .then = leaveOpen}},
                      [&] { ZorvoTreeSelector().ShowTreeForCompany(sCompany); });
}

/// The first document of a folder that holds enough for a batch.
TreeNode& sampleDocument()
{
    constexpr std::size_t kEnough = 4;
    TreeNodes& nodes = mainForm().tree();
    const auto isDocument = [](const TreeNode* node) { return node->children().empty(); };
    for (int i = 1; i <= nodes.count(); ++i) {
        const std::vector<TreeNode*>& children = nodes.item(i).children();
        if (children.size() >= kEnough && std::all_of(children.begin(), children.end(), isDocument))
            return *children.front();
    }
    return nodes.item(nodes.count());
}

void selectDocuments(int nDocuments)
{
    TreeNode& document = sampleDocument();
    for (TreeNode* above = document.parent(); above; above = above->parent())
        mainForm().tree().setExpanded(*above, true);
    QWidget& tree = control<TreeView>(mainForm(), "TreeView1");
    QTest::keyClick(&tree, Qt::Key_Home);
    mainForm().tree().setSelected(document, true);
    mainForm().tree().makeCurrent(document);
    for (int i = 1; i < nDocuments; ++i)
        QTest::keyClick(&tree, Qt::Key_Down, Qt::ShiftModifier);
}

void pictureMainWindow(Photographer& photographer)
{
    const QString window = QStringLiteral("TemplateTree");
    photographer.take({{.window = window, .picture = window, .then = leaveOpen}}, [] { selectDocuments(1); });
    auto& menus = *control<ToolBands>(mainForm(), "tbMain").menuBar();
    for (QAction* action : menus.actions()) {
        if (!action->isVisible())
            continue;
        const auto close = [action](QWidget&) { action->menu()->close(); };
        const QString picture = window + QLatin1Char('-') + withoutAccessKey(action->text());
        photographer.take({{.window = window, .picture = picture, .then = close}},
                          [&] { menus.setActiveAction(action); });
    }
    // Where the tools don't fit, those behind the last button.
    if (auto* more = mainForm().findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
        more && more->isVisible()) {
        const auto close = [more](QWidget&) { more->menu()->close(); };
        photographer.take({{.window = window, .picture = window + QStringLiteral("-more"), .then = close}},
                          [&] { QTimer::singleShot(0, more, &QToolButton::showMenu); });
    }
}

void pictureDialogs(Photographer& photographer)
{
    const auto one = [&](const char* name, const std::function<void()>& open, int nStillMs = 250) {
        const QString window = QLatin1String(name);
        photographer.take({{.window = window, .picture = window, .nStillMs = nStillMs}}, open);
    };
    one("frmAbout", [] { shellState().forms->showAbout(); });
    one("frmOptions", [] { mainForm().ZorvoBrendleOptionsDialog(); });
    one("frmEngagementList", [] { shellState().forms->chooseEngagement(); });
    one("frmAllProducts", ShowAllOfferings, kPageMs);
    one("frmNoMoreSearch", [] {
        frmNoMoreSearch form;
        form.showModal();
        form.unload();
    });
    const auto type = [](const char* field, const char* text, const char* button) {
        return [=](QWidget& window) {
            QTest::keyClicks(&control<QLineEdit>(window, field), QLatin1String(text));
            control<QPushButton>(window, button).click();
        };
    };
    const QString treeSearch = QStringLiteral("frmTreeSearch");
    photographer.take({{.window = treeSearch, .then = type("Text1", "representation", "cmdFind")},
                       {.window = treeSearch, .picture = treeSearch, .then = press("cmdClose")},
                       {.window = QStringLiteral("TemplateTree"),
                        .picture = QStringLiteral("TemplateTree-found"),
                        .then = leaveOpen}},
                      [] { mainForm().SearchTree(); });
}

void pictureLibrarySearch(Photographer& photographer)
{
    const QString form = QStringLiteral("SearchSwdLib");
    const auto type = [](QWidget& window) {
        QTest::keyClicks(&control<QLineEdit>(window, "Keyword"), QStringLiteral("lease obligation"));
    };
    photographer.take({{.window = form, .then = type}, {.window = form, .picture = form}}, ShowSearchForm);
    const QString help = QStringLiteral("SWDSearchHelpText");
    SWDSearchHelpText rules;
    photographer.take({{.window = help, .picture = help}}, [&] { rules.showModeless(); });
    const QString message = QStringLiteral("SWDSearchMessage");
    photographer.take({{.window = message, .picture = message}}, [] {
        swdSearchMessage().get().showModeless();
        swdSearchMessage().get().setProgress(37, 210);
    });
    const QString building = QStringLiteral("BuildDisclosureProgressForm");
    photographer.take({{.window = building, .picture = building}}, [] {
        disclosureProgress()->showForm();
        disclosureProgress()->setProgressValue("45% Completed");
    });
    disclosureProgress()->hideAndUnload();
}

/// A batch with all its windows; the documents are real.
void pictureDocuments(Photographer& photographer, bool bAsksProfile)
{
    const QString single = QStringLiteral("frmSingleInstance");
    constexpr int kUntilDotsMs = 900;
    photographer.take({{.window = single, .picture = single, .then = leaveOpen, .nStillMs = kUntilDotsMs}},
                      [] { creationForms()->showSingleInstance("Audit Planning Memorandum"); });
    creationForms()->unloadSingleInstance();

    const QString progress = QStringLiteral("frmProgressForm");
    std::deque<Sight> sights{{.window = QStringLiteral("frmSaveFolderDialog"),
                              .picture = QStringLiteral("frmSaveFolderDialog"),
                              .then = press("cmdOK")}};
    if (bAsksProfile)
        sights.push_back({.window = QStringLiteral("frmProfileData"),
                          .picture = QStringLiteral("frmProfileData"),
                          .then = press("cmdOK")});
    sights.push_back(
        {.window = progress,
         .picture = progress + QStringLiteral("-making"),
         .then = leaveOpen,
         .isReady =
             [](const QWidget& window) { return control<QProgressBar>(window, "ProgressBar1").isVisible(); },
         .nStillMs = 0});
    sights.push_back({.window = progress, .picture = progress, .isReady = [](const QWidget& window) {
                          return control<QPushButton>(window, "cmdOpen").isVisible();
                      }});
    selectDocuments(4);
    photographer.take(std::move(sights), [] { mainForm().OKbtn_Click(); });
}

void pictureHelp(Photographer& photographer)
{
    const QString window = QStringLiteral("HelpWindow");
    const auto tab = [](int nTab) {
        return [nTab](QWidget& help) { control<QTabWidget>(help, "Navigation").setCurrentIndex(nTab); };
    };
    photographer.take({{.window = window, .picture = window, .then = tab(1)},
                       {.window = window, .picture = window + QStringLiteral("-index"), .then = tab(2)},
                       {.window = window, .picture = window + QStringLiteral("-search")}},
                      ShowHelpContents);
}

void pictureMessages(Photographer& photographer)
{
    photographer.take({{.picture = QStringLiteral("message-failure")}}, [] {
        recordFailure(RunTimeError(kPathNotFound));
        ReportError("TemplateTree.Form_Load");
    });
    photographer.take({{.picture = QStringLiteral("message-question"),
                        .then = [](QWidget& box) { box.findChildren<QPushButton*>().front()->click(); }}},
                      [] {
                          BrandedMsgBox("Zorvo's Brendle couldn't find the folder. Do you want to create it?",
                                        kMsgYesNo + kMsgQuestion);
                      });
}

int takePictures(const QString& folder, const std::string& sCompany, bool bMainAlone)
{
    installMachine();
    Photographer photographer(folder);
    showMainWindow(photographer, sCompany);
    pictureMainWindow(photographer);
    if (!bMainAlone) {
        pictureDialogs(photographer);
        pictureLibrarySearch(photographer);
        pictureDocuments(photographer, sCompany == "Zorvo");
        pictureHelp(photographer);
        pictureMessages(photographer);
    }
    std::printf("%s: %d pictures, %d missing\n", qPrintable(folder), photographer.pictures(),
                photographer.missing());
    std::fflush(stdout);
    return photographer.missing() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace zorvo

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zorvobrendle"));
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: zorvo-gallery FOLDER COMPANY [main]\n");
        return 2;
    }
    // The main window's own end would be that of the process, with a different exit code.
    std::_Exit(zorvo::takePictures(arguments[1], arguments[2].toStdString(), arguments.size() > 3));
}
