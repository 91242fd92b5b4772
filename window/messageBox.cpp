#include "window/messageBox.h"

#include "base/text.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <iostream>
#include <utility>

namespace zorvo {

namespace {

constexpr int kButtonMask = 0x0F;
constexpr int kIconMask = 0x70;

MessageBoxHandler& installedHandler()
{
    static MessageBoxHandler handler;
    return handler;
}

QMessageBox::StandardButtons buttonsOf(int nStyle)
{
    switch (nStyle & kButtonMask) {
    case kMsgOkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case kMsgYesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon iconOf(int nStyle)
{
    switch (nStyle & kIconMask) {
    case kMsgCritical:
        return QMessageBox::Critical;
    case kMsgQuestion:
        return QMessageBox::Question;
    case kMsgExclamation:
        return QMessageBox::Warning;
    case kMsgInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int resultOf(int button)
{
    switch (button) {
    case QMessageBox::Cancel:
        return kMsgResultCancel;
    case QMessageBox::Yes:
        return kMsgResultYes;
    case QMessageBox::No:
        return kMsgResultNo;
    default:
        return kMsgResultOk;
    }
}

std::string withPlainLineEnds(const std::string& sText)
{
    return replaceAll(replaceAll(sText, "\r\n", "\n"), "\r", "\n");
}

/// Keeps the box above the window that is in front. A parent would take the box with it when it goes.
void ownByActiveWindow(QMessageBox& box)
{
    const QWidget* front = QApplication::activeWindow();
    if (!front || !front->windowHandle())
        return;
    box.winId();
    box.windowHandle()->setTransientParent(front->windowHandle());
}

/// Wide enough for its title, which says of a failure where it happened. The buttons of a long text stay on
/// the screen: its lines beyond that aren't shown.
void sizeText(const QMessageBox& box)
{
    constexpr int kBesideTitle = 60; // what the frame has more than icon and margins
    constexpr int kMost = 640;
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label)
        return;
    QFont bold = box.font();
    bold.setBold(true);
    const int title = QFontMetrics(bold).horizontalAdvance(box.windowTitle());
    const int width = std::min(title + kBesideTitle, kMost);
    // A longer text makes room itself, and a minimum would take the place of that.
    if (label->sizeHint().width() < width)
        label->setMinimumWidth(width);
    const int nLine = label->fontMetrics().lineSpacing();
    const int nRoom = box.screen()->availableGeometry().height() * 2 / 3;
    label->setMaximumHeight(std::max(nRoom / nLine, 1) * nLine);
}

int showStandardBox(const std::string& sPrompt, int nStyle, const std::string& sTitle)
{
    QMessageBox box;
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setWindowTitle(QString::fromStdString(sTitle));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(withPlainLineEnds(sPrompt)));
    box.setIcon(iconOf(nStyle));
    box.setStandardButtons(buttonsOf(nStyle));
    box.setWindowModality(Qt::ApplicationModal);
    ownByActiveWindow(box);
    sizeText(box);
    return resultOf(box.exec());
}

} // namespace

int showMessageBox(const std::string& sPrompt, int nStyle, const std::string& sTitle)
{
    if (const MessageBoxHandler handler = installedHandler())
        return handler(sPrompt, nStyle, sTitle);
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        return showStandardBox(sPrompt, nStyle, sTitle);
    std::cerr << withPlainLineEnds(sPrompt) << std::endl;
    return kMsgResultOk;
}

MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler)
{
    return std::exchange(installedHandler(), std::move(handler));
}

} // namespace zorvo
