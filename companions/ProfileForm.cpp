#include "companions/ProfileForm.h"

#include "window/UiIds.h"
#include "window/twips.h"

#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace zorvo {

namespace {

constexpr int kSpacing = 8;
constexpr int kMargin = 16;
constexpr int kWidth = 480;

QString qt(const std::string& sText)
{
    return QString::fromStdString(sText);
}

QStringList usualEngagements()
{
    return {QStringLiteral("Audit"), QStringLiteral("Review"), QStringLiteral("Compilation"),
            QStringLiteral("Agreed-upon procedures"), QStringLiteral("Tax")};
}

/// The control's own name, and one that people hear.
void nameControl(QWidget& widget, const char* name, const QString& readAs = {})
{
    widget.setObjectName(QLatin1String(name));
    if (!readAs.isEmpty())
        widget.setAccessibleName(readAs);
}

} // namespace

ProfileForm::ProfileForm(std::vector<ProfileData> profiles, const std::string& sNativeFolder)
    : profiles_(std::move(profiles))
    , cboProfile_(new QComboBox(this))
    , txtClientName_(new QLineEdit(this))
    , txtPeriodEnd_(new QLineEdit(this))
    , cboEngagementType_(new QComboBox(this))
    , txtPreparedBy_(new QLineEdit(this))
    , txtReviewedBy_(new QLineEdit(this))
    , lblFolderPath_(new QLabel(this))
    , cmdOK_(new QPushButton(tr("OK"), this))
    , cmdCancel_(new QPushButton(tr("Cancel"), this))
{
    setWindowTitle(tr("Client Profile"));
    nameControls();
    layOut(sNativeFolder);
    fillLists();
    connect(cboProfile_, &QComboBox::activated, this, &ProfileForm::onProfileChosen);
    connect(txtClientName_, &QLineEdit::textChanged, this,
            [this](const QString& text) { cmdOK_->setEnabled(!text.trimmed().isEmpty()); });
    connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
    cmdOK_->setEnabled(false);
    showProfile(profiles_.empty() ? ProfileData() : profiles_.front());
    txtClientName_->setFocus();
    txtClientName_->selectAll();
}

void ProfileForm::nameControls()
{
    nameControl(*this, "frmProfileData");
    nameControl(*cboProfile_, "cboProfile", tr("Recent profiles"));
    nameControl(*txtClientName_, "txtClientName", tr("Client name"));
    nameControl(*txtPeriodEnd_, "txtPeriodEnd", tr("Period end"));
    nameControl(*cboEngagementType_, "cboEngagementType", tr("Engagement type"));
    nameControl(*txtPreparedBy_, "txtPreparedBy", tr("Preparer"));
    nameControl(*txtReviewedBy_, "txtReviewedBy", tr("Reviewer"));
    nameControl(*lblFolderPath_, "lblFolderPath");
    nameControl(*cmdOK_, "cmdOK", tr("OK"));
    nameControl(*cmdCancel_, "cmdCancel", tr("Cancel"));
    markUiIds(*this);
}

void ProfileForm::layOut(const std::string& sNativeFolder)
{
    auto* intro = new QLabel(tr("What you enter here goes into every document of this batch."), this);
    intro->setWordWrap(true);
    lblFolderPath_->setTextFormat(Qt::PlainText);
    lblFolderPath_->setText(qt(sNativeFolder));
    // As wide as the fields, and as high as a long path then needs.
    lblFolderPath_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    lblFolderPath_->setWordWrap(true);
    lblFolderPath_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cboEngagementType_->setEditable(true);
    cboEngagementType_->setInsertPolicy(QComboBox::NoInsert);
    for (QComboBox* list : {cboProfile_, cboEngagementType_})
        list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    auto* fields = new QFormLayout;
    fields->setHorizontalSpacing(2 * kSpacing);
    fields->setVerticalSpacing(kSpacing);
    fields->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    fields->addRow(tr("&Recent profiles"), cboProfile_);
    fields->addRow(tr("&Client name"), txtClientName_);
    fields->addRow(tr("Period &end"), txtPeriodEnd_);
    fields->addRow(tr("En&gagement type"), cboEngagementType_);
    fields->addRow(tr("&Preparer"), txtPreparedBy_);
    fields->addRow(tr("Re&viewer"), txtReviewedBy_);
    fields->addRow(tr("Document folder"), lblFolderPath_);
    fields->setRowVisible(cboProfile_, !profiles_.empty());

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kSpacing);
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdCancel_);
    cmdOK_->setDefault(true);

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    whole->setSpacing(kMargin);
    whole->addWidget(intro);
    whole->addLayout(fields);
    whole->addStretch();
    whole->addLayout(buttons);
    resize(kWidth, std::max(sizeHint().height(), whole->totalHeightForWidth(kWidth)));
}

void ProfileForm::fillLists()
{
    for (const ProfileData& profile : profiles_) {
        const QString periodEnd = qt(profileValue(profile, kPeriodEnd));
        const QString client = qt(profileValue(profile, kClientName));
        cboProfile_->addItem(periodEnd.isEmpty() ? client : tr("%1, %2").arg(client, periodEnd));
    }
    cboEngagementType_->addItems(usualEngagements());
}

void ProfileForm::showProfile(const ProfileData& profile)
{
    txtClientName_->setText(qt(profileValue(profile, kClientName)));
    txtPeriodEnd_->setText(qt(profileValue(profile, kPeriodEnd)));
    cboEngagementType_->setCurrentText(qt(profileValue(profile, kEngagementType)));
    txtPreparedBy_->setText(qt(profileValue(profile, kPreparedBy)));
    txtReviewedBy_->setText(qt(profileValue(profile, kReviewedBy)));
}

void ProfileForm::onProfileChosen(int nIndex)
{
    if (nIndex >= 0 && nIndex < static_cast<int>(profiles_.size()))
        showProfile(profiles_[static_cast<std::size_t>(nIndex)]);
}

ProfileData ProfileForm::profile() const
{
    // Through the text, so that it is what the documents will read.
    return parseProfile(profileText({{kClientName, txtClientName_->text().toStdString()},
                                     {kPeriodEnd, txtPeriodEnd_->text().toStdString()},
                                     {kEngagementType, cboEngagementType_->currentText().toStdString()},
                                     {kPreparedBy, txtPreparedBy_->text().toStdString()},
                                     {kReviewedBy, txtReviewedBy_->text().toStdString()}}));
}

void ProfileForm::moveToTwips(int nTop, int nLeft)
{
    const QPoint wanted(toPixels(nLeft), toPixels(nTop));
    const QScreen* at = QGuiApplication::screenAt(wanted);
    const QRect room = (at != nullptr ? at : QGuiApplication::primaryScreen())->availableGeometry();
    move(std::max(room.left(), std::min(wanted.x(), room.right() - width())),
         std::max(room.top(), std::min(wanted.y(), room.bottom() - height())));
}

int ProfileForm::topInTwips() const
{
    return toTwips(y());
}

int ProfileForm::leftInTwips() const
{
    return toTwips(x());
}

} // namespace zorvo
