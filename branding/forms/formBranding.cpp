#include "branding/forms/formBranding.h"

#include "base/attempt.h"
#include "branding/brandedFiles.h"
#include "branding/companyIdentity.h"
#include "branding/sRebrand.h"
#include "window/ControlCaption.h"
#include "window/Form.h"
#include "window/taskListName.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QPixmap>

namespace zorvo {

namespace {

constexpr const char* kIconName = "Brendle.ico";

bool isDefaultCompany()
{
    return GetCompanyID() == kDefaultCompany;
}

QString rebranded(const QString& caption, bool bEscapeAmpersand)
{
    return QString::fromStdString(sRebrand(caption.toStdString(), bEscapeAmpersand));
}

/// Twice: first for captions with access keys, then plain.
void rebrandControl(QObject& control)
{
    for (const bool bEscapeAmpersand : {true, false}) {
        const auto caption = controlCaption(control);
        if (caption)
            setControlCaption(control, rebranded(*caption, bEscapeAmpersand));
    }
}

/// All controls below `parent`, those inside other controls too. A window is a form of its own.
void rebrandControlsOf(const QObject& parent)
{
    for (QObject* child : parent.findChildren<QObject*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isWidgetType() && static_cast<QWidget*>(child)->isWindow())
            continue;
        attempt([child] { rebrandControl(*child); });
        rebrandControlsOf(*child);
    }
}

} // namespace

void ApplyFormBranding(Form& frm)
{
    if (isDefaultCompany())
        return;
    if (const PicturePtr icon = LoadBrandedPicture(kIconName))
        frm.setWindowIcon(icon->icon());
    RebrandFormCaptions(frm);
}

void RebrandFormCaptions(Form& frm)
{
    attempt([&frm] { frm.setCaption(rebranded(frm.caption(), false)); });
    rebrandControlsOf(frm);
}

void SetTaskManagerPicture(Form& frm, QLabel* pic)
{
    if (isDefaultCompany())
        return;
    if (const PicturePtr icon = LoadBrandedPicture(kIconName)) {
        if (pic)
            pic->setPixmap(icon->pixmap());
        frm.setWindowIcon(icon->icon());
        QApplication::setWindowIcon(icon->icon());
    }
    frm.setWindowIconText(frm.caption());
    // Under the house's own launcher the desktop would show the house's icon and name all the same.
    const QString launcher = QGuiApplication::desktopFileName();
    const QString own = QLatin1Char('.') + QString::fromStdString(GetCompanyID());
    setTaskListName(frm, launcher.endsWith(own) ? launcher : launcher + own, frm.caption());
}

} // namespace zorvo
