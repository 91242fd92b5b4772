#pragma once

#include "platform/Automation.h"
#include "platform/Registry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvo {

/// The automation class that tells what this machine has. It keeps nothing between calls and traps nothing: a
/// failure reaches the caller as RunTimeError.
class clsZorvoProductStatus : public AutomationObject {
public:
    /// The product status document. The flags are automation Booleans: `bNoctaOnly` counts when it isn't
    /// zero, `bAllProducts` only when it is -1, all bits set.
    std::string sGetProductStatusXML(std::int16_t bNoctaOnly = 0, std::int16_t bAllProducts = 0);

    /// One product year; see InstallInfo.h.
    void GetQBKInfo(const std::string& sProductType, const std::string& ProductGroup,
                    const std::string& version, bool& bInstalled, std::string& appPath, Hive hHive);

    /// The path of the tree order file to use; see TreeOrder.h.
    std::string sGetTreeOrderXML();

    /// The walk over nested keys; see NestedKeyValues.h.
    std::int32_t nGetNestedKeyValues(const std::string& pKey, const std::string& sSearchKey,
                                     const std::string& sStringValueKey, std::vector<std::string>& sRetValue,
                                     std::int32_t& nRetCount);
};

} // namespace zorvo
