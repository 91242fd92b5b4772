#include "catalogue/forms/frmEngagementList.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "branding/forms/formBranding.h"
#include "catalogue/EngagementHost.h"
#include "catalogue/basHTMLHelp.h"
#include "window/MnemonicLabel.h"
#include "window/RoomyItems.h"
#include "window/guardedSlot.h"
#include "window/spacing.h"
#include "window/windowPosition.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace zorvo {

namespace {
constexpr QSize kDefaultSize{560, 380};
} // namespace

frmEngagementList::frmEngagementList()
    : Form("frmEngagementList")
    , Label1_(new MnemonicLabel(
          "Label1", QStringLiteral("Please select the Zorvo's Tessora Engagement you wish to add:"), this))
    , List1_(new QListWidget(this))
    , btnView_(new QPushButton(this))
    , cmdOK_(new QPushButton(QStringLiteral("OK"), this))
    , cmdCancel_(new QPushButton(QStringLiteral("Cancel"), this))
    , cmdHelp_(new QPushButton(QStringLiteral("&Help"), this))
{
    setCaption(QStringLiteral("Zorvo Engagements"));
    resize(kDefaultSize);
    List1_->setObjectName(QStringLiteral("List1"));
    Label1_->setBuddy(List1_);
    List1_->setItemDelegate(new RoomyItems(List1_));
    btnView_->setObjectName(QStringLiteral("btnView"));
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    setDefaultButton(cmdOK_);
    setCancelButton(cmdCancel_);
    layOut();
    connectControls();
}

void frmEngagementList::layOut()
{
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(btnView_);
    buttons->addStretch();
    for (QPushButton* button : {cmdOK_, cmdCancel_, cmdHelp_})
        buttons->addWidget(button);
    auto* whole = new QVBoxLayout(this);
    spaceForm(*whole);
    whole->addWidget(Label1_);
    whole->addWidget(List1_, 1);
    whole->addLayout(buttons);
}

void frmEngagementList::connectControls()
{
    connect(List1_, &QListWidget::itemDoubleClicked, this, guardedSlot(this, [this] { cmdOK_Click(); }));
    connect(btnView_, &QPushButton::clicked, this, guardedSlot(this, [this] { btnView_Click(); }));
    connect(cmdOK_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdOK_Click(); }));
    connect(cmdCancel_, &QPushButton::clicked, this, guardedSlot(this, [this] { unload(); }));
    connect(cmdHelp_, &QPushButton::clicked, this, guardedSlot(this, [] { ShowHelpContents(); }));
}

void frmEngagementList::onLoad()
{
    sResult_.clear();
    try {
        fillList();
    } catch (const RunTimeError&) { // a short or empty list is shown all the same
    }
    if (List1_->count() > 0)
        List1_->setCurrentRow(0);
    btnView_->setText(sessionState().bShowCurrentOnly ? QStringLiteral("View My Current and Prior Releases")
                                                      : QStringLiteral("View My Current Releases Only"));
    ApplyFormBranding(*this);
}

void frmEngagementList::onActivate()
{
    setTopMost(*this, true);
}

void frmEngagementList::onUnload()
{
    engagements_ = EngagementList();
}

void frmEngagementList::fillList()
{
    List1_->clear();
    try {
        engagements_.LoadEngagementList();
    } catch (const RunTimeError&) {
        for (const std::string& sText : engagements_.texts())
            List1_->addItem(QString::fromStdString(sText));
        throw;
    }
    for (const std::string& sText : engagements_.texts())
        List1_->addItem(QString::fromStdString(sText));
}

void frmEngagementList::cmdOK_Click()
{
    // Not the current row: the focus makes one without choosing it.
    const auto rows = List1_->selectionModel()->selectedRows();
    if (!rows.isEmpty())
        sResult_ = engagements_.selectionDocument(static_cast<std::size_t>(rows.first().row()));
    unload();
}

void frmEngagementList::btnView_Click()
{
    bool& bShowCurrentOnly = sessionState().bShowCurrentOnly;
    bShowCurrentOnly = !bShowCurrentOnly;
    if (engagementHost().saveSettings)
        engagementHost().saveSettings();
    if (engagementHost().reloadTree)
        engagementHost().reloadTree();
    // Not the opening's "... Releases Only": the two texts of the one state are both meant.
    btnView_->setText(bShowCurrentOnly ? QStringLiteral("View My Current and Prior Releases")
                                       : QStringLiteral("View My Current Releases"));
    fillList();
}

} // namespace zorvo
