#include "catalogue/StatusGroups.h"

#include "branding/companyIdentity.h"
#include "catalogue/statusTemplates.h"
#include "platform/machineAccess.h"

#include <utility>

namespace zorvo {

StatusGroups::StatusGroups(StatusScan scan, std::string sZorvoPath)
    : scan_(scan)
    , sZorvoPath_(std::move(sZorvoPath))
    , sCompanyID_(GetCompanyID())
{
}

void StatusGroups::AppendProductGroups(const std::vector<XmlNode>& groups, std::string& sOutput)
{
    for (const XmlNode& group : groups) {
        // Read ahead of the company's test: a group without them fails the call also where it isn't shown.
        const std::string sTitle = group.attribute("TreeTitle");
        const std::string sTitleShort = group.attribute("TreeTitleShort");
        const std::string sIconLarge = group.attribute("IconLarge");
        const std::string sIconSmall = group.attribute("IconSmall");
        if (!belongsToCompany(group))
            continue;
        sOutput += FillProductGroup(sTitle, sTitleShort, sIconLarge, sIconSmall);
        AppendProductGroups(group.childElements("ProductTreeGroup"), sOutput);
        for (const XmlNode& acronymn : group.childElements("Acronymn"))
            appendProduct(acronymn, sOutput);
        sOutput += productGroupEnd();
    }
}

bool StatusGroups::belongsToCompany(const XmlNode& group) const
{
    const bool bDefaultCompany = sCompanyID_ == kDefaultCompany;
    if (bDefaultCompany && group.selectSingleNode("descendant::Acronymn[not(@companyID)]"))
        return true;
    return !group.selectSingleNode("descendant::Acronymn[@companyID='" + sCompanyID_ + "']").isNull();
}

void StatusGroups::appendProduct(const XmlNode& acronymn, std::string& sOutput)
{
    const std::string sProduct = acronymn.text();
    if (scan_ == StatusScan::allOfferings) {
        appendOffering(acronymn, sProduct, sOutput);
        return;
    }
    sOutput += years_.ListProductYears("Tessora", sProduct);
    if (scan_ == StatusScan::installedProducts)
        sOutput += years_.ListProductYears("Quillbook", sProduct);
}

void StatusGroups::appendOffering(const XmlNode& acronymn, const std::string& sProduct,
                                  std::string& sOutput) const
{
    if (!bFileExists(sZorvoPath_ + "TreeData\\HTML\\" + sProduct + ".htm"))
        return;
    const std::string sClassID = acronymn.attribute("numProdClassID");
    const std::string sName = acronymn.attribute("Name");
    sOutput += BuildProductNode({.sName = sName,
                                 .sProductKey = sProduct,
                                 .sYear = "2004",
                                 .bInstalled = true,
                                 .sTemplatePath = "N/A",
                                 .bLatest = true,
                                 .sClassID = sClassID});
}

} // namespace zorvo
