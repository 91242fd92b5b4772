#include "base/paths.h"

#include "base/text.h"

namespace zorvo {

std::string sGetFilePath(const std::string& sFullName)
{
    const auto nDot = sFullName.rfind('.');
    if (nDot == std::string::npos)
        return sFullName;
    const auto nBackslash = sFullName.rfind('\\', nDot);
    if (nBackslash == std::string::npos)
        return sFullName;
    const bool bRoot = nBackslash > 0 && sFullName[nBackslash - 1] == ':';
    return sFullName.substr(0, bRoot ? nBackslash + 1 : nBackslash);
}

std::string sGetFileName(const std::string& sFullName, bool bNoExtension)
{
    std::string sName = sFullName;
    if (sFullName.find_first_of("\\:") != std::string::npos) {
        const std::string sFolder = sGetFilePath(sFullName);
        const std::size_t n = sFullName.size() - (sFolder.ends_with('\\') ? 0 : 1);
        sName =
            n > sFolder.size() ? sFullName.substr(sFullName.size() - (n - sFolder.size())) : std::string();
    }
    if (bNoExtension) {
        const auto nDot = sName.rfind('.');
        if (nDot != std::string::npos)
            sName.resize(nDot);
    }
    return sName;
}

std::string sJoinPath(const std::string& sPath, const std::optional<std::string>& sSub)
{
    std::string sResult = cutAtNull(sPath);
    if (!sSub)
        return sResult;
    if (sResult.ends_with('\\'))
        sResult.pop_back();
    return sResult + "\\" + (sSub->starts_with('\\') ? sSub->substr(1) : *sSub);
}

std::string sStripNull(const std::string& s, std::optional<std::size_t> nMax)
{
    std::string sResult = cutAtNull(s);
    if (nMax && characterCount(sResult) > *nMax) {
        std::size_t nCount = 0;
        std::size_t nEnd = 0;
        // Count the bytes that begin a character: a character is never cut in two.
        for (; nEnd < sResult.size(); ++nEnd) {
            if ((static_cast<unsigned char>(sResult[nEnd]) & 0xC0U) != 0x80U && nCount++ == *nMax)
                break;
        }
        sResult.resize(nEnd);
    }
    return sResult;
}

std::string withBackslash(std::string sPath)
{
    if (!sPath.ends_with('\\'))
        sPath.push_back('\\');
    return sPath;
}

} // namespace zorvo
