#include "window/ControlCaption.h"

#include "window/Form.h"
#include "window/LinkLabel.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanel.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace zorvo {

namespace {

/// Tool buttons and list bar entries are buttons too, but parts of another control.
bool isButtonWithCaption(const QAbstractButton& button)
{
    return qobject_cast<const QPushButton*>(&button) || qobject_cast<const QCheckBox*>(&button) ||
           qobject_cast<const QRadioButton*>(&button) || qobject_cast<const LinkLabel*>(&button);
}

/// A label that shows a picture has no caption, nor has a part of a status bar.
bool isLabelWithCaption(const QLabel& label)
{
    return label.pixmap(Qt::ReturnByValue).isNull() && !qobject_cast<const StatusPanel*>(&label);
}

} // namespace

std::optional<QString> controlCaption(const QObject& control)
{
    if (const auto* form = qobject_cast<const Form*>(&control))
        return form->caption();
    if (const auto* label = qobject_cast<const MnemonicLabel*>(&control))
        return label->caption();
    if (const auto* label = qobject_cast<const QLabel*>(&control); label && isLabelWithCaption(*label))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control);
        button && isButtonWithCaption(*button))
        return button->text();
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control))
        return frame->title();
    return {};
}

bool setControlCaption(QObject& control, const QString& caption)
{
    if (!controlCaption(control))
        return false;
    if (auto* form = qobject_cast<Form*>(&control))
        form->setCaption(caption);
    else if (auto* mnemonicLabel = qobject_cast<MnemonicLabel*>(&control))
        mnemonicLabel->setCaption(caption);
    else if (auto* label = qobject_cast<QLabel*>(&control))
        label->setText(caption);
    else if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setText(caption);
    else if (auto* frame = qobject_cast<QGroupBox*>(&control))
        frame->setTitle(caption);
    return true;
}

} // namespace zorvo
