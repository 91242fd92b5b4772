#include "shell/forms/frmTreeSearch.h"

#include "branding/forms/formBranding.h"
#include "window/MnemonicLabel.h"
#include "window/guardedSlot.h"
#include "window/spacing.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

namespace zorvo {

namespace {
constexpr int kTextWidth = 260;
} // namespace

frmTreeSearch::frmTreeSearch()
    : Form("frmTreeSearch")
    , Label1_(new MnemonicLabel("Label1", QStringLiteral("Find What:"), this))
    , Text1_(new QLineEdit(this))
    , cmdFind_(new QPushButton(QStringLiteral("&Find Next"), this))
    , cmdClose_(new QPushButton(QStringLiteral("&Close"), this))
{
    setCaption(QStringLiteral("Locate Template"));
    Text1_->setObjectName(QStringLiteral("Text1"));
    Text1_->setMinimumWidth(kTextWidth);
    Label1_->setBuddy(Text1_);
    cmdFind_->setObjectName(QStringLiteral("cmdFind"));
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    setDefaultButton(cmdFind_);
    setCancelButton(cmdClose_);

    auto* layout = new QGridLayout(this);
    spaceForm(*layout);
    layout->addWidget(Label1_, 0, 0);
    layout->addWidget(Text1_, 0, 1);
    layout->addWidget(cmdFind_, 0, 2);
    layout->addWidget(cmdClose_, 1, 2);
    layout->setColumnStretch(1, 1);

    connect(cmdFind_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdFind_Click(); }));
    connect(cmdClose_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdClose_Click(); }));
}

std::string frmTreeSearch::text() const
{
    return Text1_->text().toStdString();
}

void frmTreeSearch::setText(const std::string& sText)
{
    Text1_->setText(QString::fromStdString(sText));
}

void frmTreeSearch::onLoad()
{
    ApplyFormBranding(*this);
}

void frmTreeSearch::onUnload()
{
    cmdClose_Click();
}

void frmTreeSearch::cmdFind_Click()
{
    bFindNext = true;
    hide();
}

void frmTreeSearch::cmdClose_Click()
{
    bFindNext = false;
    hide();
}

} // namespace zorvo
