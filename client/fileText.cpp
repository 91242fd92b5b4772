#include "client/fileText.h"

namespace zorvo {

std::string withoutByteOrderMark(std::string sBytes)
{
    constexpr const char* kMark = "\xEF\xBB\xBF";
    if (sBytes.starts_with(kMark))
        sBytes.erase(0, 3);
    return sBytes;
}

std::string withoutBlankEnds(const std::string& sText)
{
    constexpr const char* kBlank = " \t\r\n";
    const auto nFirst = sText.find_first_not_of(kBlank);
    if (nFirst == std::string::npos)
        return {};
    return sText.substr(nFirst, sText.find_last_not_of(kBlank) - nFirst + 1);
}

} // namespace zorvo
