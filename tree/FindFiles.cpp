#include "tree/FindFiles.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"

#include <string_view>

namespace zorvo {

namespace {

/// One character in UTF-8: its bytes.
std::size_t characterLength(std::string_view text)
{
    std::size_t n = 1;
    while (n < text.size() && (static_cast<unsigned char>(text[n]) & 0xC0U) == 0x80U)
        ++n;
    return n;
}

/// Both in upper case. Steps back to the last "*" when the rest doesn't fit, so that the time stays bounded.
bool matches(std::string_view name, std::string_view pattern)
{
    std::string_view afterStar;
    std::string_view atStar;
    bool bStar = false;
    while (!name.empty()) {
        if (!pattern.empty() && pattern.front() == '*') {
            pattern.remove_prefix(1);
            afterStar = pattern;
            atStar = name;
            bStar = true;
        } else if (!pattern.empty() && pattern.front() == '?') {
            pattern.remove_prefix(1);
            name.remove_prefix(characterLength(name));
        } else if (!pattern.empty() && pattern.front() == name.front()) {
            pattern.remove_prefix(1);
            name.remove_prefix(1);
        } else if (bStar) {
            atStar.remove_prefix(characterLength(atStar));
            name = atStar;
            pattern = afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*') == std::string_view::npos;
}

std::string withFirstUpper(const std::string& sPath)
{
    if (sPath.empty())
        return sPath;
    const std::size_t nFirst = characterLength(sPath);
    return upperCase(std::string_view(sPath).substr(0, nFirst)) + sPath.substr(nFirst);
}

bool isAccepted(const std::string& sPath, const std::string& sContains, bool bNotContains)
{
    return sContains.empty() || FileContainsText(sPath, sContains) != bNotContains;
}

} // namespace

bool MatchesPattern(const std::string& sName, const std::string& sPattern)
{
    return sPattern == "*.*" || matches(upperCase(sName), upperCase(sPattern));
}

void FindFiles(const std::string& sFolder, const std::string& sPattern, const std::string& sContains,
               bool bNotContains, std::vector<std::string>& records, int& nCount, bool bRecurse)
{
    const auto entries = platform().files->list(sFolder);
    for (const Files::Entry& entry : entries) {
        if (!MatchesPattern(entry.sName, sPattern))
            continue;
        const std::string sPath = sFolder + trimBlanks(entry.sName);
        if (!isAccepted(sPath, sContains, bNotContains))
            continue;
        records.push_back(withFirstUpper(trimBlanks(sPath)));
        ++nCount;
    }
    if (!bRecurse)
        return;
    for (const Files::Entry& entry : entries) {
        if (entry.bFolder)
            FindFiles(sFolder + entry.sName + "\\", sPattern, sContains, bNotContains, records, nCount,
                      bRecurse);
    }
}

bool FileContainsText(const std::string& sPath, const std::string& sText)
{
    try {
        return containsNoCase(platform().files->read(sPath), sText);
    } catch (const RunTimeError&) {
        return false;
    }
}

} // namespace zorvo
