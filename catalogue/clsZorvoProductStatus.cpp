#include "catalogue/clsZorvoProductStatus.h"

#include "base/XmlDocument.h"
#include "catalogue/InstallInfo.h"
#include "catalogue/NestedKeyValues.h"
#include "catalogue/StatusGroups.h"
#include "catalogue/TreeOrder.h"
#include "catalogue/TreeOrderServer.h"
#include "catalogue/statusTemplates.h"
#include "platform/machineAccess.h"
#include "platform/xmlFiles.h"

namespace zorvo {

namespace {

constexpr std::int16_t kAutomationTrue = -1;

StatusScan scanOf(std::int16_t bNoctaOnly, std::int16_t bAllProducts)
{
    if (bAllProducts == kAutomationTrue)
        return StatusScan::allOfferings;
    return bNoctaOnly != 0 ? StatusScan::installedTessoraProducts : StatusScan::installedProducts;
}

/// The server's text is taken directly, without the copy that `sGetTreeOrderXML` writes.
XmlDocument treeOrderDocument(const std::string& sZorvoPath)
{
    if (!bHasTreeOrderServer(sZorvoPath))
        return loadXmlFile(sGetTreeOrderXML());
    XmlDocument document;
    document.loadXML(sTreeOrderFromServer(sZorvoPath));
    return document;
}

} // namespace

std::string clsZorvoProductStatus::sGetProductStatusXML(std::int16_t bNoctaOnly, std::int16_t bAllProducts)
{
    const std::string sZorvoPath = GetZorvoPath(true);
    const XmlDocument document = treeOrderDocument(sZorvoPath);
    std::string sOutput(statusDocumentStart());
    StatusGroups groups(scanOf(bNoctaOnly, bAllProducts), sZorvoPath);
    groups.AppendProductGroups(document.selectNodes("ZorvoTree/ProductTreeGroup"), sOutput);
    return sOutput.append(statusDocumentEnd());
}

void clsZorvoProductStatus::GetQBKInfo(const std::string& sProductType, const std::string& ProductGroup,
                                       const std::string& version, bool& bInstalled, std::string& appPath,
                                       Hive hHive)
{
    zorvo::GetQBKInfo(sProductType, ProductGroup, version, bInstalled, appPath, hHive);
}

std::string clsZorvoProductStatus::sGetTreeOrderXML()
{
    return zorvo::sGetTreeOrderXML();
}

std::int32_t clsZorvoProductStatus::nGetNestedKeyValues(const std::string& pKey,
                                                        const std::string& sSearchKey,
                                                        const std::string& sStringValueKey,
                                                        std::vector<std::string>& sRetValue,
                                                        std::int32_t& nRetCount)
{
    return zorvo::nGetNestedKeyValues(pKey, sSearchKey, sStringValueKey, sRetValue, nRetCount);
}

} // namespace zorvo
