#include "client/failureLine.h"

namespace zorvo {

std::string failureLine(const RunTimeError& error)
{
    std::string sLine = "Error " + std::to_string(error.number()) + " - ";
    bool bGap = false;
    for (const char c : error.description()) {
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

} // namespace zorvo
