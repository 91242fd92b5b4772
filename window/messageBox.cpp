#include "window/messageBox.h"

#include "base/text.h"

#include <QApplication>
#include <QMessageBox>

#include <iostream>
#include <utility>

namespace zorvo {

namespace {

constexpr int kButtonsMask = 0x0F;
constexpr int kIconMask = 0xF0;

MessageBoxHandler& handler()
{
    static MessageBoxHandler installed;
    return installed;
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

QMessageBox::StandardButtons buttonsOf(int nStyle)
{
    switch (nStyle & kButtonsMask) {
    case kMsgOkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case kMsgYesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

int resultOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return kMsgResultYes;
    case QMessageBox::No:
        return kMsgResultNo;
    case QMessageBox::Cancel:
        return kMsgResultCancel;
    default:
        return kMsgResultOk;
    }
}

} // namespace

int showMessageBox(const std::string& sPrompt, int nStyle, const std::string& sTitle)
{
    if (handler())
        return handler()(sPrompt, nStyle, sTitle);
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        std::cerr << sTitle << ": " << replaceAll(sPrompt, "\r\n", "\n") << '\n';
        return kMsgResultOk;
    }
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setWindowTitle(QString::fromStdString(sTitle));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(replaceAll(sPrompt, "\r\n", "\n")));
    box.setIcon(iconOf(nStyle));
    box.setStandardButtons(buttonsOf(nStyle));
    box.setWindowModality(Qt::ApplicationModal);
    return resultOf(box.exec());
}

MessageBoxHandler setMessageBoxHandler(MessageBoxHandler replacement)
{
    return std::exchange(handler(), std::move(replacement));
}

} // namespace zorvo
