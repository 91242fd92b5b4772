#include "platform/pageProtocol.h"

namespace zorvo::pageProtocol {

std::string line(std::string_view sWord, std::string_view sRest)
{
    std::string sLine(sWord);
    if (!sRest.empty())
        sLine += ' ';
    for (const char c : sRest) {
        constexpr unsigned char kFirstPrintable = 0x20;
        if (static_cast<unsigned char>(c) >= kFirstPrintable)
            sLine += c;
    }
    return sLine;
}

Message parse(std::string_view line)
{
    if (line.size() > kLongestLine)
        return {};
    const std::size_t nBlank = line.find(' ');
    if (nBlank == std::string_view::npos)
        return {std::string(line), {}};
    return {std::string(line.substr(0, nBlank)), std::string(line.substr(nBlank + 1))};
}

} // namespace zorvo::pageProtocol
