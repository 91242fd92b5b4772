#include "catalogue/InstallInfo.h"

#include "base/paths.h"
#include "base/text.h"
#include "platform/Platform.h"

#include <optional>

namespace zorvo {

namespace {

constexpr std::size_t kPathCapacity = 256;
constexpr std::size_t kTitleCapacity = 128;
constexpr const char* kAppPathValue = "AppPath2";
constexpr const char* kInstallDefaults = "\\InstallDefaults";

std::optional<std::string> readText(Hive hHive, const std::string& sKeyPath, const std::string& sValueName,
                                    std::size_t nCapacity)
{
    std::unique_ptr<RegistryKey> key;
    if (platform().registry->openKey(hHive, "Software\\Zorvo\\" + sKeyPath, kKeyReadAccess, key) !=
        kRegistrySuccess)
        return std::nullopt;
    std::string sData;
    RegistryType type{};
    if (key->queryValue(sValueName, nCapacity, sData, type) != kRegistrySuccess)
        return std::nullopt;
    return cutAtNull(sData);
}

} // namespace

void GetQBKInfo(const std::string& sProductType, const std::string& ProductGroup, const std::string& version,
                bool& bInstalled, std::string& appPath, Hive hHive)
{
    if (version != "2002")
        GetInstallInfo(ProductGroup, sProductType, version, hHive, bInstalled, appPath);
    else
        GetInstallInfo2002(ProductGroup + "\\", sProductType, bInstalled, appPath);
}

void GetInstallInfo(const std::string& sGroup, const std::string& sProduct, const std::string& sYear,
                    Hive hHive, bool& bInstalled, std::string& appPath)
{
    const std::string sKeyPath = sGroup + "\\" + sProduct + "\\" + sYear + kInstallDefaults;
    appPath = trimBlanks(GetHiveValue(sKeyPath, kAppPathValue, bInstalled, hHive));
}

void GetInstallInfo2002(const std::string& sGroup, const std::string& sProduct, bool& bInstalled,
                        std::string& appPath)
{
    appPath = GetMachineValue(withBackslash(sGroup) + sProduct + kInstallDefaults, kAppPathValue, bInstalled);
}

std::string GetHiveValue(const std::string& sKeyPath, const std::string& sValueName, bool& bFound, Hive hHive)
{
    const auto sValue = readText(hHive, sKeyPath, sValueName, kPathCapacity);
    bFound = sValue.has_value();
    return sValue.value_or(std::string());
}

std::string GetMachineValue(const std::string& sKeyPath, const std::string& sValueName, bool& bFound)
{
    return GetHiveValue(sKeyPath, sValueName, bFound, HKEY_LOCAL_MACHINE);
}

std::string GetProductTitle(const std::string& sGroupAndProduct, Hive hHive)
{
    return trimBlanks(readText(hHive, sGroupAndProduct, "Title", kTitleCapacity).value_or(std::string()));
}

} // namespace zorvo
