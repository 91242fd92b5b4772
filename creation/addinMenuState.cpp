#include "creation/addinMenuState.h"

#include "base/text.h"
#include "branding/companyIdentity.h"
#include "platform/Platform.h"
#include "platform/Registry.h"

#include <memory>
#include <string>

namespace zorvo {

namespace {

constexpr const char* kKey = "Software\\Zorvo\\QBN";
constexpr std::size_t kValueCapacity = 256;

std::string valueName()
{
    return CompanySettingPrefix() + "TurnOffMenu";
}

} // namespace

bool SetAddinMenuState(bool bOn)
{
    std::unique_ptr<RegistryKey> key;
    if (platform().registry->openKey(HKEY_CURRENT_USER, kKey, kKeySetValue, key) != kRegistrySuccess)
        return false;
    std::string sData = bOn ? "On" : "Off";
    sData.push_back('\0');
    return key->setValue(valueName(), RegistryType::string, sData) == kRegistrySuccess && bOn;
}

bool GetAddinMenuState()
{
    Registry& registry = *platform().registry;
    std::unique_ptr<RegistryKey> key;
    if (registry.openKey(HKEY_CURRENT_USER, kKey, kKeyReadAccess, key) != kRegistrySuccess) {
        registry.createKey(HKEY_CURRENT_USER, kKey, key);
        return true;
    }
    std::string sData;
    RegistryType type{};
    if (key->queryValue(valueName(), kValueCapacity, sData, type) != kRegistrySuccess)
        return true;
    return !equalNoCase(cutAtNull(sData), "Off");
}

} // namespace zorvo
