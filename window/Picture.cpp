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
    /// Made at the first call for it; every node of a tree asks.
    QIcon icon;
};

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
    const int nImages = reader.supportsAnimation() ? 1 : std::max(reader.imageCount(), 1);
    for (int i = 0; i < nImages; ++i) {
        if (i > 0 && !reader.jumpToImage(i))
            break;
        QImage image = reader.read();
        if (!image.isNull())
            picture->data_->images.push_back(std::move(image));
    }
    if (picture->data_->images.empty())
        throw RunTimeError(kInvalidPicture);
    return picture;
}

QIcon Picture::icon() const
{
    if (data_->icon.isNull())
        for (const QImage& image : data_->images)
            data_->icon.addPixmap(QPixmap::fromImage(image));
    return data_->icon;
}

QPixmap Picture::pixmap() const
{
    const auto area = [](const QImage& image) { return image.width() * image.height(); };
    const auto largest =
        std::max_element(data_->images.begin(), data_->images.end(),
                         [area](const QImage& a, const QImage& b) { return area(a) < area(b); });
    return QPixmap::fromImage(*largest);
}

} // namespace zorvo
