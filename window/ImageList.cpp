#include "window/ImageList.h"

#include "base/RunTimeError.h"
#include "base/text.h"

#include <utility>

namespace zorvo {

void ImageList::add(const std::string& sKey, PicturePtr picture)
{
    const int index = count() + 1;
    if (!byUpperKey_.emplace(upperCase(sKey), index).second)
        throw RunTimeError(kKeyAlreadyUsed);
    entries_.push_back({sKey, std::move(picture)});
}

void ImageList::clear()
{
    entries_.clear();
    byUpperKey_.clear();
}

const ImageList::Entry& ImageList::item(int index) const
{
    if (index < 1 || index > count())
        throw RunTimeError(kIndexOutOfRange);
    return entries_[static_cast<std::size_t>(index - 1)];
}

int ImageList::indexOf(const std::string& sKey) const
{
    const auto found = byUpperKey_.find(upperCase(sKey));
    return found == byUpperKey_.end() ? -1 : found->second;
}

} // namespace zorvo
