#include "shell/forms/frmSingleInstance.h"

#include "branding/brandedFiles.h"
#include "branding/companyIdentity.h"
#include "branding/forms/formBranding.h"
#include "shell/forms/TemplateTree.h"
#include "shell/forms/formInstances.h"
#include "shell/waitText.h"
#include "window/Picture.h"
#include "window/clsMousePointer.h"
#include "window/pendingEvents.h"
#include "window/spacing.h"
#include "window/windowPosition.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>

namespace zorvo {

namespace {
constexpr int kTickMs = 250;
constexpr int kPictureSize = 32;
constexpr int kNameWidth = 440;
} // namespace

frmSingleInstance::frmSingleInstance()
    : Form("frmSingleInstance")
    , lblInstanceName_(new QLabel(this))
    , imgDocument_(new QLabel(this))
    , sbPleaseWait_(new QLabel(this))
    , tmPleaseWait_([this] { showNextWaitText(); }, this)
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setCaption(QStringLiteral("Zorvo's Brendle is creating the document below"));
    imgDocument_->setObjectName(QStringLiteral("imgDocument"));
    imgDocument_->setPixmap(QIcon(QStringLiteral(":/pictures/document.svg")).pixmap(kPictureSize));
    lblInstanceName_->setObjectName(QStringLiteral("lblInstanceName"));
    lblInstanceName_->setTextFormat(Qt::PlainText);
    lblInstanceName_->setWordWrap(true);
    lblInstanceName_->setMinimumWidth(kNameWidth);
    sbPleaseWait_->setObjectName(QStringLiteral("sbPleaseWait"));

    auto* layout = new QGridLayout(this);
    spaceForm(*layout);
    layout->addWidget(imgDocument_, 0, 0, Qt::AlignTop);
    layout->addWidget(lblInstanceName_, 0, 1);
    layout->addWidget(sbPleaseWait_, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
}

void frmSingleInstance::setInstanceName(const std::string& sName)
{
    lblInstanceName_->setText(QString::fromStdString(sName));
}

void frmSingleInstance::SetData(QWidget* owner, std::optional<int> x)
{
    if (owner)
        owner_ = owner;
    bMirrorToMain_ = !x;
    startTimer();
}

void frmSingleInstance::onLoad()
{
    goMousePointer().setMousePointer(kHourglass);
    // An owned window stays above its owner.
    setOwnerWindow(*this, owner_ ? *owner_ : static_cast<QWidget&>(templateTree().get()));
    ApplyFormBranding(*this);
    if (GetCompanyID() != kDefaultCompany) {
        if (const PicturePtr picture = LoadBrandedPicture("Product16.ico"))
            imgDocument_->setPixmap(picture->icon().pixmap(kPictureSize));
    }
    startTimer();
}

void frmSingleInstance::startTimer()
{
    if (tmPleaseWait_.interval() != 0)
        return;
    nDots_ = 0;
    tmPleaseWait_.setInterval(kTickMs);
    processPendingEvents();
}

void frmSingleInstance::showNextWaitText()
{
    const QString text = QString::fromStdString(nextWaitText(nDots_));
    sbPleaseWait_->setText(text);
    if (bMirrorToMain_)
        setMainStatusText(text);
}

void frmSingleInstance::onQueryUnload(UnloadMode /*mode*/)
{
    tmPleaseWait_.setInterval(0);
    setMainStatusText({});
    goMousePointer().setMousePointer(kDefaultPointer);
}

} // namespace zorvo
