#include "shell/waitText.h"

namespace zorvo {

std::string nextWaitText(std::int16_t& nDots)
{
    std::string sText = " Please wait";
    if (nDots >= 3) {
        nDots = 0;
        return sText;
    }
    for (std::int16_t i = 0; i <= nDots; ++i)
        sText += " .";
    ++nDots;
    return sText;
}

} // namespace zorvo
