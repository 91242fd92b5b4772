#include "window/Picture.h"

#include "base/RunTimeError.h"

#include <QBuffer>
#include <QIcon>
#include <QImageReader>
#include <QPixmap>

namespace zorvo {

struct Picture::Data {
    QIcon icon;
    QPixmap largest;
};

Picture::Picture()
    : data_(std::make_unique<Data>())
{
}

Picture::~Picture() = default;

std::shared_ptr<Picture> Picture::fromBytes(std::string_view bytes)
{
    QByteArray raw(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&raw);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    std::shared_ptr<Picture> picture(new Picture);
    do {
        const QImage image = reader.read();
        if (image.isNull())
            break;
        const QPixmap pixmap = QPixmap::fromImage(image);
        picture->data_->icon.addPixmap(pixmap);
        if (pixmap.width() > picture->data_->largest.width())
            picture->data_->largest = pixmap;
    } while (reader.jumpToNextImage());
    if (picture->data_->largest.isNull())
        throw RunTimeError(kInvalidPicture);
    return picture;
}

QIcon Picture::icon() const
{
    return data_->icon;
}

QPixmap Picture::pixmap() const
{
    return data_->largest;
}

} // namespace zorvo
