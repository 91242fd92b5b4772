#pragma once

#include <QString>

namespace zorvo::help {

/// A tip that shows a book's text as it is, also one that looks like markup.
inline QString plainToolTip(const QString& text)
{
    return QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped());
}

} // namespace zorvo::help
