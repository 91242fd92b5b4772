#include "catalogue/forms/frmAllProducts.h"

#include "branding/BrandedMsgBox.h"
#include "branding/forms/formBranding.h"
#include "branding/webPages.h"
#include "catalogue/OfferingsHost.h"
#include "catalogue/basHTMLHelp.h"
#include "platform/Launcher.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "window/PageView.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"
#include "window/guardedSlot.h"
#include "window/spacing.h"
#include "window/twips.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace zorvo {

namespace {

constexpr int kWidthTwips = 14550;
constexpr int kHeightTwips = 8850;
/// Below these the controls stay as they are.
constexpr int kLeastWidthTwips = 9235;
constexpr int kLeastHeightTwips = 5000;
/// How tree and page share the width, and its changes.
constexpr int kTreeShare = 4;
constexpr int kPageShare = 7;

constexpr std::int16_t kArrowHourglass = 13;

constexpr const char* kNotConnected = "View latest information on the web (not connected)";
constexpr const char* kConnected = "View latest information on the web (connected)";

} // namespace

frmAllProducts::frmAllProducts()
    : Form("frmAllProducts")
    , contents_(new QWidget(this))
{
    setCaption(QStringLiteral("Zorvo's Brendle Offerings"));
    buildControls();
    layOut();
    connectControls();
}

frmAllProducts::~frmAllProducts()
{
    // A failure that ended the modal show has left the form loaded, and its pointer set.
    if (isFormLoaded())
        goMousePointer().ClearMousePointer();
}

void frmAllProducts::buildControls()
{
    ssTreeZorvoBrendle_ = new TreeView("ssTreeZorvoBrendle", contents_);
    ssTreeZorvoBrendle_->setAccessibleName(tr("Offerings"));
    ssTreeZorvoBrendle_->nodes().setMultiSelect(false);
    webZorvoBrendle_ = new PageView("webZorvoBrendle", contents_);
    webZorvoBrendle_->setAccessibleName(tr("Page of the selected offering"));
    chkConnectToWeb_ = new QCheckBox(QString::fromLatin1(kNotConnected), contents_);
    chkConnectToWeb_->setObjectName(QStringLiteral("chkConnectToWeb"));
    chkUseBrowser_ = new QCheckBox(QStringLiteral("Connect to the web using my browser"), contents_);
    chkUseBrowser_->setObjectName(QStringLiteral("chkUseBrowser"));
    chkUseBrowser_->setEnabled(false);
    cmdSearch_ = new QPushButton(QStringLiteral("&Search"), contents_);
    cmdSearch_->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch_->setToolTip(QStringLiteral("Click here to view and/or search for documents in a library"));
    cmdOK_ = new QPushButton(QStringLiteral("OK"), contents_);
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdHelp_ = new QPushButton(QStringLiteral("&Help"), contents_);
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    setDefaultButton(cmdOK_);
    setCancelButton(cmdOK_);
}

void frmAllProducts::layOut()
{
    auto* views = new QHBoxLayout;
    spaceInner(*views);
    views->addWidget(ssTreeZorvoBrendle_, kTreeShare);
    views->addWidget(webZorvoBrendle_, kPageShare);
    // By the share alone, whatever each would like for itself.
    for (QWidget* view :
         {static_cast<QWidget*>(ssTreeZorvoBrendle_), static_cast<QWidget*>(webZorvoBrendle_)})
        view->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);

    auto* checks = new QVBoxLayout;
    spaceInner(*checks);
    checks->addWidget(chkConnectToWeb_);
    checks->addWidget(chkUseBrowser_);
    auto* bottom = new QHBoxLayout;
    spaceInner(*bottom);
    bottom->addLayout(checks);
    bottom->addStretch();
    for (QPushButton* button : {cmdSearch_, cmdOK_, cmdHelp_})
        bottom->addWidget(button, 0, Qt::AlignBottom);

    auto* whole = new QVBoxLayout(contents_);
    spaceForm(*whole);
    whole->addLayout(views, 1);
    whole->addLayout(bottom);
}

void frmAllProducts::connectControls()
{
    connect(ssTreeZorvoBrendle_, &TreeView::nodeSelected, this, guardedSlot(this, [this](TreeNode* node) {
                if (mbActive_)
                    ShowNodePage(node->key());
            }));
    connect(ssTreeZorvoBrendle_, &TreeView::focusGained, this, [this] { mbTreeFocused_ = true; });
    connect(ssTreeZorvoBrendle_, &TreeView::focusLost, this, [this] { mbTreeFocused_ = false; });
    connect(webZorvoBrendle_, &PageView::finished, this, guardedSlot(this, [this] { pageFinished(); }));
    connect(webZorvoBrendle_, &PageView::failed, this,
            guardedSlot(this, [this](const std::string& sAddress) { navigationFailed(sAddress); }));
    connect(webZorvoBrendle_, &PageView::stopped, this, [] { goMousePointer().ClearMousePointer(); });
    connect(chkConnectToWeb_, &QCheckBox::toggled, this,
            guardedSlot(this, [this] { chkConnectToWeb_Click(); }));
    connect(chkUseBrowser_, &QCheckBox::toggled, this, guardedSlot(this, [this] {
                if (mbActive_)
                    OpenInBrowser();
            }));
    connect(cmdSearch_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdSearch_Click(); }));
    connect(cmdOK_, &QPushButton::clicked, this, guardedSlot(this, [this] { unload(); }));
    connect(cmdHelp_, &QPushButton::clicked, this, guardedSlot(this, [] { ShowHelpContents(); }));
}

void frmAllProducts::onLoad()
{
    mbActive_ = false;
    resize(QSize(toPixels(kWidthTwips), toPixels(kHeightTwips)).boundedTo(screen()->availableSize()));
    // The engine gets ready while the tree fills.
    webZorvoBrendle_->start();
    if (offeringsHost().loadTree)
        offeringsHost().loadTree(ssTreeZorvoBrendle_->nodes());
    pages_.readProductPaths();
    ApplyFormBranding(*this);
    selectFirstOffering();
    ssTreeZorvoBrendle_->setFocus();
}

/// Something is selected from the start. A group has no page of its own as a rule, so it is the first
/// offering.
void frmAllProducts::selectFirstOffering()
{
    TreeNodes& nodes = ssTreeZorvoBrendle_->nodes();
    for (int n = 1; n <= nodes.count() && !nodes.selectedNode(); ++n) {
        if (bIsOffering(nodes.item(n).key()))
            nodes.setSelected(nodes.item(n), true);
    }
    if (!nodes.selectedNode() && nodes.count() > 0)
        nodes.setSelected(nodes.item(1), true);
}

void frmAllProducts::onActivate()
{
    // Our own message isn't another window: the page that failed would be asked for again, and fail again.
    if (std::exchange(bMessageInFront_, false))
        return;
    if (const TreeNode* node = ssTreeZorvoBrendle_->nodes().selectedNode())
        ShowNodePage(node->key());
    mbActive_ = true;
}

void frmAllProducts::onDeactivate()
{
    bMessageInFront_ = bTelling_;
}

void frmAllProducts::onUnload()
{
    goMousePointer().ClearMousePointer();
}

bool frmAllProducts::onKeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    return mbTreeFocused_ && key == Qt::Key_V && modifiers == Qt::ControlModifier;
}

void frmAllProducts::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    const bool bLargeEnough =
        width() >= toPixels(kLeastWidthTwips) && height() >= toPixels(kLeastHeightTwips);
    if (!isMinimized() && bLargeEnough)
        contents_->setGeometry(rect());
}

void frmAllProducts::ShowNodePage(const std::string& sKey)
{
    msProductCode_ = sPageCode(sKey);
    msClassID_ = sPageClassID(sKey);
    ShowPage();
}

void frmAllProducts::ShowPage()
{
    goMousePointer().setMousePointer(kArrowHourglass);
    if (bValidClassID(msClassID_) && chkConnectToWeb_->isChecked()) {
        msCurrentURL_ = sWebPageURL(msClassID_);
        webZorvoBrendle_->navigate(msCurrentURL_);
        OpenInBrowser();
    } else {
        msCurrentURL_ = pages_.sOfflinePageURL(msProductCode_);
        webZorvoBrendle_->navigate(msCurrentURL_);
    }
}

void frmAllProducts::OpenInBrowser()
{
    if (chkUseBrowser_->isEnabled() && chkUseBrowser_->isChecked())
        ZorvoOnTheWeb({}, msCurrentURL_);
}

void frmAllProducts::chkConnectToWeb_Click()
{
    if (!mbActive_)
        return;
    chkUseBrowser_->setEnabled(chkConnectToWeb_->isChecked());
    if (!chkConnectToWeb_->isChecked())
        chkConnectToWeb_->setText(QString::fromLatin1(kNotConnected));
    ShowPage();
}

void frmAllProducts::pageFinished()
{
    if (!mbActive_) {
        goMousePointer().ClearMousePointer();
        return;
    }
    if (goMousePointer().MousePointer() == 0) {
        // Not a page that we asked for: a link in a page has led to the web.
        mbActive_ = false;
        chkConnectToWeb_->setChecked(true);
        chkUseBrowser_->setEnabled(true);
        mbActive_ = true;
    }
    goMousePointer().ClearMousePointer();
    if (chkConnectToWeb_->isChecked()) {
        chkConnectToWeb_->setText(QString::fromLatin1(kConnected));
        OpenInBrowser();
    }
}

void frmAllProducts::navigationFailed(const std::string& sAddress)
{
    if (!mbActive_)
        return;
    // No page will come that would clear the pointer.
    goMousePointer().ClearMousePointer();
    const QScopedValueRollback telling(bTelling_, true);
    // The quotes don't match; users know the message by them.
    BrandedMsgBox("Can't connect to '\r\n\r\n" + sAddress +
                  "\"\r\n\r\nEnsure you have a connection to the internet and try again later.");
}

void frmAllProducts::cmdSearch_Click()
{
    const std::string sFolder = GetZorvoPath(true) + "TreeData\\";
    platform().launcher->open(sFolder + "Zorvo LIBRARY TEMPLATE REPORT.HTM", "0", sFolder,
                              Launcher::Show::maximised, static_cast<std::uintptr_t>(winId()));
    if (offeringsHost().releaseOffice)
        offeringsHost().releaseOffice();
}

void ShowAllOfferings()
{
    frmAllProducts form;
    form.showModal();
}

} // namespace zorvo
