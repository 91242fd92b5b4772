#pragma once

#include <string>

namespace zorvo {

/// Two texts of an XML document as one key: a zero character never stands in such a text.
inline std::string pairKey(const std::string& sFirst, const std::string& sSecond)
{
    std::string sKey;
    sKey.reserve(sFirst.size() + 1 + sSecond.size());
    return sKey.append(sFirst).append(1, '\0').append(sSecond);
}

} // namespace zorvo
