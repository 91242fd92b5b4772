#pragma once

#include "platform/Registry.h"

#include <cstdint>
#include <memory>
#include <string>

/// Full key names, keys for reading and the enumeration of sub-keys, as the catalogue uses them.
namespace zorvo {

/// The hive of that exact name; kHiveNone, which opens nothing, for any other.
Hive hHiveFromName(const std::string& sHiveName);

/// Splits "HIVE\path" at the first backslash. Throws RunTimeError 5 when there is none.
void SplitHiveKey(const std::string& sFullKey, std::string& sHiveName, std::string& sPath);

/// The key for reading; null when it can't be opened.
std::unique_ptr<RegistryKey> OpenKeyToRead(Hive hHive, const std::string& sPath);

/// The name of the sub-key at an index, empty unless the status is success. A name of 2000 bytes or more
/// doesn't fit.
void EnumKeyName(RegistryKey& key, std::size_t nIndex, std::string& sName, std::int32_t& nStatus);

} // namespace zorvo
