#include "shell/forms/frmNoMoreSearch.h"

#include "branding/forms/formBranding.h"
#include "window/MnemonicLabel.h"
#include "window/guardedSlot.h"
#include "window/spacing.h"

#include <QGridLayout>
#include <QPushButton>

namespace zorvo {

namespace {
constexpr int kTextWidth = 340;
} // namespace

frmNoMoreSearch::frmNoMoreSearch()
    : Form("frmNoMoreSearch")
    , Label1_(new MnemonicLabel(
          "Label1",
          QStringLiteral(
              "No additional matches were found in the Brendle tree. Click OK to continue searching from "
              "the top of the tree list or click Cancel to close."),
          this))
    , Command1_(new QPushButton(QStringLiteral("OK"), this))
    , Command2_(new QPushButton(QStringLiteral("Cancel"), this))
{
    setCaption(QStringLiteral("Locate Template"));
    Label1_->setMinimumWidth(kTextWidth);
    Command1_->setObjectName(QStringLiteral("Command1"));
    Command2_->setObjectName(QStringLiteral("Command2"));
    setDefaultButton(Command1_);
    setCancelButton(Command2_);

    auto* layout = new QGridLayout(this);
    spaceForm(*layout);
    layout->addWidget(Label1_, 0, 0, 1, 3);
    layout->setColumnStretch(0, 1);
    layout->addWidget(Command1_, 1, 1);
    layout->addWidget(Command2_, 1, 2);

    const auto answer = [this](bool bAnswer) {
        bContinue = bAnswer;
        hide();
    };
    connect(Command1_, &QPushButton::clicked, this, guardedSlot(this, [answer] { answer(true); }));
    connect(Command2_, &QPushButton::clicked, this, guardedSlot(this, [answer] { answer(false); }));
}

void frmNoMoreSearch::onLoad()
{
    ApplyFormBranding(*this);
}

} // namespace zorvo
