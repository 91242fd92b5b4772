#include "catalogue/ProductYears.h"

#include "base/numbers.h"
#include "catalogue/InstallInfo.h"
#include "catalogue/catalogueState.h"
#include "catalogue/registryKeys.h"
#include "catalogue/statusTemplates.h"

#include <algorithm>

namespace zorvo {

namespace {

constexpr const char* kZorvoKey = "Software\\Zorvo\\";

/// The sub-keys' names in the store's order. Anything but success ends the enumeration.
class SubKeyNames {
public:
    explicit SubKeyNames(RegistryKey& key)
        : key_(key)
    {
    }

    bool next(std::string& sName)
    {
        std::int32_t nStatus = kRegistrySuccess;
        EnumKeyName(key_, nIndex_++, sName, nStatus);
        return nStatus == kRegistrySuccess;
    }

private:
    RegistryKey& key_;
    std::size_t nIndex_ = 0;
};

bool isMarkOf2002(const std::string& sName)
{
    return sName == "CurrentVersion" || sName == "InstallDefaults";
}

/// Asked of the current user whichever hive is scanned.
bool userHasKeyOf2002(const std::string& sProductPath)
{
    return OpenKeyToRead(HKEY_CURRENT_USER, sProductPath + "\\2002\\InstallDefaults") != nullptr;
}

} // namespace

std::string ProductYears::ListProductYears(const std::string& sGroup, const std::string& sProduct)
{
    std::string sNodes;
    ListProductYearsInHive(sGroup, HKEY_CURRENT_USER, sProduct, sNodes);
    ListProductYearsInHive(sGroup, HKEY_LOCAL_MACHINE, sProduct, sNodes);
    return sNodes;
}

void ProductYears::ListProductYearsInHive(const std::string& sGroup, Hive hHive, const std::string& sProduct,
                                          std::string& sNodes)
{
    catalogueState().swdInstalled.setUp();
    const std::string sProductPath = kZorvoKey + sGroup + "\\" + sProduct;
    // Every key of that exact name counts, should the store enumerate one more than once.
    for (std::size_t nMatches = groupKeyNames(sGroup, hHive).count(sProduct); nMatches > 0; --nMatches) {
        const std::unique_ptr<RegistryKey> productKey = OpenKeyToRead(hHive, sProductPath);
        if (productKey)
            appendNodes(collectYearEntries(*productKey, sProductPath, sProduct), sGroup, hHive, sProduct,
                        sNodes);
    }
}

const ProductYears::KeyNames& ProductYears::groupKeyNames(const std::string& sGroup, Hive hHive)
{
    const auto [found, bNew] = groups_.try_emplace({sGroup, hHive});
    if (bNew) {
        const std::unique_ptr<RegistryKey> groupKey = OpenKeyToRead(hHive, kZorvoKey + sGroup);
        if (groupKey) {
            SubKeyNames names(*groupKey);
            for (std::string sName; names.next(sName);)
                found->second.insert(sName);
        }
    }
    return found->second;
}

std::vector<ProductYears::YearEntry> ProductYears::collectYearEntries(RegistryKey& productKey,
                                                                      const std::string& sProductPath,
                                                                      const std::string& sProduct)
{
    SwdInstalledTable& table = catalogueState().swdInstalled;
    const bool bLibrary = bIsLibraryProduct(sProduct);
    std::vector<YearEntry> entries;
    SubKeyNames names(productKey);
    for (std::string sName; names.next(sName);) {
        if (!isMarkOf2002(sName)) {
            entries.push_back({sName, {}});
            if (bLibrary)
                table.writeRow(sName, sProduct);
        } else if (userHasKeyOf2002(sProductPath)) {
            break;
        } else {
            entries.push_back({"2002", {}});
        }
        if (bLibrary)
            table.closeRow();
    }
    for (YearEntry& entry : entries) {
        if (isNumeric(entry.sName))
            entry.nValue = toLong(entry.sName);
    }
    return entries;
}

void ProductYears::appendNodes(const std::vector<YearEntry>& entries, const std::string& sGroup, Hive hHive,
                               const std::string& sProduct, std::string& sNodes)
{
    std::int32_t nHighest = 0;
    for (const YearEntry& entry : entries)
        nHighest = std::max(nHighest, entry.nValue.value_or(0));

    const std::string sGroupAndProduct = sGroup + "\\" + sProduct;
    std::optional<std::string> sTitle;
    for (const YearEntry& entry : entries) {
        if (!entry.nValue)
            continue;
        bool bInstalled = false;
        std::string sAppPath;
        GetQBKInfo(sProduct, sGroup, entry.sName, bInstalled, sAppPath, hHive);
        if (!sTitle)
            sTitle = GetProductTitle(sGroupAndProduct, hHive);
        sNodes += BuildProductNode({.sName = *sTitle,
                                    .sProductKey = sProduct,
                                    .sYear = entry.sName,
                                    .bInstalled = bInstalled,
                                    .sTemplatePath = sAppPath,
                                    .bLatest = *entry.nValue == nHighest});
    }
}

} // namespace zorvo
