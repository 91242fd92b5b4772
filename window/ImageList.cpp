#include "window/ImageList.h"

#include "base/RunTimeError.h"
#include "base/text.h"

#include <utility>

namespace zorvo {

void ImageList::add(const std::string& sKey, PicturePtr picture)
{
    if (indexOf(sKey) != -1)
        throw RunTimeError(kKeyAlreadyUsed);
    entries_.push_back({sKey, std::move(picture)});
}

const ImageList::Entry& ImageList::item(int index) const
{
    if (index < 1 || index > count())
        throw RunTimeError(kIndexOutOfRange);
    return entries_[static_cast<std::size_t>(index - 1)];
}

int ImageList::indexOf(const std::string& sKey) const
{
    for (int i = 1; i <= count(); ++i) {
        if (equalNoCase(entries_[static_cast<std::size_t>(i - 1)].sKey, sKey))
            return i;
    }
    return -1;
}

} // namespace zorvo
