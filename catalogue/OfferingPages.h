#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorvo {

/// The key is an offering's: a group's has no grave accent.
bool bIsOffering(const std::string& sKey);
/// The page name of a node's key: what stands before its first grave accent, or the whole key.
std::string sPageCode(const std::string& sKey);
/// The class number: what stands behind the first grave accent, empty when there is none.
std::string sPageClassID(const std::string& sKey);
/// Numeric, and at least 1. Throws RunTimeError 6 for a number past 16 bits.
bool bValidClassID(const std::string& sClassID);
/// The offering's page on the publisher's site, whose address the caption document has.
std::string sWebPageURL(const std::string& sClassID);

/// Where the offerings' pages lie on this machine.
class OfferingPages {
public:
    /// Reads the folders of all installed product years.
    void readProductPaths();

    /// The "file://" address of a page: in the first product folder that holds it, else the program's own
    /// copy, which isn't looked for.
    std::string sOfflinePageURL(const std::string& sProductCode) const;

private:
    /// From entry 1 on.
    std::vector<std::string> msProductPaths_;
    std::int32_t mnProductPaths_ = 0;
};

} // namespace zorvo
