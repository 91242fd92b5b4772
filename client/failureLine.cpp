#include "client/failureLine.h"

namespace zorvo {

std::string oneLine(std::string_view sText)
{
    std::string sLine;
    bool bGap = false;
    for (const char c : sText) {
        if (c == '\r' || c == '\n') {
            bGap = true;
            continue;
        }
        if (bGap)
            sLine += ' ';
        bGap = false;
        sLine += c;
    }
    return sLine;
}

std::string failureLine(const RunTimeError& error)
{
    return "Error " + std::to_string(error.number()) + " - " + oneLine(error.description());
}

} // namespace zorvo
