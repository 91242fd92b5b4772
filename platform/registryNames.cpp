#include "platform/registryNames.h"

#include "base/text.h"

#include <array>

namespace zorvo {

namespace {

struct HiveName {
    Hive hive;
    const char* name;
    const char* abbreviation;
};

constexpr std::array<HiveName, 5> kHiveNames{{
    {HKEY_CLASSES_ROOT, "HKEY_CLASSES_ROOT", "HKCR"},
    {HKEY_CURRENT_USER, "HKEY_CURRENT_USER", "HKCU"},
    {HKEY_LOCAL_MACHINE, "HKEY_LOCAL_MACHINE", "HKLM"},
    {HKEY_USERS, "HKEY_USERS", "HKU"},
    {HKEY_CURRENT_CONFIG, "HKEY_CURRENT_CONFIG", "HKCC"},
}};

} // namespace

std::string registryHiveName(Hive hive)
{
    for (const HiveName& row : kHiveNames)
        if (row.hive == hive)
            return row.name;
    return {};
}

Hive registryHive(std::string_view name)
{
    for (const HiveName& row : kHiveNames)
        if (equalNoCase(name, row.name) || equalNoCase(name, row.abbreviation))
            return row.hive;
    return kHiveNone;
}

bool isRegistryName(std::string_view name)
{
    constexpr std::string_view kBreaks("\r\n\0", 3);
    return name.size() <= kLongestRegistryName && name.find_first_of(kBreaks) == std::string_view::npos &&
           isUtf8(name);
}

std::optional<std::vector<std::string>> registryLevels(std::string_view path)
{
    std::vector<std::string> levels;
    if (path.empty())
        return levels;
    for (std::size_t at = 0;;) {
        const std::size_t end = path.find('\\', at);
        const std::string_view level = path.substr(at, end - at);
        if (level.empty() || !isRegistryName(level) || levels.size() == kDeepestRegistryKey)
            return std::nullopt;
        levels.emplace_back(level);
        if (end == std::string_view::npos)
            return levels;
        at = end + 1;
    }
}

std::optional<RegistryPlace> registryPlace(std::string_view fullKey)
{
    const std::size_t backslash = fullKey.find('\\');
    const Hive hive = registryHive(fullKey.substr(0, backslash));
    if (hive == kHiveNone)
        return std::nullopt;
    if (backslash == std::string_view::npos)
        return RegistryPlace{hive, {}};
    const std::string_view path = fullKey.substr(backslash + 1);
    if (path.empty() || !registryLevels(path))
        return std::nullopt;
    return RegistryPlace{hive, std::string(path)};
}

} // namespace zorvo
