#include "tree/productLabel.h"

#include "base/numbers.h"
#include "base/text.h"

#include <cmath>

namespace zorvo {

namespace {

constexpr std::size_t kDateLength = 8;

/// Without a leading zero; nothing for zero.
std::string monthText(const std::string& sMonth)
{
    const auto nMonth = static_cast<int>(std::nearbyint(leadingNumber(sMonth)));
    return nMonth == 0 ? std::string() : std::to_string(nMonth);
}

} // namespace

bool bNeedsYearLabel(const std::string& sGroupTitle, const std::string& sName)
{
    for (const char* title : {"Quillbook", "Sablewood Libraries", "Fennimore Composer"}) {
        if (equalNoCase(sGroupTitle, title))
            return true;
    }
    return containsNoCase(sName, "Evaluation");
}

std::string sProductLabel(const std::string& sName, const std::string& sYear)
{
    if (characterCount(sYear) != kDateLength)
        return sName + " " + sYear;
    const std::string sFromShortYear = lastCharacters(sYear, 6);
    const std::string sFromMonth = lastCharacters(sYear, 4);
    const std::string sShortYear = sFromShortYear.substr(0, sFromShortYear.size() - sFromMonth.size());
    const std::string sMonth = sFromMonth.substr(0, sFromMonth.size() - lastCharacters(sYear, 2).size());
    return sName + " (" + monthText(sMonth) + "/" + sShortYear + ")";
}

} // namespace zorvo
