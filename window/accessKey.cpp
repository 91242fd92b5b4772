#include "window/accessKey.h"

namespace zorvo {

namespace {
constexpr QChar kMark = u'&';
} // namespace

QString withoutAccessKey(const QString& caption)
{
    QString text;
    text.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == kMark && ++i == caption.size())
            break;
        text += caption[i];
    }
    return text;
}

QString asCaption(const QString& text)
{
    QString caption = text;
    return caption.replace(kMark, QStringLiteral("&&"));
}

QChar accessKeyOf(const QString& caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != kMark)
            continue;
        ++i;
        if (caption[i] != kMark)
            return caption[i].toUpper();
    }
    return {};
}

} // namespace zorvo
