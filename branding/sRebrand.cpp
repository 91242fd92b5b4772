#include "branding/sRebrand.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "branding/companyIdentity.h"
#include "branding/houseWord.h"
#include "branding/xmlCaptionLoaderManager.h"

#include <array>
#include <string_view>
#include <utility>

namespace zorvo {

namespace {

constexpr std::array<std::string_view, 4> kRemovedPhrases = {" option 6", " Option 6", " option 8",
                                                             " Option 8"};
constexpr std::string_view kEveryPhraseHolds = "ption ";

/// One company shows itself otherwise than by its acronym.
std::string sDisplayName(std::string sCompany, bool bEscapeAmpersand)
{
    if (sCompany == "OTR")
        return bEscapeAmpersand ? "OT&&R" : "OT&R";
    return sCompany;
}

/// Files that carry the company in their names.
bool isBrandedFileName(std::string_view text)
{
    return text == "ZorvoSysSupport.txt" || text == "ZorvoSysInfo.txt";
}

void replaceIn(std::string& sText, std::string_view find, std::string_view replacement)
{
    if (sText.find(find) != std::string::npos)
        sText = replaceAll(sText, find, replacement);
}

std::string withCustomPairs(std::string sText)
{
    const RebrandPairs& pairs = captionState().rebrandPairs();
    for (const RebrandPair& pair : pairs.pairs)
        replaceIn(sText, pair.sFind, pair.sReplace);
    if (pairs.bPastLastNumber)
        throw RunTimeError(kOverflow);
    return sText;
}

std::string withoutOptionPhrases(std::string sText)
{
    if (sText.find(kEveryPhraseHolds) == std::string::npos)
        return sText;
    for (const std::string_view phrase : kRemovedPhrases)
        replaceIn(sText, phrase, {});
    return sText;
}

} // namespace

std::string sRebrand(const std::string& sText, bool bEscapeAmpersand)
{
    std::string sCompany = GetCompanyID();
    if (sCompany == kDefaultCompany)
        return withoutOptionPhrases(sText);
    const std::string sName = sDisplayName(std::move(sCompany), bEscapeAmpersand);
    if (!bCaptionsLoaded())
        xmlCaptionLoader();
    // The pairs run on the raw text and can touch anything, the house word included.
    const std::string sPaired = withCustomPairs(sText);
    return withoutOptionPhrases(isBrandedFileName(sText) ? replaceAll(sPaired, kHouseWord, sName)
                                                         : replaceHouseWord(sPaired, sName));
}

bool bIsLetter(const std::string& s)
{
    if (s.empty())
        return false;
    const char c = s.front();
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

} // namespace zorvo
