#include "shell/ZorvoTreeSelector.h"

#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "platform/ObjectService.h"
#include "platform/Platform.h"
#include "shell/MainForm.h"
#include "shell/Settings.h"
#include "shell/ShellForms.h"
#include "shell/clsAbout.h"
#include "shell/clsSWDSearch.h"
#include "shell/eventMailbox.h"
#include "shell/session.h"
#include "shell/shellState.h"

namespace zorvo {

namespace {

void raiseMainForm()
{
    shellState().gfrmMain->setTmEventInterval(kRequestRaise);
}

/// The splash for as long as the wait lasts. Another client's request may end the wait in the timer's place,
/// and nobody else would then take the splash and its busy pointer away.
class SplashOnScreen {
public:
    explicit SplashOnScreen(ShellForms& forms) { forms.showSplash(); }
    ~SplashOnScreen() { endSplash(); }
    SplashOnScreen(const SplashOnScreen&) = delete;
    SplashOnScreen& operator=(const SplashOnScreen&) = delete;
};

/// The splash's busy pointer loads the main form, hidden, so that the tree fills behind the picture.
void waitBehindSplash(ShellForms& forms)
{
    const SplashOnScreen splash(forms);
    forms.mainForm().setTmEventInterval(kRequestSplashWait);
    while (forms.mainForm().tmEventInterval() != 0)
        forms.processPendingEvents();
}

} // namespace

void ZorvoTreeSelector::ShowTreeDirectly()
{
    InitSession(false);
    LoadSettings();
    if (shellState().gfrmMain) {
        raiseMainForm();
        return;
    }
    ShellForms& forms = *shellState().forms;
    if (sessionState().bDisplaySplash)
        waitBehindSplash(forms);
    forms.showMainForm();
}

void ZorvoTreeSelector::ShowTreeDFS()
{
    InitSession(true);
    if (shellState().gfrmMain)
        raiseMainForm();
    else
        shellState().forms->showMainForm();
}

void ZorvoTreeSelector::ShowEngagementListDFS()
{
    InitSession(false);
    LoadSettings();
    std::string sSelection = shellState().forms->chooseEngagement();
    WriteDFSResult(sSelection);
    if (shellState().gfrmMain)
        shellState().gfrmMain->setTmEventInterval(kRequestUnload);
}

void ZorvoTreeSelector::searchSWD()
{
    clsSWDSearch().SWD_RunSearch();
    CloseIfUnused();
}

void ZorvoTreeSelector::show_aboutDialog()
{
    clsAbout().show_QBK_About();
    CloseIfUnused();
}

void ZorvoTreeSelector::QBK_Help()
{
    shellState().forms->showHelpContents();
    CloseIfUnused();
}

void ZorvoTreeSelector::makeTopWindow()
{
    if (shellState().gfrmMain && shellState().gfrmMain->isShown())
        raiseMainForm();
}

void ZorvoTreeSelector::ShowTreeForCompany(const std::string& sCompanyID)
{
    StoreCompanyID(sCompanyID);
    ShowTreeDirectly();
}

void ZorvoTreeSelector::CloseIfUnused()
{
    MainForm* gfrmMain = shellState().gfrmMain;
    if (!gfrmMain)
        platform().service->endProcess();
    // A hidden main form was loaded by a busy pointer alone: it goes the normal way, which ends the process.
    if (!gfrmMain->isShown())
        gfrmMain->setTmEventInterval(kRequestUnload);
}

} // namespace zorvo
