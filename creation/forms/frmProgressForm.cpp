#include "creation/forms/frmProgressForm.h"

#include "base/failure.h"
#include "branding/brandedFiles.h"
#include "branding/forms/formBranding.h"
#include "catalogue/basHTMLHelp.h"
#include "creation/documentFolder.h"
#include "window/MnemonicLabel.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"
#include "window/guardedSlot.h"
#include "window/pendingEvents.h"
#include "window/spacing.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <QVBoxLayout>

namespace zorvo {

namespace {

constexpr QSize kDefaultSize{600, 520};
constexpr int kIconSize = 16;
constexpr std::uint32_t kHelpTopic = 1;

/// Keeps its place in the layout while it isn't shown.
void hideInPlace(QWidget* widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    widget->hide();
}

} // namespace

frmProgressForm::frmProgressForm()
    : Form("frmProgressForm")
    , lblFolderTitle_(new MnemonicLabel("lblFolderTitle", QStringLiteral("Document &Folder"), this))
    , lblFolderPath_(new QLabel(this))
    , fraInstructions_(new QGroupBox(QStringLiteral("Instructions"), this))
    , lblInst_{new MnemonicLabel("lblInst",
                                 QStringLiteral("1. To open documents, select one or more documents below, "
                                                "and click Open."),
                                 fraInstructions_),
               new MnemonicLabel("lblInst", QStringLiteral("2. To create more documents, click Finished."),
                                 fraInstructions_)}
    , lblDocCreatedTitle_(new MnemonicLabel("lblDocCreatedTitle", QStringLiteral("&Documents Created"), this))
    , TGenFileList_(new TreeView("TGenFileList", this))
    , imgNotice_(new QLabel(this))
    , lblNotice_(new QLabel(this))
    , cmdOpen_(new QPushButton(QStringLiteral("&Open"), this))
    , cmdFinished_(new QPushButton(QStringLiteral("&Finished"), this))
    , cmdHelp_(new QPushButton(QStringLiteral("&Help"), this))
    , sbProgress_(new QLabel(this))
    , ProgressBar1_(new QProgressBar(this))
{
    setCaption(QStringLiteral("Documents - Finished"));
    nameControls();
    layOut();
    connectControls();
}

void frmProgressForm::nameControls()
{
    lblFolderPath_->setObjectName(QStringLiteral("lblFolderPath"));
    fraInstructions_->setObjectName(QStringLiteral("fraInstructions"));
    imgNotice_->setObjectName(QStringLiteral("imgNotice"));
    lblNotice_->setObjectName(QStringLiteral("lblNotice"));
    cmdOpen_->setObjectName(QStringLiteral("cmdOpen"));
    cmdFinished_->setObjectName(QStringLiteral("cmdFinished"));
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    sbProgress_->setObjectName(QStringLiteral("sbProgress"));
    ProgressBar1_->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1_->setAccessibleName(tr("Documents saved"));
    lblDocCreatedTitle_->setBuddy(TGenFileList_);
    for (QLabel* line : {lblFolderPath_, lblNotice_, sbProgress_}) {
        line->setTextFormat(Qt::PlainText);
        line->setWordWrap(true);
    }
    // The path can be taken along.
    lblFolderPath_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    TGenFileList_->setRootIsDecorated(false);
    TGenFileList_->setIconSize(QSize(kIconSize, kIconSize));
    fraInstructions_->setEnabled(false);
}

void frmProgressForm::layOut()
{
    auto* instructions = new QVBoxLayout(fraInstructions_);
    for (MnemonicLabel* line : lblInst_) {
        line->setEnabled(false);
        instructions->addWidget(line);
    }
    auto* notice = new QHBoxLayout;
    notice->addWidget(imgNotice_, 0, Qt::AlignTop);
    notice->addWidget(lblNotice_, 1);
    const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
    imgNotice_->setPixmap(warning.pixmap(kIconSize));
    imgNotice_->hide();
    lblNotice_->hide();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {cmdOpen_, cmdFinished_, cmdHelp_})
        buttons->addWidget(button);

    auto* whole = new QVBoxLayout(this);
    spaceForm(*whole);
    whole->addWidget(lblFolderTitle_);
    whole->addWidget(lblFolderPath_);
    whole->addWidget(fraInstructions_);
    whole->addWidget(lblDocCreatedTitle_);
    whole->addWidget(TGenFileList_, 1);
    whole->addLayout(notice);
    whole->addWidget(ProgressBar1_);
    whole->addWidget(sbProgress_);
    whole->addLayout(buttons);
    ProgressBar1_->hide();
    resize(kDefaultSize);
}

void frmProgressForm::connectControls()
{
    connect(TGenFileList_, &TreeView::focusGained, this, [this] { bListHasFocus_ = true; });
    connect(TGenFileList_, &TreeView::focusLost, this, [this] { bListHasFocus_ = false; });
    connect(TGenFileList_, &TreeView::nodeDoubleClicked, this,
            guardedSlot(this, [this] { cmdOpen_Click(); }));
    connect(cmdOpen_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdOpen_Click(); }));
    connect(cmdFinished_, &QPushButton::clicked, this, guardedSlot(this, [this] { unload(); }));
    connect(cmdHelp_, &QPushButton::clicked, this, guardedSlot(this, [] { ShowHelpContext(kHelpTopic); }));
}

void frmProgressForm::setBatch(const DocumentBatch& batch)
{
    batch_ = batch;
    const QString path = QString::fromStdString(sTextOfFolder(batch.sFolder));
    lblFolderPath_->setText(path);
}

void frmProgressForm::onLoad()
{
    goMousePointer().setMousePointer(kHourglass);
    fillImageList();
    for (QPushButton* button : {cmdOpen_, cmdFinished_, cmdHelp_})
        hideInPlace(button);
    ApplyFormBranding(*this);
    goMousePointer().ClearMousePointer();
}

/// Entries show the last three; the places of the others are kept.
void frmProgressForm::fillImageList()
{
    ImageList& images = TGenFileList_->nodes().images();
    images.clear();
    for (const char* name : {"Quillbook16.ico", "Tessora16.ico", "Product16.ico", "", "Open Chapter16.ico",
                             "Default Page16.ico", "Excel16.ico", "Word16.ico"})
        images.add(name, *name ? LoadBrandedPicture(name) : nullptr);
}

void frmProgressForm::onActivate()
{
    if (bProcessing_)
        return;
    const QScopedValueRollback processing(bProcessing_, true);
    try {
        processDocuments();
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("frmProgressForm.Form_Activate");
    }
}

void frmProgressForm::processDocuments()
{
    // The form may be closed while pending events are served.
    const DocumentBatch batch = batch_;
    // A list with entries is left as it is, focus and all: it would be enabled again at once.
    if (entryCount() == 0)
        TGenFileList_->setEnabled(false);
    if (batch.nDocumentCount >= 2) {
        Process_Multi_Docs(batch, *this);
        return;
    }
    try {
        ProcessFirstDoc(batch, *this);
    } catch (...) {
        unload();
        throw;
    }
    unload();
}

void frmProgressForm::onUnload()
{
    batch_.objDocumentNodes.clear();
    batch_.objSelectionDoc = {};
}

bool frmProgressForm::onKeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    // The list must not hand its entries to the clipboard nor take any from there.
    return bListHasFocus_ && modifiers == Qt::ControlModifier && (key == Qt::Key_C || key == Qt::Key_V);
}

void frmProgressForm::closeEvent(QCloseEvent* event)
{
    if (bProcessing_)
        event->ignore();
    else
        Form::closeEvent(event);
}

int frmProgressForm::entryCount() const
{
    return TGenFileList_->nodes().count();
}

void frmProgressForm::enableList()
{
    TGenFileList_->setEnabled(true);
}

void frmProgressForm::beginProgress(int nMaximum)
{
    for (QWidget* control : std::initializer_list<QWidget*>{cmdOpen_, cmdFinished_, cmdHelp_, TGenFileList_})
        control->setEnabled(false);
    ProgressBar1_->setRange(0, nMaximum);
    ProgressBar1_->setValue(1);
    ProgressBar1_->show();
    showBarText();
}

void frmProgressForm::advanceBar()
{
    ProgressBar1_->setValue(ProgressBar1_->value() + 1);
    showBarText();
}

// The making of documents serves no events, so that what it changes is painted by hand.

void frmProgressForm::showBarText()
{
    ProgressBar1_->setFormat(
        tr("%1 of %2").arg(ProgressBar1_->value() - 1).arg(ProgressBar1_->maximum() - 1));
    ProgressBar1_->repaint();
}

void frmProgressForm::setStatus(const std::string& sText)
{
    sbProgress_->setText(QString::fromStdString(sText));
    sbProgress_->repaint();
}

void frmProgressForm::addEntry(const std::string& sName, int nImage)
{
    TGenFileList_->nodes().add({}, {}, sName, nImage, 0);
    TGenFileList_->scrollToBottom();
    TGenFileList_->viewport()->repaint();
}

void frmProgressForm::endProgress()
{
    ProgressBar1_->hide();
    processPendingEvents();
    fraInstructions_->setEnabled(true);
    for (MnemonicLabel* line : lblInst_)
        line->setEnabled(true);
    for (QPushButton* button : {cmdOpen_, cmdFinished_, cmdHelp_}) {
        button->setEnabled(true);
        button->show();
    }
    TGenFileList_->setEnabled(true);
}

void frmProgressForm::focusFinished()
{
    cmdFinished_->setFocus();
}

void frmProgressForm::showNotice(const std::string& sText)
{
    lblNotice_->setText(QString::fromStdString(sText));
    lblNotice_->setVisible(!sText.empty());
    imgNotice_->setVisible(!sText.empty());
}

void frmProgressForm::cmdOpen_Click()
{
    std::vector<std::string> names;
    for (const TreeNode* node : TGenFileList_->nodes().selectedNodes())
        names.push_back(node->text());
    OpenCreatedDocuments(batch_.sFolder, names, entryCount(), *this);
}

} // namespace zorvo
