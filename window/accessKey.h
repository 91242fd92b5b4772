#pragma once

#include <QString>

namespace zorvo {

/// A caption as people read it: "&" marks the access key and goes, "&&" is one "&".
QString withoutAccessKey(const QString& caption);

/// The caption that reads as the text and marks nothing.
QString asCaption(const QString& text);

/// The key that the caption marks, in upper case; null when it marks none.
QChar accessKeyOf(const QString& caption);

} // namespace zorvo
