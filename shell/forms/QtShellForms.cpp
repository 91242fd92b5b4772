#include "shell/forms/QtShellForms.h"

#include "branding/webPages.h"
#include "catalogue/EngagementHost.h"
#include "catalogue/OfferingsHost.h"
#include "catalogue/basHTMLHelp.h"
#include "catalogue/forms/frmEngagementList.h"
#include "creation/forms/QtCreationForms.h"
#include "creation/officeApplications.h"
#include "search/ShowSearchForm.h"
#include "search/forms/BuildDisclosureProgressForm.h"
#include "search/forms/QtSearchForms.h"
#include "shell/Settings.h"
#include "shell/ShellForms.h"
#include "shell/forms/TemplateTree.h"
#include "shell/forms/formInstances.h"
#include "shell/forms/frmSingleInstance.h"
#include "shell/forms/frmSplash.h"
#include "shell/shellState.h"
#include "support/SupportHost.h"
#include "support/forms/frmAbout.h"
#include "tree/LoadTree.h"
#include "window/MainFormGate.h"
#include "window/WindowStyle.h"
#include "window/drawnIcon.h"
#include "window/pendingEvents.h"

#include <QApplication>
#include <QEventLoop>
#include <QIcon>

/// Pictures of a static library come in by name; outside any namespace, as the macro wants it.
static void initPictures()
{
    Q_INIT_RESOURCE(shellPictures);
    Q_INIT_RESOURCE(toolIcons);
    Q_INIT_RESOURCE(windowIcon);
    Q_INIT_RESOURCE(supportPictures);
}

namespace zorvo {

DefaultInstance<TemplateTree>& templateTree()
{
    static DefaultInstance<TemplateTree> instance;
    return instance;
}

DefaultInstance<frmSplash>& splash()
{
    static DefaultInstance<frmSplash> instance;
    return instance;
}

DefaultInstance<frmSingleInstance>& singleInstance()
{
    static DefaultInstance<frmSingleInstance> instance;
    return instance;
}

void setMainStatusText(const QString& text)
{
    templateTree().get().setStatusText(text);
}

namespace {

class QtShellForms : public ShellForms {
public:
    MainForm& mainForm() override { return templateTree().get(); }
    void showMainForm() override { templateTree().get().showModeless(); }
    void showSplash() override { splash().get().showModeless(); }
    void unloadSplash() override { splash().unload(); }
    std::string chooseEngagement() override
    {
        frmEngagementList form;
        form.showModal();
        std::string sSelection;
        form.GetData(sSelection);
        return sSelection;
    }
    void showAbout() override
    {
        frmAbout form;
        form.showModal();
    }
    void showHelpContents() override { ShowHelpContents(); }
    void showSearch() override { ShowSearchForm(); }
    void processPendingEvents() override
    {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
};

/// The busy pointer's door to the main form: asking for its state loads it.
class QtMainFormGate : public MainFormGate {
public:
    bool isEnabled() override { return templateTree().get().isEnabled(); }
    void setEnabled(bool bEnabled) override { templateTree().get().setEnabled(bEnabled); }
};

} // namespace

void installQtForms()
{
    initPictures();
    if (!dynamic_cast<WindowStyle*>(QApplication::style()))
        QApplication::setStyle(new WindowStyle);
    // Of the windows that have none of their own.
    QApplication::setWindowIcon(drawnIcon(QStringLiteral(":/icons/brendle")));
    static QtShellForms forms;
    static QtMainFormGate gate;
    shellState().forms = &forms;
    mainFormGate() = &gate;
    engagementHost() = {[] { SaveSettings(); }, [] { templateTree().get().SetTBState(false, true); }};
    installQtSearchForms();
    supportHost() = {[] { return templateTree().get().caption(); },
                     [] { ZorvoQuickTour(templateTree().get().winId()); }};
    installDisclosureProgressForm();
    offeringsHost() = {[](TreeNodes& tree) { LoadTree(tree, nullptr, true, false); },
                       [] { ReleaseOfficeObjects(); }};
    installQtCreationForms({[](const std::string& sInstanceName) {
                                singleInstance().get().setInstanceName(sInstanceName);
                                singleInstance().get().showModeless();
                            },
                            [] { singleInstance().unload(); }});
}

} // namespace zorvo
