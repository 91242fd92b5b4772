#include "branding/brandedSettings.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "branding/companyIdentity.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"

namespace zorvo {

namespace {

std::string storedValue(const std::string& sApp, const std::string& sSection, const std::string& sKey,
                        const std::string& sDefault)
{
    return platform().settings->get(sApp, sSection, CompanySettingPrefix() + sKey).value_or(sDefault);
}

bool isNonZero(const std::string& sNumber)
{
    try {
        return toDouble(sNumber) != 0;
    } catch (const RunTimeError&) { // past the range of a double: whatever it is, it isn't 0
        return true;
    }
}

} // namespace

bool bGetBrandedSetting(const std::string& sApp, const std::string& sSection, const std::string& sKey,
                        bool bDefault)
{
    const std::string sValue = storedValue(sApp, sSection, sKey, bDefault ? "True" : "False");
    return isNumeric(sValue) ? isNonZero(sValue) : upperCase(sValue) == "TRUE";
}

std::int16_t nGetBrandedSetting(const std::string& sApp, const std::string& sSection, const std::string& sKey,
                                std::int16_t nDefault)
{
    const std::string sValue = storedValue(sApp, sSection, sKey, std::to_string(nDefault));
    return isNumeric(sValue) ? toInteger(sValue) : nDefault;
}

std::int16_t SaveBrandedSetting(const std::string& sApp, const std::string& sSection, const std::string& sKey,
                                const std::string& sValue)
{
    try {
        platform().settings->set(sApp, sSection, CompanySettingPrefix() + sKey, sValue);
    } catch (const RunTimeError&) { // a preference that can't be kept is no reason to trouble the user
    }
    return 0;
}

} // namespace zorvo
