#include "shell/forms/TemplateTree.h"

#include "base/failure.h"
#include "base/sessionState.h"
#include "branding/brandedFiles.h"
#include "branding/companyIdentity.h"
#include "branding/forms/formBranding.h"
#include "branding/sRebrand.h"
#include "branding/webPages.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "creation/creationState.h"
#include "platform/Machine.h"
#include "platform/ObjectService.h"
#include "platform/Platform.h"
#include "shell/Settings.h"
#include "shell/addInCopy.h"
#include "shell/basBrendleActiveXManager.h"
#include "shell/commandTools.h"
#include "shell/eventMailbox.h"
#include "shell/forms/MainFormLayout.h"
#include "shell/mainCaption.h"
#include "shell/mainGeometry.h"
#include "shell/session.h"
#include "shell/shellState.h"
#include "tree/LoadTree.h"
#include "tree/treeState.h"
#include "window/LinkLabel.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/ScrolledLabel.h"
#include "window/StatusPanels.h"
#include "window/TextFrame.h"
#include "window/TextScrollArea.h"
#include "window/ToolBands.h"
#include "window/TreeView.h"
#include "window/UiIds.h"
#include "window/clsMousePointer.h"
#include "window/drawnIcon.h"
#include "window/guardedSlot.h"
#include "window/spacing.h"
#include "window/twips.h"
#include "window/windowPosition.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QScopeGuard>

namespace zorvo {

namespace {

constexpr int kPanelTwips = 240;

constexpr QSize kDefaultSize{1060, 700};
constexpr QSize kSmallestSize{640, 420};

/// The text stands right below the frame's title.
void fill(QGroupBox& frame, QWidget& contents)
{
    auto* layout = new QVBoxLayout(&frame);
    layout->setContentsMargins(kSpacing, kSpacing / 2, kSpacing / 2, kSpacing / 2);
    layout->addWidget(&contents, 1); // as high as it may be, and the rest below it
    layout->addStretch();
}

/// One of several in a scrolled area.
ScrolledLabel* newParagraph(const char* name, QWidget& parent)
{
    auto* label = new ScrolledLabel(name, &parent);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    label->setSizePolicy(policy);
    return label;
}

} // namespace

TemplateTree::TemplateTree()
    : Form("TemplateTree")
    , tools_(commandTools())
    , tmEvent_([this] { runGuarded(this, [this] { handleEventTimer(*this); }); }, this)
{
    setCaption(QStringLiteral("Zorvo's Brendle"));
    setWindowIcon(drawnIcon(QStringLiteral(":/icons/brendle")));
    resize(kDefaultSize);
    setMinimumSize(kSmallestSize);
    buildControls();
    buildDescription();
    layOut();
    mapCommands();
    connectControls();
}

TemplateTree::~TemplateTree()
{
    if (shellState().gfrmMain == this)
        shellState().gfrmMain = nullptr;
    // A form that failed to load may go behind the next one, which has the framework now.
    if (!shellState().gfrmMain)
        ReleaseActXManager();
}

void TemplateTree::buildControls()
{
    tbMain_ = new ToolBands("tbMain", tools_, this);
    lbMain_ = new ListBar("lbMain", this);
    lbMain_->setAccessibleName(tr("Product groups"));
    TreeView1_ = new TreeView("TreeView1", this);
    TreeView1_->setAccessibleName(tr("Products and documents"));
    sbZorvoBrendle_ = new StatusPanels("sbZorvoBrendle", this);
    sbZorvoBrendle_->setAccessibleName(tr("Status bar"));
    gagZorvoBrendle_ = new QProgressBar(this);
    gagZorvoBrendle_->setObjectName(QStringLiteral("gagZorvoBrendle"));
    gagZorvoBrendle_->setAccessibleName(tr("Progress"));
    // It has its place at all times, so that it is there as soon as it shows.
    QSizePolicy policy = gagZorvoBrendle_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    gagZorvoBrendle_->setSizePolicy(policy);
    gagZorvoBrendle_->hide();
    picForTaskManager_ = new QLabel(this);
    picForTaskManager_->setObjectName(QStringLiteral("picForTaskManager"));
    picForTaskManager_->hide();
}

void TemplateTree::buildDescription()
{
    fraInstructions_ = new QGroupBox(QStringLiteral("Instructions"), this);
    fraInstructions_->setObjectName(QStringLiteral("fraInstructions"));
    lblInstructions_ = newParagraph("lblInstructions", *fraInstructions_);
    lblInstructions_->setCaption(QStringLiteral(
        "To create a new Brendle document, select one or more documents from the list, and then click "
        "New Document. Hint: To pick more than one document hold down the Ctrl key while you click "
        "with the mouse."));
    lblContactUsMessage_ = newParagraph("lblContactUsMessage", *fraInstructions_);
    lblContactUsMessage_->setCaption(QStringLiteral(
        "Users of these products are encouraged to contact Zorvo to offer any comments or suggestions "
        "to improve the usefulness of future editions."));
    lblContactUsClickLinkInstructions_ =
        new MnemonicLabel("lblContactUsClickLinkInstructions", QStringLiteral("Click the following link to "),
                          fraInstructions_);
    lblContactUsClickLinkInstructions_->setWordWrap(false); // the link ends its line
    linkContactUs_ = new LinkLabel("linkContactUs", QStringLiteral("Contact Us"), fraInstructions_);

    fraDesc_ = new TextFrame(QStringLiteral("Description"), this);
    fraDesc_->setObjectName(QStringLiteral("fraDesc"));
    lblDesc_ = new ScrolledLabel("lblDesc", fraDesc_);
    lblDesc_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
}

void TemplateTree::layOutInstructions()
{
    auto* texts = new QWidget;
    auto* link = new QHBoxLayout;
    spaceInner(*link);
    link->setSpacing(kSpacing / 2);
    link->addWidget(lblContactUsClickLinkInstructions_);
    link->addWidget(linkContactUs_);
    link->addStretch();
    auto* instructions = new QVBoxLayout(texts);
    spaceInner(*instructions);
    instructions->addWidget(lblInstructions_);
    instructions->addWidget(lblContactUsMessage_);
    instructions->addLayout(link);
    instructionsArea_ = new TextScrollArea(texts, fraInstructions_);
    instructionsArea_->setObjectName(QStringLiteral("instructionsArea"));
    instructionsArea_->setAccessibleName(fraInstructions_->title());
    fill(*fraInstructions_, *instructionsArea_);
}

void TemplateTree::layOutDescription()
{
    descriptionArea_ = new TextScrollArea(lblDesc_, fraDesc_);
    descriptionArea_->setObjectName(QStringLiteral("descriptionArea"));
    descriptionArea_->setAccessibleName(fraDesc_->title());
    descriptionArea_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    fill(*fraDesc_, *descriptionArea_);
}

void TemplateTree::layOut()
{
    layOutInstructions();
    layOutDescription();
    auto* whole = new MainFormLayout(this);
    using Part = MainFormLayout::Part;
    whole->setPart(Part::bands, tbMain_);
    whole->setPart(Part::listBar, lbMain_);
    whole->setPart(Part::tree, TreeView1_);
    whole->setPart(Part::instructions, fraInstructions_);
    whole->setPart(Part::description, fraDesc_);
    whole->setPart(Part::status, sbZorvoBrendle_);
    whole->setPart(Part::gauge, gagZorvoBrendle_);
    whole->setListener([this](const MainFormParts& parts) {
        sbZorvoBrendle_->setWidth(1, parts.nPanel1Width);
        descriptionArea_->setMaximumHeight(toPixels(parts.nDescLabelHeight));
    });
    gagZorvoBrendle_->raise();
}

void TemplateTree::connectControls()
{
    connect(tbMain_, &ToolBands::toolClicked, this,
            guardedSlot(this, [this](const QString& id) { toolClick(id); }));
    connect(tbMain_, &ToolBands::statusTextChanged, this,
            [this](const QString& text) { sbZorvoBrendle_->showHint(text); });
    connect(lbMain_, &ListBar::clicked, this, guardedSlot(this, [this](int index) { listBarClick(index); }));
    connect(TreeView1_, &TreeView::nodeSelected, this,
            guardedSlot(this, [this](TreeNode* node) { nodeSelected(node); }));
    connect(TreeView1_, &TreeView::nothingSelected, this, [this] {
        if (bEventsArmed_)
            clearDescription();
    });
    connect(TreeView1_, &TreeView::nodeDoubleClicked, this,
            guardedSlot(this, [this](const TreeNode* node) { nodeDoubleClick(node); }));
    connect(TreeView1_, &TreeView::focusGained, this, [this] { bTreeHasFocus_ = true; });
    connect(TreeView1_, &TreeView::focusLost, this, [this] { bTreeHasFocus_ = false; });
    connect(linkContactUs_, &QAbstractButton::clicked, this,
            guardedSlot(this, [this] { OpenContactUs(winId()); }));
}

void TemplateTree::onLoad()
{
    shellState().gfrmMain = this;
    try {
        runLoadSteps();
    } catch (...) {
        // The form that failed to load is no main form; its caller hears why.
        shellState().gfrmMain = nullptr;
        sessionState().gbLoading = false;
        goMousePointer().setMousePointer(kDefaultPointer);
        // Nor may the help keep its window as the owner for the rest of the session.
        if (bMadeHelp_)
            ReleaseHTMLHelp();
        throw;
    }
}

/// The order is part of the behaviour: each step may use what came before.
void TemplateTree::runLoadSteps()
{
    goMousePointer().setMousePointer(kHourglass);
    RefreshAddInCopy();
    LoadSettings();
    if (!bCaptionsLoaded())
        xmlCaptionLoader();
    setCaption(QString::fromStdString(sGetDialogTitle()));
    captions_ = {sGetTreeLabelBoth(),        sGetTreeLabelQbkOnly(),       sGetTreeLabelTsrOnly(),
                 sGetCategoryDescrProduct(), sGetCategoryDescrCategeory(), sGetCategoryDescrDocument()};
    loadTree();
    buildStatusBar();
    SetTBState(false, false);
    clearDescription();
    tools_.setVisible("ID_PRODVERSION", true);
    bMadeHelp_ = EnsureHTMLHelp(static_cast<std::uintptr_t>(winId()));
    sessionState().gbLoading = true;
    restoreGeometry();
    const std::string sCaption = sMainCaption(GetCompanyID());
    setCaption(QString::fromStdString(sCaption));
    ConnectActXManager(sCaption);
    ApplyFormBranding(*this);
    RebrandToolbars();
    SetTaskManagerPicture(*this, picForTaskManager_);
    linkContactUs_->setCursor(Qt::PointingHandCursor);
    sessionState().gbLoading = false;
    goMousePointer().setMousePointer(kDefaultPointer);
    TreeView1_->setFocus(); // only now: a form that is disabled by the busy pointer takes no focus
}

void TemplateTree::buildStatusBar()
{
    constexpr std::array kKeyPanels{PanelStyle::date, PanelStyle::time, PanelStyle::caps, PanelStyle::num,
                                    PanelStyle::insert};
    for (const PanelStyle style : kKeyPanels) {
        const int nPanel = sbZorvoBrendle_->addPanel();
        sbZorvoBrendle_->setPanelStyle(nPanel, style);
        sbZorvoBrendle_->setAlignment(nPanel, Qt::AlignHCenter | Qt::AlignVCenter);
        sbZorvoBrendle_->setAutoSize(nPanel, PanelAutoSize::contents);
        sbZorvoBrendle_->setWidth(nPanel, kPanelTwips);
    }
    markUiIds(*sbZorvoBrendle_);
}

/// A fill that takes long shows how far it has come. Nothing but the bar itself is painted meanwhile: an
/// event served now could use a tree that is half there.
void TemplateTree::loadTree()
{
    treeState().progress = [this](int nDone, int nTotal) { showProgress(nDone, nTotal); };
    const auto end = qScopeGuard([this] {
        treeState().progress = {};
        gagZorvoBrendle_->hide();
    });
    LoadTree(TreeView1_->nodes(), &lbMain_->groups(), false, false);
    orderFocus();
}

/// The list bar's entries are made by the fill, after all other controls.
void TemplateTree::orderFocus()
{
    // Only what takes the focus has a place in its order; these two take it while they scroll.
    const auto instructions = instructionsArea_->focusPolicy();
    const auto description = descriptionArea_->focusPolicy();
    instructionsArea_->setFocusPolicy(Qt::StrongFocus);
    descriptionArea_->setFocusPolicy(Qt::StrongFocus);
    if (QWidget* last = lbMain_->lastEntry())
        setTabOrder(last, TreeView1_);
    setTabOrder(TreeView1_, instructionsArea_);
    setTabOrder(instructionsArea_, linkContactUs_);
    setTabOrder(linkContactUs_, descriptionArea_);
    instructionsArea_->setFocusPolicy(instructions);
    descriptionArea_->setFocusPolicy(description);
}

void TemplateTree::showProgress(int nDone, int nTotal)
{
    if (!isVisible())
        return;
    constexpr int kSteps = 100;
    const bool bNew = gagZorvoBrendle_->isHidden() || gagZorvoBrendle_->maximum() != nTotal;
    const int nShown = gagZorvoBrendle_->value();
    if (!bNew && (nDone - nShown) * kSteps < nTotal)
        return;
    gagZorvoBrendle_->setRange(0, nTotal);
    gagZorvoBrendle_->setValue(nDone);
    gagZorvoBrendle_->show();
    gagZorvoBrendle_->repaint();
}

void TemplateTree::restoreGeometry()
{
    const MainGeometry geometry = restoreMainGeometry();
    if (geometry.place) {
        setClientGeometry(*this, {geometry.place->nLeft, geometry.place->nTop, geometry.place->nWidth,
                                  geometry.place->nHeight});
    }
    setWindowState(geometry.state == WindowState::maximised ? Qt::WindowMaximized : Qt::WindowNoState);
}

void TemplateTree::storeGeometry()
{
    WindowState state = WindowState::normal;
    if (isMinimized())
        state = WindowState::minimised;
    else if (isMaximized())
        state = WindowState::maximised;
    const TwipsGeometry place = clientGeometry(*this);
    saveMainGeometry(state, {place.nLeft, place.nTop, place.nWidth, place.nHeight});
}

void TemplateTree::RebrandToolbars()
{
    if (GetCompanyID() == "Zorvo")
        return;
    tools_.setSideStrip(LoadBrandedPicture("Sidebar"));
    tools_.rewriteCaptions([](const std::string& sCaption) { return sRebrand(sCaption, true); });
    // What a tool says of itself in the status bar and beside the pointer marks no access key.
    tools_.rewriteHints([](const std::string& sHint) { return sRebrand(sHint, false); });
}

void TemplateTree::onActivate()
{
    if (bFirstActivate_) {
        bFirstActivate_ = false;
        // A plain picture spares a slow line.
        if (platform().machine->isRemoteSession())
            TreeView1_->setBackgroundPicture(LoadBrandedPicture("Treelist Background White.bmp"));
    }
    bEventsArmed_ = true;
}

void TemplateTree::onQueryUnload(UnloadMode mode)
{
    // At once, before the saving of the unload event.
    if (mode == UnloadMode::closeBox)
        hide();
}

void TemplateTree::onUnload()
{
    storeGeometry();
    if (sessionState().bReturnSelection)
        handSelectionOver();
    ReleaseCatalogDocuments();
    creationState().objWordApp.reset();
    creationState().objExcelApp.reset();
    ReleaseCaptions();
    shellState().gfrmMain = nullptr;
    ReleaseHTMLHelp();
    platform().service->endProcess();
}

/// An answer that can't be written is told; the form goes all the same, and with it the process.
void TemplateTree::handSelectionOver()
{
    try {
        WriteDFSResult(sessionState().sSelectedDocuments);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError();
    }
}

bool TemplateTree::onKeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    return bTreeHasFocus_ && key == Qt::Key_V && modifiers == Qt::ControlModifier;
}

int TemplateTree::tmEventInterval() const
{
    return tmEvent_.interval();
}

void TemplateTree::setTmEventInterval(int nMilliseconds)
{
    tmEvent_.setInterval(nMilliseconds);
}

bool TemplateTree::isShown() const
{
    return isVisible();
}

void TemplateTree::SetWindowTopMost(bool bTop)
{
    setTopMost(*this, bTop);
}

void TemplateTree::unloadForm()
{
    Form::unload();
}

void TemplateTree::unload()
{
    Form::unload();
}

std::string TemplateTree::caption() const
{
    return Form::caption().toStdString();
}

TreeNodes& TemplateTree::tree()
{
    return TreeView1_->nodes();
}

void TemplateTree::setNewDocumentEnabled(bool bEnabled)
{
    tools_.setEnabled("ID_NEW", bEnabled);
}

void TemplateTree::setDescription(const std::string& caption)
{
    lblDesc_->setCaption(QString::fromStdString(caption));
}

void TemplateTree::clearDescription()
{
    setNewDocumentEnabled(false);
    setDescription({});
}

void TemplateTree::setStatusText(const QString& text)
{
    sbZorvoBrendle_->setText(text);
}

} // namespace zorvo
