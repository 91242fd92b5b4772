#include "shell/forms/frmOptions.h"

#include "branding/forms/formBranding.h"
#include "catalogue/basHTMLHelp.h"
#include "platform/ObjectCreator.h"
#include "platform/Platform.h"
#include "window/MnemonicLabel.h"
#include "window/guardedSlot.h"
#include "window/spacing.h"

#include <QCheckBox>
#include <QFont>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace zorvo {

namespace {

/// The closed class that lets the user choose where reference material lies; known by its class id alone.
constexpr const char* kReferenceLocationClass = "{3561154C-DACA-40C5-85E8-A020D429B090}";
constexpr int kShowLocation = 1;

template <typename Control>
Control* named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

MnemonicLabel* heading(const char* name, const QString& caption, QWidget* parent)
{
    auto* label = new MnemonicLabel(name, caption, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

frmOptions::frmOptions()
    : Form("frmOptions")
    , lblViewSettings_(heading("lblViewSettings", QStringLiteral("View Settings"), this))
    , optViewCurrentOnly_(named(new QRadioButton(QStringLiteral("View &current Brendle in the list"), this),
                                "optViewCurrentOnly"))
    , optViewCurrentPlusPrior_(named(
          new QRadioButton(QStringLiteral("View all Brendle in the list including &prior versions"), this),
          "optViewCurrentPlusPrior"))
    , lblProgramSettings_(heading("lblProgramSettings", QStringLiteral("Program Settings"), this))
    , chkDisplaySplash_(named(
          new QCheckBox(QStringLiteral("Di&splay Zorvo's Brendle splash screen when program starts"), this),
          "chkDisplaySplash"))
    , chkZorvoMenuState_(
          named(new QCheckBox(QStringLiteral("Show the Zorvo &menu in Excel or Word for non-Zorvo documents"),
                              this),
                "chkZorvoMenuState"))
    , Label1_(heading("Label1", QStringLiteral("Content Settings"), this))
    , lblSetLocation_(new MnemonicLabel(
          "lblSetLocation",
          QStringLiteral(
              "Click the Set Location button to set your preferred location of reference material."),
          this))
    , cmdSetLocation_(named(new QPushButton(QStringLiteral("Set &Location"), this), "cmdSetLocation"))
    , cmdOK_(named(new QPushButton(QStringLiteral("OK"), this), "cmdOK"))
    , cmdCancel_(named(new QPushButton(QStringLiteral("Cancel"), this), "cmdCancel"))
    , cmdHelp_(named(new QPushButton(QStringLiteral("&Help"), this), "cmdHelp"))
{
    setCaption(QStringLiteral("Zorvo's Brendle Options"));
    setDefaultButton(cmdOK_);
    setCancelButton(cmdCancel_);
    layOut();
    connectControls();
}

void frmOptions::layOut()
{
    auto* location = new QHBoxLayout;
    location->addWidget(lblSetLocation_, 1);
    location->addWidget(cmdSetLocation_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {cmdOK_, cmdCancel_, cmdHelp_})
        buttons->addWidget(button);

    auto* whole = new QVBoxLayout(this);
    spaceForm(*whole);
    whole->addWidget(lblViewSettings_);
    whole->addWidget(optViewCurrentOnly_);
    whole->addWidget(optViewCurrentPlusPrior_);
    whole->addSpacing(kSpacing);
    whole->addWidget(lblProgramSettings_);
    whole->addWidget(chkDisplaySplash_);
    whole->addWidget(chkZorvoMenuState_);
    whole->addSpacing(kSpacing);
    whole->addWidget(Label1_);
    whole->addLayout(location);
    whole->addStretch();
    whole->addSpacing(kSpacing);
    whole->addLayout(buttons);
}

void frmOptions::connectControls()
{
    connect(cmdOK_, &QPushButton::clicked, this, guardedSlot(this, [this] { unload(); }));
    connect(cmdCancel_, &QPushButton::clicked, this, guardedSlot(this, [this] {
                bCancel_ = true;
                unload();
            }));
    connect(cmdHelp_, &QPushButton::clicked, this, guardedSlot(this, [] { ShowHelpContents(); }));
    connect(cmdSetLocation_, &QPushButton::clicked, this, guardedSlot(this, [] { cmdSetLocation_Click(); }));
}

void frmOptions::GetData(bool& bCancel, bool& bShowCurrentOnly, bool& bIncludeAllOfferings,
                         bool& bDisplaySplash, bool& bMenuState, bool& bShowViewOnTB) const
{
    bCancel = bCancel_;
    bShowCurrentOnly = bShowCurrentOnly_;
    bIncludeAllOfferings = bIncludeAllOfferings_;
    bDisplaySplash = bDisplaySplash_;
    bMenuState = bMenuState_;
    bShowViewOnTB = bShowViewOnTB_;
}

void frmOptions::SetData(bool bShowCurrentOnly, bool bIncludeAllOfferings, bool bDisplaySplash,
                         bool bMenuState, bool bShowViewOnTB)
{
    bShowCurrentOnly_ = bShowCurrentOnly;
    bIncludeAllOfferings_ = bIncludeAllOfferings;
    bDisplaySplash_ = bDisplaySplash;
    bMenuState_ = bMenuState;
    bShowViewOnTB_ = bShowViewOnTB;
}

void frmOptions::onLoad()
{
    optViewCurrentOnly_->setChecked(bShowCurrentOnly_);
    optViewCurrentPlusPrior_->setChecked(!bShowCurrentOnly_);
    chkDisplaySplash_->setChecked(bDisplaySplash_);
    chkZorvoMenuState_->setChecked(bMenuState_);
    ApplyFormBranding(*this);
}

void frmOptions::onQueryUnload(UnloadMode mode)
{
    if (mode == UnloadMode::closeBox)
        bCancel_ = true;
    if (bCancel_)
        return;
    bShowCurrentOnly_ = optViewCurrentOnly_->isChecked();
    bDisplaySplash_ = chkDisplaySplash_->isChecked();
    bMenuState_ = chkZorvoMenuState_->isChecked();
}

void frmOptions::cmdSetLocation_Click()
{
    std::vector<Value> noArguments;
    platform().objects->createByClassId(kReferenceLocationClass)->invokeById(kShowLocation, noArguments);
}

} // namespace zorvo
