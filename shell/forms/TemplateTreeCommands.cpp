#include "base/paths.h"
#include "base/sessionState.h"
#include "base/text.h"
#include "branding/companyIdentity.h"
#include "branding/sRebrand.h"
#include "branding/webPages.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "catalogue/forms/frmAllProducts.h"
#include "creation/HasSWDProducts.h"
#include "creation/creationState.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "shell/Settings.h"
#include "shell/clsAbout.h"
#include "shell/clsSWDSearch.h"
#include "shell/expandCollapse.h"
#include "shell/forms/TemplateTree.h"
#include "shell/forms/optionsDialog.h"
#include "shell/forms/treeSearchForms.h"
#include "shell/listBarJump.h"
#include "support/versionReport.h"
#include "tree/NodeDocument.h"
#include "tree/ProcessOK.h"
#include "tree/nodeTag.h"
#include "window/BusyPointer.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace zorvo {

namespace {

/// Commands are lost while this lives; a failure must not leave them lost for good.
class BusyLoading {
public:
    BusyLoading() { sessionState().gbLoading = true; }
    ~BusyLoading() { sessionState().gbLoading = false; }
    BusyLoading(const BusyLoading&) = delete;
    BusyLoading& operator=(const BusyLoading&) = delete;

private:
    BusyPointer pointer_;
};

} // namespace

void TemplateTree::mapCommands()
{
    commands_ = {
        {"ID_NEW", [this] { OKbtn_Click(); }},
        {"ID_EXIT", [this] { ExitProgram(); }},
        {"ID_MYCURRENT_BRENDLE", [this] { setViewTo(true); }},
        {"ID_MYCURRENTANDPRIOR_BRENDLE", [this] { setViewTo(false); }},
        {"ID_ALLBRENDLEOFFERINGS", [] { ShowAllOfferings(); }},
        {"ID_COLLAPSE", [this] { ExpandCollapse(false); }},
        {"ID_EXPAND", [this] { ExpandCollapse(true); }},
        {"ID_OPTIONS", [this] { ZorvoBrendleOptionsDialog(); }},
        {"ID_SEARCHSABLEWOODLIBRARY", [this] { RunLibrarySearch(); }},
        {"ID_SEARCHTREE", [this] { SearchTree(); }},
        {"ID_BRENDLEHELP", [this] { ShowHelpContents(); }},
        {"ID_CONTACTUS", [this] { OpenContactUs(winId()); }},
        {"ID_ZORVOMYACCOUNT", [this] { ZorvoMyAccount(winId()); }},
        {"ID_ZORVONETSUPPORT", [] { ZorvoOnTheWeb(true); }},
        {"ID_ZORVOQUICKTOUR", [this] { ZorvoQuickTour(winId()); }},
        {"ID_ZORVOFAQS", [] { ZorvoOnTheWeb({}, sGetWebOnTheWeb1()); }},
        {"ID_ABOUT", [this] { ShowAboutBox(); }},
        {"ID_WORD", [this] { newWordDocument(); }},
        {"ID_EXCEL", [this] { newExcelWorkbook(); }},
        {"ID_PRODVERSION", [this] { ShowVersionReport(winId()); }},
    };
}

void TemplateTree::toolClick(const QString& id)
{
    // A click during work is lost without a word.
    if (sessionState().gbLoading || goMousePointer().MousePointer() != 0 || bInToolClick_)
        return;
    const QScopedValueRollback guard(bInToolClick_, true);
    const auto command = commands_.find(upperCase(id.toStdString()));
    if (command != commands_.end())
        command->second();
}

void TemplateTree::listBarClick(int index)
{
    if (sessionState().gbLoading || goMousePointer().MousePointer() != 0 || bInListBarClick_)
        return;
    const QScopedValueRollback guard(bInListBarClick_, true);
    try {
        const std::string sKey = lbMain_->groups().item(index).sKey;
        if (sKey == GetCompanyID() + "net")
            ZorvoOnTheWeb();
        else
            jumpToListBarEntry(tree(), sKey);
    } catch (const RunTimeError&) { // a list bar click ignores all errors
    }
}

void TemplateTree::nodeSelected(TreeNode* node)
{
    if (bEventsArmed_ && node)
        ShowNodeDescription(*this, *node);
}

void TemplateTree::nodeDoubleClick(const TreeNode* node)
{
    if (!bEventsArmed_ || bInDoubleClick_ || !node)
        return;
    const QScopedValueRollback guard(bInDoubleClick_, true);
    if (node->tag() == kTagDocument)
        OKbtn_Click();
}

void TemplateTree::OKbtn_Click()
{
    creationState().sMissingOffice.clear();
    ProcessOK(*this);
    // The making of documents itself is silent about a missing office suite; the user must still hear of it.
    setStatusText(QString::fromStdString(creationState().sMissingOffice));
}

void TemplateTree::ExitProgram()
{
    Form::unload();
}

void TemplateTree::ShowHelpContents()
{
    zorvo::ShowHelpContents();
}

void TemplateTree::ShowAboutBox()
{
    clsAbout().show_QBK_About();
}

void TemplateTree::RunLibrarySearch()
{
    clsSWDSearch().SWD_RunSearch();
}

void TemplateTree::ExpandCollapse(bool bExpand)
{
    if (!tree().selectedNode())
        return;
    bEventsArmed_ = false; // no selection events during the walk
    const auto rearm = qScopeGuard([this] { bEventsArmed_ = true; });
    expandCollapse(tree(), bExpand);
}

void TemplateTree::SearchTree()
{
    searchTreeWithForms(*TreeView1_);
}

void TemplateTree::ZorvoBrendleOptionsDialog()
{
    editOptions([this] { SetTBState(false, true); });
}

void TemplateTree::setViewTo(bool bCurrentOnly)
{
    if (sessionState().bShowCurrentOnly == bCurrentOnly)
        return;
    sessionState().bShowCurrentOnly = bCurrentOnly;
    SaveSettings();
    SetTBState(false, true);
}

void TemplateTree::SetTBState(bool bReadSettings, bool bLoadTree)
{
    const BusyLoading busy;
    if (bReadSettings)
        LoadSettings();
    setToolStates();
    if (bLoadTree) {
        loadTree();
        clearDescription();
    }
}

void TemplateTree::setToolStates()
{
    const SessionState& session = sessionState();
    tools_.setState("ID_MYCURRENT_BRENDLE", session.bShowCurrentOnly ? 1 : 0);
    tools_.setState("ID_MYCURRENTANDPRIOR_BRENDLE", session.bShowCurrentOnly ? 0 : 1);
    tools_.setState("ID_ALLBRENDLEOFFERINGS", session.bIncludeAllOfferings ? 1 : 0);
    tools_.setState("ID_SHOWZORVOMENUFORNONZORVO", session.bMenuState ? 1 : 0);
    if (GetCompanyID() != "OTR") {
        tools_.setEnabled("ID_SEARCHSABLEWOODLIBRARY", HasSWDProducts());
        return;
    }
    // This company sells neither the library nor the other offerings.
    tools_.setVisible("ID_SEARCHSABLEWOODLIBRARY", false);
    tools_.setVisible("ID_ALLBRENDLEOFFERINGS", false);
    lblContactUsMessage_->setCaption(
        QString::fromStdString(sRebrand(lblContactUsMessage_->caption().toStdString(), true)));
}

void TemplateTree::newWordDocument()
{
    const auto word = platform().office->createWord();
    word->documentsAdd();
    word->setVisible(true);
}

void TemplateTree::newExcelWorkbook()
{
    const auto excel = platform().office->createExcel();
    excel->setVisible(true);
    excel->workbooksAdd();
}

} // namespace zorvo
