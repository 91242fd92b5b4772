#pragma once

#include "platform/Registry.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zorvo {

/// The registry scan of one status document: which years of a product are on the machine. Each group's
/// product keys are listed once per scan, at the first question about the group; make a new one for each
/// document.
class ProductYears {
public:
    /// The product's `ProductRegistryNode` strings below a group key ("Tessora", "Quillbook"): those of the
    /// current user, then those of the machine. Missing keys yield nothing. Adds the years of library
    /// products to the library table. Throws RunTimeError 6 for a year past 32 bits or when that table is
    /// full.
    std::string ListProductYears(const std::string& sGroup, const std::string& sProduct);

private:
    struct YearEntry {
        std::string sName;
        std::optional<std::int32_t> nValue; // none when the name isn't numeric
    };
    using KeyNames = std::unordered_multiset<std::string>;

    void ListProductYearsInHive(const std::string& sGroup, Hive hHive, const std::string& sProduct,
                                std::string& sNodes);
    const KeyNames& groupKeyNames(const std::string& sGroup, Hive hHive);
    static std::vector<YearEntry> collectYearEntries(RegistryKey& productKey, const std::string& sProductPath,
                                                     const std::string& sProduct);
    static void appendNodes(const std::vector<YearEntry>& entries, const std::string& sGroup, Hive hHive,
                            const std::string& sProduct, std::string& sNodes);

    std::map<std::pair<std::string, Hive>, KeyNames> groups_;
};

} // namespace zorvo
