#pragma once

#include "platform/Registry.h"

#include <string>

/// What the registry says about one product year. Nothing here raises: what can't be read isn't there.
namespace zorvo {

/// Whether that year of the product is installed and the folder of its templates, which is empty when it
/// isn't. The year "2002" is looked for in the machine's hive whatever `hHive` says.
void GetQBKInfo(const std::string& sProductType, const std::string& ProductGroup, const std::string& version,
                bool& bInstalled, std::string& appPath, Hive hHive);

/// A year that has a key of its own.
void GetInstallInfo(const std::string& sGroup, const std::string& sProduct, const std::string& sYear,
                    Hive hHive, bool& bInstalled, std::string& appPath);

/// A product of the year 2002, which has no year key. `sGroup` may end in a backslash.
void GetInstallInfo2002(const std::string& sGroup, const std::string& sProduct, bool& bInstalled,
                        std::string& appPath);

/// A value of at most 256 bytes, terminator included, of the key below `Software\Zorvo\`. A longer one counts
/// as not found.
std::string GetHiveValue(const std::string& sKeyPath, const std::string& sValueName, bool& bFound,
                         Hive hHive);
std::string GetMachineValue(const std::string& sKeyPath, const std::string& sValueName, bool& bFound);

/// The trimmed `Title` of `group\product`, at most 128 bytes with its terminator; empty when there is none.
std::string GetProductTitle(const std::string& sGroupAndProduct, Hive hHive);

} // namespace zorvo
