#pragma once

#include <string>

namespace zorvo {

/// The company whose wording and pictures are the program's own: for it nothing is rebranded.
inline constexpr const char* kDefaultCompany = "Zorvo";

/// The running company's acronym; never empty, since an unset one becomes the default company here.
std::string GetCompanyID();

/// Stores the acronym exactly as it is given, from now on for everything that asks.
void StoreCompanyID(const std::string& sCompanyID);

/// What stands in front of a setting's key, so that each company keeps its own set: empty for the default
/// company.
std::string CompanySettingPrefix();

} // namespace zorvo
