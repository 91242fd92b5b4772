#include "creation/forms/frmSaveFolderDialog.h"

#include "base/text.h"
#include "branding/brandedSettings.h"
#include "branding/forms/formBranding.h"
#include "catalogue/basHTMLHelp.h"
#include "creation/documentFolder.h"
#include "creation/forms/FolderTree.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"
#include "platform/SpecialFolders.h"
#include "platform/machineAccess.h"
#include "window/MnemonicLabel.h"
#include "window/guardedSlot.h"
#include "window/pendingEvents.h"
#include "window/spacing.h"
#include "window/windowPosition.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace zorvo {

namespace {

constexpr QSize kDefaultSize{600, 560};
constexpr int kStatusLines = 2;
constexpr std::uint32_t kHelpTopic = 1;
constexpr const char* kApplication = "ZorvoBrendle";
constexpr const char* kSection = "Settings";
constexpr const char* kKey = "DocumentFolder";

} // namespace

frmSaveFolderDialog::frmSaveFolderDialog(std::function<void()> gone)
    : Form("frmSaveFolderDialog")
    , gone_(std::move(gone))
    , fraInstructions_(new QGroupBox(QStringLiteral(" Instructions "), this))
    , lblInstr_{new MnemonicLabel("lblInstr",
                                  QStringLiteral("1. To select an existing document folder, select from the "
                                                 "tree below and then OK."),
                                  fraInstructions_),
                new MnemonicLabel(
                    "lblInstr",
                    QStringLiteral("2. To create a new document folder, type in the path and "
                                   "folder name and select Create Folder button below then OK."),
                    fraInstructions_)}
    , lblDocumentFolderEntry_(
          new MnemonicLabel("lblDocumentFolderEntry", QStringLiteral("&Document Folder"), this))
    , txtDocumentFolder_(new QLineEdit(this))
    , cmdCreate_(new QPushButton(QStringLiteral("&Create Folder"), this))
    , lblDocumentFolderSelection_(
          new MnemonicLabel("lblDocumentFolderSelection", QStringLiteral("Document Folder &Selection"), this))
    , fldrDocumentFolder_(new FolderTree("fldrDocumentFolder", this))
    , cmdOK_(new QPushButton(QStringLiteral("OK"), this))
    , cmdCancel_(new QPushButton(QStringLiteral("Cancel"), this))
    , cmdHelp_(new QPushButton(QStringLiteral("&Help"), this))
    , sbProgress_(new QLabel(this))
{
    setCaption(QStringLiteral("Documents - Select a Folder to Store Documents"));
    nameControls();
    layOut();
    connectControls();
}

void frmSaveFolderDialog::nameControls()
{
    fraInstructions_->setObjectName(QStringLiteral("fraInstructions"));
    txtDocumentFolder_->setObjectName(QStringLiteral("txtDocumentFolder"));
    cmdCreate_->setObjectName(QStringLiteral("cmdCreate"));
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    sbProgress_->setObjectName(QStringLiteral("sbProgress"));
    sbProgress_->setTextFormat(Qt::PlainText);
    sbProgress_->setWordWrap(true);
    lblDocumentFolderEntry_->setBuddy(txtDocumentFolder_);
    lblDocumentFolderSelection_->setBuddy(fldrDocumentFolder_);
    setDefaultButton(cmdOK_);
    setCancelButton(cmdCancel_);
}

void frmSaveFolderDialog::layOut()
{
    auto* instructions = new QVBoxLayout(fraInstructions_);
    for (MnemonicLabel* line : lblInstr_)
        instructions->addWidget(line);
    auto* folder = new QHBoxLayout;
    folder->addWidget(txtDocumentFolder_, 1);
    folder->addWidget(cmdCreate_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {cmdOK_, cmdCancel_, cmdHelp_})
        buttons->addWidget(button);
    // Room for the longest message, so that the tree doesn't jump.
    sbProgress_->setMinimumHeight(kStatusLines * sbProgress_->fontMetrics().lineSpacing());
    sbProgress_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* whole = new QVBoxLayout(this);
    spaceForm(*whole);
    whole->addWidget(fraInstructions_);
    whole->addWidget(lblDocumentFolderEntry_);
    whole->addLayout(folder);
    whole->addWidget(lblDocumentFolderSelection_);
    whole->addWidget(fldrDocumentFolder_, 1);
    whole->addWidget(sbProgress_);
    whole->addLayout(buttons);
    resize(kDefaultSize);
}

void frmSaveFolderDialog::connectControls()
{
    connect(fldrDocumentFolder_, &FolderTree::folderClicked, this,
            guardedSlot(this, [this](const std::string& sPath) { fldrDocumentFolder_Click(sPath); }));
    connect(fldrDocumentFolder_, &FolderTree::focusGained, this, [this] { bTreeHasFocus_ = true; });
    connect(fldrDocumentFolder_, &FolderTree::focusLost, this, [this] { bTreeHasFocus_ = false; });
    connect(cmdOK_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdOK_Click(); }));
    connect(cmdCancel_, &QPushButton::clicked, this, guardedSlot(this, [this] { hide(); }));
    connect(cmdCreate_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdCreate_Click(); }));
    connect(cmdHelp_, &QPushButton::clicked, this, guardedSlot(this, [] { ShowHelpContext(kHelpTopic); }));
}

void frmSaveFolderDialog::showForm()
{
    bShownAnew_ = true;
    showModal();
}

void frmSaveFolderDialog::setFileName(const std::string& s)
{
    sFileName_ = replaceAll(s, "\\\\", "\\");
}

std::int32_t frmSaveFolderDialog::left() const
{
    return clientGeometry(*this).nLeft;
}

std::int32_t frmSaveFolderDialog::top() const
{
    return clientGeometry(*this).nTop;
}

void frmSaveFolderDialog::unloadForm()
{
    unload();
    deleteLater();
    if (const auto gone = std::exchange(gone_, {}))
        gone();
}

void frmSaveFolderDialog::onLoad()
{
    ApplyFormBranding(*this);
}

void frmSaveFolderDialog::onActivate()
{
    // A visit to another program, or a message box, must not take away what the user has typed.
    if (!std::exchange(bShownAnew_, false))
        return;
    bOK = false;
    sFileName_.clear();
    sFilePath_.clear();
    const std::string sFolder =
        platform().settings->get(kApplication, kSection, kKey).value_or(std::string());
    txtDocumentFolder_->setText(QString::fromStdString(sTextOfFolder(sFolder)));
    fldrDocumentFolder_->selectFolder(sFolder);
    ShowFolderInView(true);
}

void frmSaveFolderDialog::ShowFolderInView(bool bUseDefault)
{
    bFollowTree_ = bUseDefault;
    if (!txtDocumentFolder_->text().isEmpty()) {
        fldrDocumentFolder_->refresh();
        processPendingEvents();
        const std::string sFolder = sFolderOfText(txtDocumentFolder_->text().toStdString());
        fldrDocumentFolder_->expandFolder(sFolder);
        fldrDocumentFolder_->selectFolder(sFolder);
    } else if (bUseDefault) {
        fldrDocumentFolder_->selectFolder(GetSpecialFolder(SpecialFolders::kDocuments));
        processPendingEvents();
        const std::string sSelected = fldrDocumentFolder_->selectedFolder();
        txtDocumentFolder_->setText(QString::fromStdString(sTextOfFolder(sSelected)));
        processPendingEvents();
    }
    bFollowTree_ = true;
    fldrDocumentFolder_->setFocus();
}

void frmSaveFolderDialog::fldrDocumentFolder_Click(const std::string& sPath)
{
    if (!bFollowTree_)
        return;
    txtDocumentFolder_->setText(QString::fromStdString(sTextOfFolder(sPath)));
    setStatus({});
}

std::string frmSaveFolderDialog::trimmedFolder()
{
    const std::string sText = trimBlanks(txtDocumentFolder_->text().toStdString());
    txtDocumentFolder_->setText(QString::fromStdString(sText));
    return sFolderOfText(sText);
}

void frmSaveFolderDialog::setStatus(const std::string& sText)
{
    sStatus_ = sText;
    sbProgress_->setText(QString::fromStdString(sText));
}

void frmSaveFolderDialog::cmdOK_Click()
{
    const std::string sFolder = trimmedFolder();
    std::string sStatus = sStatus_;
    const bool bAccepted = bAcceptFolder(sFolder, sStatus);
    setStatus(sStatus);
    if (!bAccepted)
        return;
    sFilePath_ = sFolder;
    hide();
    bOK = true;
}

void frmSaveFolderDialog::cmdCreate_Click()
{
    const std::string sFolder = trimmedFolder();
    std::string sStatus = sStatus_;
    const bool bCreated = bCreateFolder(sFolder, sStatus);
    setStatus(sStatus);
    if (bCreated)
        ShowFolderInView(false);
}

void frmSaveFolderDialog::rememberFolder()
{
    SaveBrandedSetting(kApplication, kSection, kKey, sFolderOfText(txtDocumentFolder_->text().toStdString()));
}

void frmSaveFolderDialog::onDeactivate()
{
    rememberFolder();
}

void frmSaveFolderDialog::onUnload()
{
    rememberFolder();
}

bool frmSaveFolderDialog::onKeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    // Cutting would move the folder itself.
    return bTreeHasFocus_ && key == Qt::Key_X && modifiers == Qt::ControlModifier;
}

} // namespace zorvo
