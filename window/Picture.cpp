#include "window/Picture.h"

#include "base/RunTimeError.h"

#include <QBuffer>
#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <QPixmap>

#include <algorithm>
#include <vector>

namespace zorvo {

/// Images, not pixmaps: they are read without a user interface.
struct Picture::Data {
    std::vector<QImage> images;
    /// The file while only its first image has been read: a program loads more pictures than it shows.
    QByteArray unread;
    /// Made at the first call for it; every node of a tree asks.
    QIcon icon;

    void readRest();
};

void Picture::Data::readRest()
{
    if (unread.isEmpty())
        return;
    QBuffer buffer(&unread);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    for (int i = 1; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        QImage image = reader.read();
        if (!image.isNull())
            images.push_back(std::move(image));
    }
    buffer.close();
    unread.clear();
}

Picture::Picture()
    : data_(std::make_unique<Data>())
{
}

Picture::~Picture() = default;

std::shared_ptr<Picture> Picture::fromBytes(std::string_view bytes)
{
    QByteArray content = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    std::shared_ptr<Picture> picture(new Picture);
    const bool bMore = !reader.supportsAnimation() && reader.imageCount() > 1;
    QImage first = reader.read();
    if (!first.isNull())
        picture->data_->images.push_back(std::move(first));
    if (bMore)
        picture->data_->unread = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
    // Whether the file is a picture must be known now, if its first image doesn't tell.
    if (picture->data_->images.empty())
        picture->data_->readRest();
    if (picture->data_->images.empty())
        throw RunTimeError(kInvalidPicture);
    return picture;
}

QIcon Picture::icon() const
{
    data_->readRest();
    if (data_->icon.isNull())
        for (const QImage& image : data_->images)
            data_->icon.addPixmap(QPixmap::fromImage(image));
    return data_->icon;
}

QPixmap Picture::pixmap() const
{
    data_->readRest();
    const auto area = [](const QImage& image) { return image.width() * image.height(); };
    const auto largest =
        std::max_element(data_->images.begin(), data_->images.end(),
                         [area](const QImage& a, const QImage& b) { return area(a) < area(b); });
    return QPixmap::fromImage(*largest);
}

} // namespace zorvo
