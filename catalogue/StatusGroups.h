#pragma once

#include "base/XmlDocument.h"
#include "catalogue/ProductYears.h"

#include <string>
#include <vector>

namespace zorvo {

enum class StatusScan {
    installedProducts,        // the registry, both groups
    installedTessoraProducts, // the registry, one group
    allOfferings,             // every product that has an offline page; no registry
};

/// Writes the groups of one product status document, in the tree order document's order.
class StatusGroups {
public:
    /// `sZorvoPath` is the program folder with its backslash; the company is the running one.
    StatusGroups(StatusScan scan, std::string sZorvoPath);

    /// Appends each `ProductTreeGroup` that belongs to the company, nested groups ahead of its own products.
    /// Throws RunTimeError 91 for a missing attribute and 5 when the company's id can't stand in an XPath
    /// text.
    void AppendProductGroups(const std::vector<XmlNode>& groups, std::string& sOutput);

private:
    bool belongsToCompany(const XmlNode& group) const;
    void appendProduct(const XmlNode& acronymn, std::string& sOutput);
    void appendOffering(const XmlNode& acronymn, const std::string& sProduct, std::string& sOutput) const;

    StatusScan scan_;
    std::string sZorvoPath_;
    std::string sCompanyID_;
    ProductYears years_;
};

} // namespace zorvo
