#include "search/forms/SWDSearchMessage.h"

#include "branding/brandedFiles.h"
#include "branding/companyIdentity.h"
#include "branding/forms/formBranding.h"
#include "window/MnemonicLabel.h"
#include "window/Picture.h"
#include "window/spacing.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLocale>

/// The linker leaves the pictures of a static library out unless they are asked for by this name, which
/// stands in no namespace.
static void takePicturesIn()
{
    Q_INIT_RESOURCE(searchPictures);
}

namespace zorvo {

namespace {
constexpr int kPictureSize = 32;
constexpr int kTextWidth = 340;
} // namespace

SWDSearchMessage::SWDSearchMessage()
    : Form("SWDSearchMessage")
    , imgDocument_(new QLabel(this))
    , lblInstanceName_(new MnemonicLabel("lblInstanceName",
                                         QStringLiteral("Now searching the database of example disclosures. "
                                                        "This may take a few minutes."),
                                         this))
    , sbPleaseWait_(new QLabel(QStringLiteral("Please wait"), this))
{
    takePicturesIn();
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setCaption(QStringLiteral("Zorvo's Sablewood Library is being searched"));
    imgDocument_->setObjectName(QStringLiteral("imgDocument"));
    imgDocument_->setPixmap(QIcon(QStringLiteral(":/search/library.svg")).pixmap(kPictureSize));
    lblInstanceName_->setMinimumWidth(kTextWidth);
    sbPleaseWait_->setObjectName(QStringLiteral("sbPleaseWait"));

    auto* layout = new QGridLayout(this);
    spaceForm(*layout);
    layout->addWidget(imgDocument_, 0, 0, Qt::AlignTop);
    layout->addWidget(lblInstanceName_, 0, 1);
    layout->addWidget(sbPleaseWait_, 1, 1);
    layout->setColumnStretch(1, 1);
}

void SWDSearchMessage::setProgress(std::size_t nDone, std::size_t nFiles)
{
    if (nFiles == 0)
        return;
    const QLocale locale;
    sbPleaseWait_->setText(tr("Example %1 of %2")
                               .arg(locale.toString(static_cast<qulonglong>(nDone)),
                                    locale.toString(static_cast<qulonglong>(nFiles))));
}

void SWDSearchMessage::onLoad()
{
    ApplyFormBranding(*this);
    if (GetCompanyID() == kDefaultCompany)
        return;
    if (const PicturePtr picture = LoadBrandedPicture("Product16.ico"))
        imgDocument_->setPixmap(picture->icon().pixmap(kPictureSize));
}

} // namespace zorvo
