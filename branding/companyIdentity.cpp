#include "branding/companyIdentity.h"

#include "base/sessionState.h"

namespace zorvo {

std::string GetCompanyID()
{
    std::string& sCompany = sessionState().gsCompanyID;
    if (sCompany.empty())
        sCompany = kDefaultCompany;
    return sCompany;
}

void StoreCompanyID(const std::string& sCompanyID)
{
    sessionState().gsCompanyID = sCompanyID;
}

std::string CompanySettingPrefix()
{
    std::string sCompany = GetCompanyID();
    return sCompany == kDefaultCompany ? std::string() : sCompany;
}

} // namespace zorvo
