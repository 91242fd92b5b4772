#include "window/ListBarGroups.h"

#include "base/RunTimeError.h"

#include <algorithm>

namespace zorvo {

void ListBarGroups::add(int index, const std::string& sKey, const std::string& sCaption, int nImage)
{
    if (index < 1 || index > count() + 1)
        throw RunTimeError(kIndexOutOfRange);
    const bool bKnown = std::any_of(groups_.begin(), groups_.end(),
                                    [&sKey](const Group& group) { return group.sKey == sKey; });
    if (bKnown && !sKey.empty())
        throw RunTimeError(kKeyAlreadyUsed);
    groups_.insert(groups_.begin() + (index - 1), {sKey, sCaption, nImage});
    changed();
}

const ListBarGroups::Group& ListBarGroups::item(int index) const
{
    if (index < 1 || index > count())
        throw RunTimeError(kIndexOutOfRange);
    return groups_[static_cast<std::size_t>(index - 1)];
}

void ListBarGroups::clear()
{
    groups_.clear();
    changed();
}

void ListBarGroups::changed() const
{
    if (listener_)
        listener_();
}

} // namespace zorvo
