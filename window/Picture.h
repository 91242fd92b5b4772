#pragma once

#include <memory>
#include <string_view>

class QIcon;
class QPixmap;

namespace zorvo {

/// A picture read from the bytes of a file: icon, bitmap, PNG and what else the image library knows.
class Picture {
public:
    ~Picture();

    /// Throws RunTimeError 481 when the bytes are no picture.
    static std::shared_ptr<Picture> fromBytes(std::string_view bytes);

    /// All sizes that the file holds.
    QIcon icon() const;
    /// The largest one.
    QPixmap pixmap() const;

private:
    Picture();
    struct Data;
    std::unique_ptr<Data> data_;
};

using PicturePtr = std::shared_ptr<Picture>;

} // namespace zorvo
