#include "catalogue/registryKeys.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/Platform.h"

#include <array>
#include <utility>

namespace zorvo {

namespace {

constexpr std::size_t kKeyNameCapacity = 2000;

constexpr std::array<std::pair<const char*, Hive>, 5> kHives{{
    {"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
    {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
    {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
    {"HKEY_USERS", HKEY_USERS},
    {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG},
}};

} // namespace

Hive hHiveFromName(const std::string& sHiveName)
{
    for (const auto& [name, hive] : kHives) {
        if (sHiveName == name)
            return hive;
    }
    return kHiveNone;
}

void SplitHiveKey(const std::string& sFullKey, std::string& sHiveName, std::string& sPath)
{
    const auto nBackslash = sFullKey.find('\\');
    if (nBackslash == std::string::npos)
        throw RunTimeError(kInvalidCall);
    sHiveName = sFullKey.substr(0, nBackslash);
    sPath = sFullKey.substr(nBackslash + 1);
}

std::unique_ptr<RegistryKey> OpenKeyToRead(Hive hHive, const std::string& sPath)
{
    std::unique_ptr<RegistryKey> key;
    if (platform().registry->openKey(hHive, sPath, kKeyReadAccess, key) != kRegistrySuccess)
        key.reset();
    return key;
}

void EnumKeyName(RegistryKey& key, std::size_t nIndex, std::string& sName, std::int32_t& nStatus)
{
    sName.clear();
    nStatus = key.enumKey(nIndex, kKeyNameCapacity, sName);
    sName = nStatus == kRegistrySuccess ? cutAtNull(sName) : std::string();
}

} // namespace zorvo
