#include "tests/branding/randomTexts.h"

#include "tests/branding/captionXml.h"

#include <iterator>

namespace zorvo {

namespace {

constexpr const char* kFragments[] = {
    "Zorvo",       "Zorvo",      "Zorvo",      "zorvo",     "zorvo",     "ZORVO",
    "Zor",         "vo",         "orvo",       "Z",         "z",         "ZorvoZorvo",
    "zorvoZorvo",  "Zorvozorvo", ".Zorvo",     "Zorvo_",    "clsZorvo",  "\\Zorvo",
    "Zorvo\\",     "\\zorvo",    "zorvo\\",    ".",         "_",         "cls",
    "cl",          "s",          "\\",         "[~~0~]",    "[~~1~]",    "[~~2~]",
    "[~~3~]",      "[~~4~]",     "[~~5~]",     "[~~6~]",    "[~~7~]",    "[~~8~]",
    "[~~",         "[~",         "[",          "~]",        "]",         "~",
    "~~",          "[~9U~]",     "[~ZU~]",     "[~zl~]",    "[~al~]",    "[~aL~]",
    "U~]",         "l~]",        "U",          "l",         "0~]",       "7~]",
    "0",           "7",          "9",          "A",         "a",         "n",
    "net",         " ",          "'s Brendle", " option 6", " Option 6", " option 8",
    " Option 8",   " opt",       "ion 6",      "ption ",    " option ",  " Option ",
    "6",           "8",          "&",          "&&",        "\xC3\xA9",  "\xE2\x80\x99",
    "\r\n",        "@",          "`",          "{",         "/",         ":",
    "[~~ZorvoU~]", "[~Zorvo",    "ABC",        "OTR"};

constexpr const char* kCompanies[] = {"ABC",  "OTR", "Zorvo",   "zorvo",   "ZorvoPlus", "0",
                                      "~0~]", "[~~", "[~~5~]",  "[",       "~]",        "U~]",
                                      "9",    "_",   "X Zorvo", "Zorvo\\", " option",   "\xC3\x96-L"};

constexpr const char* kExemptNames[] = {"ZorvoSysSupport.txt", "ZorvoSysInfo.txt"};

/// Pairs that work on the word itself and on the tokens.
constexpr const char* kPairTexts[] = {"Zorvo",    "zorvo",   "Acme", "Zorvo Zorvo", "ZorvoX", "[~~3~]",
                                      "[~~",      "o",       "v",    "\\",          "~",      "x[~~0~]y",
                                      "option 6", "Brendle", "A",    "SysInfo"};

template <typename Texts>
std::string pick(const Texts& texts, std::size_t index)
{
    return texts[index];
}

} // namespace

std::string RandomTexts::fragment()
{
    return pick(kFragments, below(std::size(kFragments)));
}

std::string RandomTexts::fragments(std::size_t count)
{
    std::string sText;
    for (std::size_t i = 0; i < count; ++i)
        sText += fragment();
    return sText;
}

std::string RandomTexts::text()
{
    if (below(100) == 0)
        return pick(kExemptNames, below(std::size(kExemptNames)));
    return fragments(below(16));
}

std::string RandomTexts::company()
{
    return pick(kCompanies, below(std::size(kCompanies)));
}

std::string RandomTexts::captionDocument()
{
    std::string sPairs;
    // Half of the documents have no pair: the tokens' own play must not drown in them.
    const std::size_t nPairs = coin() ? 0 : 1 + below(6);
    for (std::size_t n = 1; n <= nPairs; ++n) {
        const std::string sReplace =
            below(4) == 0 ? std::string() : pick(kPairTexts, below(std::size(kPairTexts)));
        sPairs += pairXml(static_cast<int>(n), pick(kPairTexts, below(std::size(kPairTexts))), sReplace);
    }
    return "<Captions><Rebrand>" + sPairs + "</Rebrand></Captions>";
}

} // namespace zorvo
