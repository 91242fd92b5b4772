#pragma once

#include <QString>

#include <optional>

class QObject;

namespace zorvo {

/// Caption of a label, button, check box, option button, frame or form, access key marks and all; none for
/// every other kind of control.
std::optional<QString> controlCaption(const QObject& control);

/// False when that kind of control has no caption.
bool setControlCaption(QObject& control, const QString& caption);

} // namespace zorvo
