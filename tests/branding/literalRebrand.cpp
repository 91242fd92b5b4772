#include "tests/branding/literalRebrand.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "branding/companyIdentity.h"
#include "branding/sRebrand.h"
#include "branding/xmlCaptionLoaderManager.h"

#include <limits>

namespace zorvo {

namespace {

struct TokenRow {
    const char* sHidden;
    const char* sToken;
};

constexpr TokenRow kTokens[] = {{"ZorvoZorvo", "[~~0~]"}, {".Zorvo", "[~~1~]"},  {"Zorvo_", "[~~2~]"},
                                {"clsZorvo", "[~~3~]"},   {"\\Zorvo", "[~~4~]"}, {"Zorvo\\", "[~~5~]"},
                                {"\\zorvo", "[~~6~]"},    {"zorvo\\", "[~~7~]"}};

void applyPairs(std::string& sText)
{
    std::string sFind;
    std::string sReplace;
    std::int16_t n = 1;
    while (bGetRebrandPair(n, sFind, sReplace)) {
        sText = replaceAll(sText, sFind, sReplace);
        if (n == std::numeric_limits<std::int16_t>::max())
            throw RunTimeError(kOverflow);
        ++n;
    }
}

template <typename Visit>
void forEachDigitAndLetter(Visit visit)
{
    for (char c = '0'; c <= 'z'; ++c) {
        const std::string s(1, c);
        if ((c >= '0' && c <= '9') || bIsLetter(s))
            visit(s);
    }
}

void hide(std::string& sText)
{
    for (const TokenRow& row : kTokens)
        sText = replaceAll(sText, row.sHidden, row.sToken);
    forEachDigitAndLetter([&sText](const std::string& c) {
        sText = replaceAll(sText, "Zorvo" + c, "[~" + c + "U~]");
        sText = replaceAll(sText, "zorvo" + c, "[~" + c + "l~]");
    });
}

void restore(std::string& sText)
{
    for (const TokenRow& row : kTokens)
        sText = replaceAll(sText, row.sToken, row.sHidden);
    forEachDigitAndLetter([&sText](const std::string& c) {
        sText = replaceAll(sText, "[~" + c + "U~]", "Zorvo" + c);
        sText = replaceAll(sText, "[~" + c + "l~]", "zorvo" + c);
    });
}

void rebrandForCompany(std::string& sText, const std::string& sCompany, bool bEscapeAmpersand)
{
    const bool bExempt = sText == "ZorvoSysSupport.txt" || sText == "ZorvoSysInfo.txt";
    std::string sName = sCompany;
    if (sName == "OTR")
        sName = bEscapeAmpersand ? "OT&&R" : "OT&R";
    if (!bCaptionsLoaded())
        xmlCaptionLoader();
    applyPairs(sText);
    if (!bExempt)
        hide(sText);
    sText = replaceAll(sText, "Zorvo", sName);
    if (!bExempt)
        restore(sText);
}

} // namespace

std::string literalRebrand(const std::string& sText, bool bEscapeAmpersand)
{
    std::string sResult = sText;
    const std::string sCompany = GetCompanyID();
    if (sCompany != "Zorvo")
        rebrandForCompany(sResult, sCompany, bEscapeAmpersand);
    for (const char* sPhrase : {" option 6", " Option 6", " option 8", " Option 8"})
        sResult = replaceAll(sResult, sPhrase, "");
    return sResult;
}

} // namespace zorvo
