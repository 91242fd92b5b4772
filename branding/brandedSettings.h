#pragma once

#include <cstdint>
#include <string>

/// The user's settings, a set per company: the stored key is `CompanySettingPrefix` and the key.
namespace zorvo {

/// A number other than 0 is True, "True" in any case is True, all else is False.
bool bGetBrandedSetting(const std::string& sApp, const std::string& sSection, const std::string& sKey,
                        bool bDefault);

/// A value that isn't numeric gives the default. Throws RunTimeError 6 for a number past 16 bits.
std::int16_t nGetBrandedSetting(const std::string& sApp, const std::string& sSection, const std::string& sKey,
                                std::int16_t nDefault);

/// A failing write is silent. Always 0.
std::int16_t SaveBrandedSetting(const std::string& sApp, const std::string& sSection, const std::string& sKey,
                                const std::string& sValue);

} // namespace zorvo
