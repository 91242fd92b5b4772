#include "shell/forms/frmSplash.h"

#include "branding/brandedFiles.h"
#include "branding/companyIdentity.h"
#include "branding/forms/formBranding.h"
#include "branding/sRebrand.h"
#include "shell/MainForm.h"
#include "shell/ShellForms.h"
#include "shell/eventMailbox.h"
#include "shell/shellState.h"
#include "support/versionText.h"
#include "window/Picture.h"
#include "window/clsMousePointer.h"
#include "window/spacing.h"

#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

namespace zorvo {

namespace {
constexpr QSize kPictureSize{480, 280};
} // namespace

frmSplash::frmSplash()
    : Form("frmSplash")
    , picSplash_(new QLabel(this))
    , lblVersion_(new QLabel(this))
{
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setCaption(QStringLiteral("Zorvo's Brendle"));
    picSplash_->setObjectName(QStringLiteral("picSplash"));
    picSplash_->installEventFilter(this);
    lblVersion_->setObjectName(QStringLiteral("lblVersion"));
    lblVersion_->setAlignment(Qt::AlignRight);
    lblVersion_->setContentsMargins(kSpacing, 0, kSpacing, kSpacing / 2);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picSplash_);
    layout->addWidget(lblVersion_);
}

void frmSplash::onLoad()
{
    goMousePointer().setMousePointer(kHourglass);
    lblVersion_->setText(QString::fromStdString(GetVersionText()));
    picSplash_->setPixmap(QIcon(QStringLiteral(":/pictures/splash.svg")).pixmap(kPictureSize));
    picSplash_->setAccessibleName(
        QString::fromStdString(sRebrand("Zorvo's Brendle is starting", false))); // no caption, so not walked
    ApplyFormBranding(*this);
}

void frmSplash::onActivate()
{
    if (bPictureMissing_ || GetCompanyID() == kDefaultCompany)
        return;
    bPictureMissing_ = true; // until it is there: the message about it brings another activate event
    const PicturePtr picture = LoadBrandedPicture("Splash");
    picSplash_->setPixmap(picture ? picture->pixmap() : QPixmap());
    bPictureMissing_ = !picture;
}

void frmSplash::onUnload()
{
    goMousePointer().setMousePointer(kDefaultPointer);
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == picSplash_ && event->type() == QEvent::MouseButtonPress)
        shellState().forms->mainForm().setTmEventInterval(kRequestEndSplash);
    return Form::eventFilter(watched, event);
}

} // namespace zorvo
