#include "support/forms/frmAbout.h"

#include "base/RunTimeError.h"
#include "base/failure.h"
#include "branding/brandedFiles.h"
#include "branding/companyIdentity.h"
#include "branding/forms/formBranding.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "support/SupportHost.h"
#include "support/supportReport.h"
#include "support/versionText.h"
#include "window/Picture.h"
#include "window/clsMousePointer.h"
#include "window/guardedSlot.h"
#include "window/spacing.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace zorvo {

namespace {

constexpr QSize kPictureSize{420, 120};
constexpr int kWarningHeight = 110;

/// `GetAppInfoEx2` of the support library: folder, window, report, company.
using GetAppInfoEx2 = void (*)(const char* sFolder, std::int32_t hWnd, const char* sReportFile,
                               const char* sCompanyID);

template <typename Control>
Control* named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

/// Null when the library isn't there: the report does without it.
std::unique_ptr<LoadedLibrary> LoadSysLibrary(const std::string& sPath)
{
    return platform().libraries->load(sPath);
}

} // namespace

frmAbout::frmAbout()
    : Form("frmAbout")
    , lblVersion_(named(new QLabel(QStringLiteral("Version number goes here"), this), "lblVersion"))
    , picAboutBrand_(named(new QLabel(this), "picAboutBrand"))
    , fraCredits_(named(new QGroupBox(this), "fraCredits"))
    , txtWarning_(named(new QPlainTextEdit(fraCredits_), "txtWarning"))
    , cmdOK_(named(new QPushButton(QStringLiteral("OK"), this), "cmdOK"))
    , cmdSupport_(named(new QPushButton(QStringLiteral("&Support"), this), "cmdSupport"))
    , cmdHelp_(named(new QPushButton(QStringLiteral("&Help"), this), "cmdHelp"))
    , cmdQuickTour_(named(new QPushButton(QStringLiteral("&Quick-Tour"), this), "cmdQuickTour"))
{
    setCaption(QStringLiteral("About Zorvo's Brendle"));
    picAboutBrand_->setPixmap(QIcon(QStringLiteral(":/pictures/about.svg")).pixmap(kPictureSize));
    txtWarning_->setReadOnly(true);
    txtWarning_->setAccessibleName(tr("Warning"));
    txtWarning_->setTabChangesFocus(true);
    setDefaultButton(cmdOK_);
    setCancelButton(cmdOK_);
    layOut();
    connect(cmdOK_, &QPushButton::clicked, this, guardedSlot(this, [this] { unload(); }));
    connect(cmdSupport_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdSupport_Click(); }));
    connect(cmdHelp_, &QPushButton::clicked, this, guardedSlot(this, [] { ShowHelpContents(); }));
    connect(cmdQuickTour_, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdQuickTour_Click(); }));
}

void frmAbout::layOut()
{
    auto* credits = new QVBoxLayout(fraCredits_);
    txtWarning_->setMinimumHeight(kWarningHeight);
    credits->addWidget(txtWarning_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {cmdOK_, cmdSupport_, cmdHelp_, cmdQuickTour_})
        buttons->addWidget(button);
    auto* whole = new QVBoxLayout(this);
    spaceForm(*whole);
    whole->addWidget(picAboutBrand_, 0, Qt::AlignHCenter);
    whole->addWidget(lblVersion_);
    whole->addWidget(fraCredits_, 1);
    whole->addLayout(buttons);
}

void frmAbout::onLoad()
{
    setScreenPointer(0);
    lblVersion_->setText(QString::fromStdString(GetVersionText()));
    txtWarning_->setPlainText(QString::fromStdString(sGetAboutWarning()));
    ApplyFormBranding(*this);
}

void frmAbout::onActivate()
{
    if (bPictureMissing_ || GetCompanyID() == kDefaultCompany)
        return;
    bPictureMissing_ = true; // until it is there: the message about it brings another activate event
    const PicturePtr picture = LoadBrandedPicture("About");
    picAboutBrand_->setPixmap(picture ? picture->pixmap() : QPixmap());
    bPictureMissing_ = !picture;
}

void frmAbout::onUnload()
{
    hSysLibrary_.reset();
    setScreenPointer(goMousePointer().MousePointer());
}

void frmAbout::cmdSupport_Click()
{
    try {
        callSupportLibrary(WriteSupportReport());
        setScreenPointer(0);
        StartInformationViewer();
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("frmAbout.cmdSupport_Click");
    }
}

void frmAbout::cmdQuickTour_Click()
{
    if (supportHost().quickTour)
        supportHost().quickTour();
}

void frmAbout::callSupportLibrary(const std::string& sReportFile)
{
    if (!hSysLibrary_)
        hSysLibrary_ = LoadSysLibrary(GetZorvoPath(true) + "ZorvoSys32.dll");
    if (!hSysLibrary_)
        return;
    void* symbol = hSysLibrary_->symbol("GetAppInfoEx2");
    if (!symbol)
        throw RunTimeError(kMemberNotFound);
    const auto call = reinterpret_cast<GetAppInfoEx2>(symbol);
    call(GetZorvoPath(true).c_str(), static_cast<std::int32_t>(winId()), sReportFile.c_str(),
         GetCompanyID().c_str());
}

} // namespace zorvo
