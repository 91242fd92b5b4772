#pragma once

#include "platform/Registry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Names and paths of registry keys, the same for every store behind the port.
namespace zorvo {

/// A key's or value's name has at most this many UTF-8 bytes, a key at most this many levels.
constexpr std::size_t kLongestRegistryName = 16383;
constexpr std::size_t kDeepestRegistryKey = 512;

/// "HKEY_CURRENT_USER" and so on; empty for no hive.
std::string registryHiveName(Hive hive);

/// The hive of a full name or of its usual abbreviation (HKCU, HKLM, HKCR, HKU, HKCC), whatever the case.
Hive registryHive(std::string_view name);

/// A name that the store can keep and the text format can show: UTF-8, no line break or zero character, not
/// too long. The empty name is that of a default value and fits; a key level can't be empty.
bool isRegistryName(std::string_view name);

/// The levels of a path below a hive; none for the empty path, which is the hive itself. Nothing when a level
/// is empty or no name, or when there are too many.
std::optional<std::vector<std::string>> registryLevels(std::string_view path);

/// A key given as one text.
struct RegistryPlace {
    Hive hive = kHiveNone;
    std::string sPath;
};

/// Hive and path of "HKEY_CURRENT_USER\Software\Name". Nothing for an unknown hive or a malformed path.
std::optional<RegistryPlace> registryPlace(std::string_view fullKey);

} // namespace zorvo
