#pragma once

#include <QImage>

namespace zorvo {

/// Stands for a picture that a rich text doesn't get. It must be a picture: for a null one the document would
/// look among the user's own files.
inline QImage noPicture()
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace zorvo
