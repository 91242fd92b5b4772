#pragma once

#include <QBuffer>
#include <QColor>
#include <QImage>

#include <string>

namespace zorvo {

/// The file of a square picture of one colour; `sFormat` as Qt names it.
inline std::string pictureBytes(int nSize, const char* sFormat = "PNG", const QColor& colour = Qt::red)
{
    QImage image(nSize, nSize, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, sFormat);
    return bytes.toStdString();
}

} // namespace zorvo
